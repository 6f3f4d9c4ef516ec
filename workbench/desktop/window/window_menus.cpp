#include "workbench/desktop/window/window_menus.h"

#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/settings/settings_store.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <algorithm>
#include <string>
#include <utility>

namespace workbench {
namespace {

constexpr std::size_t RecentShown = 10;

} // namespace

TWindowMenus::TWindowMenus(QMainWindow& window, TProjectTabs& projects, TEditorTabs& tabs,
                           TSettings& settings,
                           std::function<void(const std::filesystem::path&)> open)
    : QObject(&window), FWindow(window), FProjects(projects), FTabs(tabs), FSettings(settings),
      FOpen(std::move(open)) {}

void TWindowMenus::AddMenu(const QString& title, const std::vector<TWindowCommand>& commands) {
  QMenu& menu = *FWindow.menuBar()->addMenu(title);
  for (const TWindowCommand& command : commands) {
    if (!command.Run) {
      menu.addSeparator();
      continue;
    }
    QAction* action = Add(menu, command);
    if (command.Kind == TCommandKind::Project)
      FProjectActions.push_back(action);
    if (command.Kind == TCommandKind::Open)
      AddRecent(menu);
    if (command.Kind == TCommandKind::Undo)
      FUndo = action;
    if (command.Kind == TCommandKind::Redo)
      FRedo = action;
  }
}

QAction* TWindowMenus::Add(QMenu& menu, const TWindowCommand& command) {
  QAction* action = menu.addAction(command.Text);
  action->setShortcut(command.Keys);
  connect(action, &QAction::triggered, this, [this, run = command.Run] {
    Guarded([&] {
      if (FProjects.CommitEditors())
        run();
    });
  });
  return action;
}

void TWindowMenus::AddRecent(QMenu& menu) {
  FRecent = menu.addMenu(tr("Open &Recent"));
  connect(FRecent, &QMenu::aboutToShow, this, &TWindowMenus::FillRecent);
}

void TWindowMenus::FillRecent() {
  FRecent->clear();
  std::vector<std::string> files = FSettings.ReadHistory(RecentProjects);
  files.resize(std::min(files.size(), RecentShown));
  for (const std::string& file : files) {
    QString text = PathToQString(file);
    text.replace(u'&', QStringLiteral("&&"));
    Add(*FRecent, {text, {}, [this, file] { FOpen(file); }});
  }
  if (files.empty())
    FRecent->addAction(tr("None yet"))->setEnabled(false);
}

// The commands of hidden tabs must not stay, since their keys would be those of the tab in front.
void TWindowMenus::AddDeploymentMenu() {
  FDeployment = FWindow.menuBar()->addMenu(tr("&Deployment"));
  connect(FDeployment, &QMenu::aboutToShow, this, &TWindowMenus::FillDeployment);
  connect(FDeployment, &QMenu::aboutToHide, this,
          [this] { QTimer::singleShot(0, FDeployment, &QMenu::clear); });
}

void TWindowMenus::FillDeployment() {
  FDeployment->clear();
  const TFormControls* controls = FTabs.ControlsAt(FTabs.currentIndex());
  if (!controls || !controls->ToolBar())
    return;
  for (QAction* action : controls->ToolBar()->Actions()) {
    if (action->isSeparator() || !action->text().isEmpty())
      FDeployment->addAction(action);
  }
}

void TWindowMenus::Update() {
  const bool hasProject = FProjects.ProjectAt(FTabs.currentIndex()) != nullptr;
  for (QAction* action : FProjectActions)
    action->setEnabled(hasProject);
  FDeployment->setEnabled(hasProject);
  UpdateUndo();
}

// The name of a file may hold what menus take for a mnemonic.
QString TWindowMenus::StepText(const std::string& name) {
  return ToQString(name).replace(u'&', QStringLiteral("&&"));
}

void TWindowMenus::UpdateUndo() {
  TProjectEdits* edits = FProjects.EditsAt(FTabs.currentIndex());
  FUndo->setEnabled(edits && edits->History().CanUndo());
  FRedo->setEnabled(edits && edits->History().CanRedo());
  FUndo->setText(FUndo->isEnabled() ? tr("&Undo: %1").arg(StepText(edits->History().UndoName()))
                                    : tr("&Undo"));
  FRedo->setText(FRedo->isEnabled() ? tr("&Redo: %1").arg(StepText(edits->History().RedoName()))
                                    : tr("&Redo"));
}

} // namespace workbench
