#include "workbench/ide/kate/plugin.h"

#include "workbench/desktop/text/qt_text.h"
#include "workbench/ide/view/command_mirror.h"
#include "workbench/ide/view/texts.h"
#include "workbench/ide/view/view_place.h"

#include <KActionCollection>
#include <KPluginFactory>
#include <KXMLGUIFactory>
#include <QAction>
#include <QCoreApplication>
#include <QIcon>
#include <QLayout>
#include <QMetaObject>
#include <QVariantMap>

namespace workbench {
namespace {

constexpr const char* ComponentName = "katedeploymentmanager";
constexpr const char* ProjectPlugin = "kateprojectplugin";

// What the project plug-in knows of the active project; without a name where there is none.
TIdeProject Describe(const QObject& projects) {
  TIdeProject described{.Name = projects.property("projectName").toString(),
                        .Directory = ToPathText(projects.property("projectBaseDir").toString()),
                        .Build = {}};
  const QVariantMap build = projects.property("projectMap").toMap().value("build").toMap();
  const QString directory = build.value("directory").toString();
  if (!directory.isEmpty())
    described.Build = (described.Directory / ToPathText(directory)).lexically_normal();
  return described;
}

} // namespace

TKatePlugin::TKatePlugin(QObject* parent, const QVariantList& /*arguments*/)
    : Plugin(parent), FView(nullptr) {
  InstallTexts();
  FView = new TDeploymentView;
}

TKatePlugin::~TKatePlugin() {
  FView->Dismiss();
}

QObject* TKatePlugin::createView(KTextEditor::MainWindow* window) {
  return new TKateWindow(*this, *window);
}

TKateWindow::TKateWindow(TKatePlugin& plugin, KTextEditor::MainWindow& window)
    : QObject(&window), FView(plugin.View()), FWindow(window) {
  const QString name =
      QCoreApplication::translate("workbench::TDeploymentView", "Deployment Manager");
  FToolView = FWindow.createToolView(&plugin, QStringLiteral("deployment_manager"),
                                     KTextEditor::MainWindow::Bottom,
                                     QIcon::fromTheme(QStringLiteral("run-install")), name);
  auto* place = new TViewPlace(FView, FToolView);
  if (QLayout* layout = FToolView->layout())
    layout->addWidget(place);
  connect(&FView, &TDeploymentView::AttentionWanted, this, &TKateWindow::Raise);
  connect(&FWindow, &KTextEditor::MainWindow::pluginViewCreated, this,
          [this](const QString& plugged, QObject* view) {
            if (plugged == QLatin1String(ProjectPlugin))
              WatchProjects(view);
          });
  WatchProjects(FWindow.pluginView(QLatin1String(ProjectPlugin)));
  AddActions();
}

TKateWindow::~TKateWindow() {
  FWindow.guiFactory()->removeClient(this);
  delete FToolView.data();
}

void TKateWindow::AddActions() {
  setComponentName(QLatin1String(ComponentName), QLatin1String(ComponentName));
  setXMLFile(QStringLiteral("ui.rc"));
  QAction* show = actionCollection()->addAction(QStringLiteral("deployment_show"));
  show->setText(QCoreApplication::translate("workbench::TDeploymentView", "Show &List"));
  connect(show, &QAction::triggered, this, &TKateWindow::Raise);
  for (QAction* command : FView.Commands()) {
    if (command)
      MirrorCommand(*command, *actionCollection()->addAction(command->objectName()));
  }
  FWindow.guiFactory()->addClient(this);
}

void TKateWindow::WatchProjects(QObject* projects) {
  FProjects = projects;
  if (!projects)
    return;
  connect(projects, SIGNAL(projectFileNameChanged()), this, SLOT(FollowProject()));
  // Not every version tells when a project is closed.
  if (projects->metaObject()->indexOfSignal("pluginProjectRemoved(QString,QString)") >= 0)
    connect(projects, SIGNAL(pluginProjectRemoved(QString, QString)), this,
            SLOT(ForgetProject(QString)));
  FollowProject();
}

void TKateWindow::FollowProject() {
  if (!FProjects)
    return;
  const TIdeProject project = Describe(*FProjects);
  if (project.Directory.empty())
    return;
  FView.AddProject(project);
  FView.ShowProject(project.Directory);
}

void TKateWindow::ForgetProject(const QString& directory) {
  FView.RemoveProject(ToPathText(directory), TUnsavedEdits::Ask);
}

// In the window that the command was given in.
void TKateWindow::Raise() {
  if (FToolView && (FWindow.window()->isActiveWindow() || FWindow.window()->isAncestorOf(&FView)))
    FWindow.showToolView(FToolView);
}

} // namespace workbench

K_PLUGIN_FACTORY_WITH_JSON(TKatePluginFactory, "katedeploymentmanager.json",
                           registerPlugin<workbench::TKatePlugin>();)

#include <plugin.moc>
