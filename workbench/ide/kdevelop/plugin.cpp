#include "workbench/ide/kdevelop/plugin.h"

#include "workbench/desktop/text/qt_text.h"
#include "workbench/ide/view/command_mirror.h"
#include "workbench/ide/view/texts.h"
#include "workbench/ide/view/view_place.h"

#include <KActionCollection>
#include <KConfigGroup>
#include <KPluginFactory>
#include <QAction>
#include <QCoreApplication>
#include <interfaces/icore.h>
#include <interfaces/idocument.h>
#include <interfaces/idocumentcontroller.h>
#include <interfaces/iproject.h>
#include <interfaces/iprojectcontroller.h>
#include <interfaces/isession.h>
#include <interfaces/iuicontroller.h>
#include <project/interfaces/ibuildsystemmanager.h>
#include <project/projectmodel.h>
#include <serialization/indexedstring.h>
#include <util/path.h>
#include <utility>

namespace workbench {
namespace {

constexpr const char* ComponentName = "kdevdeploymentmanager";

QString ViewName() {
  return QCoreApplication::translate("workbench::TDeploymentView", "Deployment Manager");
}

class TToolViewFactory final : public KDevelop::IToolViewFactory {
public:
  explicit TToolViewFactory(TDeploymentView& view) : FView(view) {}

  QWidget* create(QWidget* parent) override { return new TViewPlace(FView, parent); }
  // Saved layouts keep it, so it never changes.
  QString id() const override { return QStringLiteral("org.deploymentmanager.ToolView"); }
  Qt::DockWidgetArea defaultPosition() const override { return Qt::BottomDockWidgetArea; }

private:
  TDeploymentView& FView;
};

TIdeProject Describe(const KDevelop::IProject& project) {
  TIdeProject described{
      .Name = project.name(), .Directory = ToPathText(project.path().toLocalFile()), .Build = {}};
  KDevelop::IBuildSystemManager* manager = project.buildSystemManager();
  if (manager && project.projectItem())
    described.Build = ToPathText(manager->buildDirectory(project.projectItem()).toLocalFile());
  return described;
}

} // namespace

TKDevelopPlugin::TKDevelopPlugin(QObject* parent, const QVariantList& /*arguments*/)
    : IPlugin(QLatin1String(ComponentName), parent), FView(nullptr), FFactory(nullptr) {
  InstallTexts();
  FView = new TDeploymentView;
  FFactory = new TToolViewFactory(*FView);
  FProblems = std::make_unique<TProblemList>();
  core()->uiController()->addToolView(ViewName(), FFactory);
  connect(FView, &TDeploymentView::AttentionWanted, this, &TKDevelopPlugin::Raise);
  connect(FView, &TDeploymentView::ProblemsChanged, this,
          [this](const std::vector<TListProblem>& problems) { FProblems->Show(problems); });
  connect(core(), &KDevelop::ICore::initializationCompleted, this,
          &TKDevelopPlugin::AddToolViewOnce);
  connect(core(), &KDevelop::ICore::aboutToShutdown, this, &TKDevelopPlugin::Leave);
  auto* projects = core()->projectController();
  using KDevelop::IProjectController;
  connect(projects, &IProjectController::projectOpened, this, &TKDevelopPlugin::AddProject);
  connect(projects, &IProjectController::projectConfigurationChanged, this,
          &TKDevelopPlugin::AddProject);
  connect(projects, &IProjectController::projectClosing, this, &TKDevelopPlugin::RemoveProject);
  connect(core()->documentController(), &KDevelop::IDocumentController::documentActivated, this,
          &TKDevelopPlugin::FollowDocument);
  for (KDevelop::IProject* project : projects->projects())
    AddProject(project);
}

TKDevelopPlugin::~TKDevelopPlugin() {
  Leave();
}

void TKDevelopPlugin::unload() {
  Leave();
}

// Projects that are closed after this one hears nothing of.
void TKDevelopPlugin::Leave() {
  if (!FView)
    return;
  FProblems.reset();
  core()->projectController()->disconnect(this);
  core()->documentController()->disconnect(this);
  FView->disconnect(this);
  std::exchange(FView, nullptr)->Dismiss();
  core()->uiController()->removeToolView(std::exchange(FFactory, nullptr)); // deletes it
}

void TKDevelopPlugin::AddProject(KDevelop::IProject* project) {
  if (FView && project->path().isLocalFile())
    FView->AddProject(Describe(*project));
}

void TKDevelopPlugin::RemoveProject(KDevelop::IProject* project) {
  if (FView && project->path().isLocalFile())
    FView->RemoveProject(ToPathText(project->path().toLocalFile()), TUnsavedEdits::Ask);
}

void TKDevelopPlugin::FollowDocument(const KDevelop::IDocument* document) {
  const KDevelop::IProject* project =
      document ? core()->projectController()->findProjectForUrl(document->url()) : nullptr;
  if (FView && project && project->path().isLocalFile())
    FView->ShowProject(ToPathText(project->path().toLocalFile()));
}

// A layout shows the tool views that it was saved with. Who takes this one away is not given it
// again.
void TKDevelopPlugin::AddToolViewOnce() {
  KConfigGroup group(core()->activeSession()->config(), QStringLiteral("Deployment Manager"));
  if (!FView || group.readEntry("WasAdded", false))
    return;
  core()->uiController()->findToolView(ViewName(), FFactory, KDevelop::IUiController::Create);
  group.writeEntry("WasAdded", true);
  group.sync();
}

void TKDevelopPlugin::Raise() {
  if (FView)
    core()->uiController()->findToolView(ViewName(), FFactory,
                                         KDevelop::IUiController::CreateAndRaise);
}

// Each main window wants actions of its own.
void TKDevelopPlugin::createActionsForMainWindow(Sublime::MainWindow* /*window*/, QString& xmlFile,
                                                 KActionCollection& actions) {
  xmlFile = QStringLiteral("kdevdeploymentmanager.rc");
  QAction* show = actions.addAction(QStringLiteral("deployment_show"));
  show->setText(QCoreApplication::translate("workbench::TDeploymentView", "Show &List"));
  connect(show, &QAction::triggered, this, &TKDevelopPlugin::Raise);
  if (!FView)
    return;
  for (QAction* command : FView->Commands()) {
    if (command)
      MirrorCommand(*command, *actions.addAction(command->objectName()));
  }
}

} // namespace workbench

K_PLUGIN_FACTORY_WITH_JSON(TKDevelopPluginFactory, "kdevdeploymentmanager.json",
                           registerPlugin<workbench::TKDevelopPlugin>();)

#include <plugin.moc>
