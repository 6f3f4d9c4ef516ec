#include "workbench/desktop/interaction/window_deploys.h"

#include "package/host/api/view_buttons.h"
#include "workbench/desktop/controls/background_work.h"
#include "workbench/desktop/controls/form_controls.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/deploy/deploy_page.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/deploy/difference_dialog.h"
#include "workbench/desktop/interaction/entry_row.h"
#include "workbench/desktop/projects/editor_tabs.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"
#include "workbench/settings/flag_setting.h"
#include "workbench/settings/number_setting.h"
#include "workbench/settings/settings_store.h"

#include <QAction>
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

} // namespace

TWindowDeploys::TWindowDeploys(const TFrontList& front, QWidget& window, TDeployPanel& panel,
                               TBackgroundWork& background, TSession& session, TAnswers answers)
    : FFront(front), FWindow(window), FPanel(panel), FBackground(background), FSession(session),
      FAnswers(std::move(answers)),
      FFlow(panel, {.MayRun = FAnswers.MayRun,
                    .MaySend = FAnswers.MaySend,
                    .UndoLimits = [&session] { return UndoLimitsOf(session.Settings()); },
                    .GoesUnasked =
                        [&session] {
                          return FlagSetting(session.Settings(), DeployUnaskedSetting, false);
                        }}) {
  // The list rebuilds its rows behind a deploy, so it is its button that is pressed.
  connect(&panel.Page(), &TDeployPage::DeployWanted, this,
          [this] { Guarded([this] { Deploy(); }); });
  connect(
      &panel.Page(), &TDeployPage::PlanWanted, this, [this] { Guarded([this] { Plan(); }); },
      Qt::QueuedConnection);
  connect(&panel.Page(), &TDeployPage::EntryWanted, this, &TWindowDeploys::GoToEntry);
  connect(&panel.Page(), &TDeployPage::DifferenceWanted, this,
          [this](const TDeployRow& row) { Guarded([&] { ShowDifferenceOf(row); }); });
  connect(&panel.Page(), &TDeployPage::NewProfileWanted, this,
          [this] { Guarded([this] { MakeProfile(); }); });
  connect(&panel.Page(), &TDeployPage::ProfilesWanted, this, FAnswers.ShowProfiles);
  connect(&front.Projects, &TProjectTabs::Changed, this, &TWindowDeploys::ProjectsChanged);
}

void TWindowDeploys::Plan() {
  FFlow.SetPlansOnly(true);
  PressDeploy();
  FFlow.SetPlansOnly(false);
}

bool TWindowDeploys::IsOpen() const {
  const std::vector<std::filesystem::path> open = FFront.Projects.Files();
  return std::find(open.begin(), open.end(), CanonicalPath(FPanel.Page().Key().Project)) !=
         open.end();
}

// What is shown may belong to a project behind the one in front.
bool TWindowDeploys::BringForward() {
  return IsOpen() && FFront.Projects.Open(FPanel.Page().Key().Project);
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
  TFormControls* controls = FFront.Controls();
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

// Theirs is fetched over the connection of the project's target, a little at most.
void TWindowDeploys::ShowDifferenceOf(const TDeployRow& row) {
  if (!BringForward() || !FFront.Project())
    return;
  TFileSides sides;
  try {
    const TDestinations& destinations = FSession.RemoteProfiles().Destinations();
    const TDestination destination =
        destinations.Find(FFront.Project()->Project(), FPanel.Page().Key().Target);
    FBackground.Run([&] { sides = ReadSides(*destinations.Connect(destination, nullptr), row); });
  } catch (const TConnectionError& error) {
    sides.Problem = error.what();
  }
  ShowDifference(row, sides, &FWindow);
}

void TWindowDeploys::MakeProfile() {
  if (!BringForward() || !FFront.Project())
    return;
  if (FAnswers.CreateProfile(FFront.Project()->Project(), FPanel.Page().Key().Target.Platform))
    PressDeploy();
}

void TWindowDeploys::GoToEntry(const QString& localName) {
  if (!BringForward())
    return;
  if (const TFormControls* controls = FFront.Controls())
    workbench::GoToEntry(*controls, localName);
}

} // namespace workbench
