#include "workbench/desktop/interaction/window_deploys.h"

#include "package/host/api/file_columns.h"
#include "package/host/api/view_buttons.h"
#include "workbench/desktop/controls/form_controls.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/deploy/deploy_page.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/projects/editor_tabs.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/session/session.h"
#include "workbench/settings/number_setting.h"
#include "workbench/settings/settings_store.h"

#include <QAction>
#include <QItemSelectionModel>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

namespace workbench {
namespace {

TUndoLimits UndoLimitsOf(const TSettings& settings) {
  const TUndoLimits usual;
  return {NumberSetting(settings, "undo-runs", usual.Runs),
          NumberSetting(settings, "undo-bytes", usual.Bytes)};
}

// The list has directory and name of an entry in columns of their own.
QModelIndex FindEntry(const QAbstractItemModel& model, const QString& localName) {
  const QModelIndexList found =
      model.match(model.index(0, deployment::file_column::LocalName), Qt::DisplayRole,
                  localName.mid(localName.lastIndexOf(QLatin1Char('\\')) + 1), -1,
                  Qt::MatchExactly | Qt::MatchCaseSensitive);
  for (const QModelIndex& index : found) {
    QString path = index.siblingAtColumn(deployment::file_column::LocalPath).data().toString();
    if (!path.isEmpty() && !path.endsWith(QLatin1Char('\\')))
      path += QLatin1Char('\\');
    if (path + index.data().toString() == localName)
      return index;
  }
  return found.isEmpty() ? QModelIndex() : found.front();
}

} // namespace

TWindowDeploys::TWindowDeploys(TProjectTabs& projects, TEditorTabs& tabs, TDeployPanel& panel,
                               TSession& session, TConsents consents)
    : FProjects(projects), FTabs(tabs), FPanel(panel),
      FFlow(panel, {.MayRun = std::move(consents.MayRun),
                    .MaySend = std::move(consents.MaySend),
                    .UndoLimits = [&session] { return UndoLimitsOf(session.Settings()); },
                    .GoesUnasked = [] { return false; }}) {
  // The list rebuilds its rows behind a deploy, so it is its button that is pressed.
  connect(&panel.Page(), &TDeployPage::DeployWanted, this,
          [this] { Guarded([this] { Deploy(); }); });
  connect(
      &panel.Page(), &TDeployPage::PlanWanted, this, [this] { Guarded([this] { Plan(); }); },
      Qt::QueuedConnection);
  connect(&panel.Page(), &TDeployPage::EntryWanted, this, &TWindowDeploys::GoToEntry);
  connect(&projects, &TProjectTabs::Changed, this, &TWindowDeploys::ProjectsChanged);
}

void TWindowDeploys::Plan() {
  FFlow.SetPlansOnly(true);
  PressDeploy();
  FFlow.SetPlansOnly(false);
}

TFormControls* TWindowDeploys::CurrentControls() const {
  return FTabs.ControlsAt(FTabs.currentIndex());
}

bool TWindowDeploys::IsOpen() const {
  const std::vector<std::filesystem::path> open = FProjects.Files();
  return std::find(open.begin(), open.end(), CanonicalPath(FPanel.Page().Key().Project)) !=
         open.end();
}

// What is shown may belong to a project behind the one in front.
bool TWindowDeploys::BringForward() {
  return IsOpen() && FProjects.Open(FPanel.Page().Key().Project);
}

void TWindowDeploys::Deploy() {
  if (BringForward())
    PressDeploy();
}

void TWindowDeploys::ProjectsChanged() {
  if (FPanel.isVisible() && !FPanel.IsRunning() && !IsOpen())
    FPanel.close();
}

void TWindowDeploys::PressDeploy() {
  TFormControls* controls = CurrentControls();
  QAction* deploy = controls && controls->ToolBar()
                        ? controls->ToolBar()->Find(deployment::view_button::Deploy)
                        : nullptr;
  if (deploy)
    deploy->trigger();
}

bool TWindowDeploys::FocusPlan() {
  if (!FPanel.IsAsking())
    return false;
  QTimer::singleShot(0, &FPanel.Page(), &TDeployPage::FocusRows);
  return true;
}

void TWindowDeploys::GoToEntry(const QString& localName) {
  if (!BringForward())
    return;
  TFormControls* controls = CurrentControls();
  if (!controls || !controls->Tree())
    return;
  TTreeView& view = controls->Tree()->View();
  const QModelIndex found = FindEntry(*view.model(), localName);
  if (!found.isValid())
    return;
  view.setCurrentIndex(found);
  view.scrollTo(found, QAbstractItemView::PositionAtCenter);
  view.setFocus();
}

} // namespace workbench
