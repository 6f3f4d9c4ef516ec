// What the window does for the services: questions, long work, profiles, edits that were left
// behind.
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/dialogs/deploy/consent_dialog.h"
#include "workbench/desktop/dialogs/deploy/deploy_panel.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"
#include "workbench/desktop/dialogs/profiles/profile_manager_dialog.h"
#include "workbench/desktop/projects/recovery_question.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/desktop/interaction/connection_questions.h"
#include "workbench/desktop/window/main_window.h"
#include "workbench/desktop/interaction/window_interaction.h"
#include "workbench/desktop/window/window_status.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"
#include "workbench/settings/command_consent.h"
#include "workbench/settings/number_setting.h"
#include "workbench/settings/source_consent.h"
#include "workbench/text/visible_text.h"

namespace workbench {

void TMainWindow::ServeSession() {
  FSession.SetEditorArea(FTabs);
  FSession.SetModalForms(FModalForms.get());
  FQuestions = std::make_shared<TConnectionQuestions>(*this);
  FSession.RemoteProfiles().SetInteraction(std::make_shared<TWindowInteraction>(
      TWindowParts{.Panel = *FPanel,
                   .Background = FBackground,
                   .Questions = FQuestions,
                   .MayRun = [this](const auto& commands,
                                    const std::string& place) { return MayRun(commands, place); },
                   .MaySend = [this](const auto& files) { return MaySend(files); },
                   .UndoLimits =
                       [this] {
                         const TUndoLimits usual;
                         const TSettings& settings = FSession.Settings();
                         return TUndoLimits{NumberSetting(settings, "undo-runs", usual.Runs),
                                            NumberSetting(settings, "undo-bytes", usual.Bytes)};
                       },
                   .CreateProfile =
                       [this](auto& project, std::string_view platform) {
                         return CreateProfile(project, platform);
                       },
                   .ConnectionLost =
                       [this](const std::string& profile, const std::string& reason) {
                         ShowLostConnection(profile, reason);
                       }}));
}

// A command is asked for as long as the user has not said yes to exactly this one.
bool TMainWindow::MayRun(const std::vector<std::string>& commands, const std::string& place) {
  const TOpenProject* project = CurrentProject();
  if (!project)
    return false;
  TSettings& settings = FSession.Settings();
  if (IsAllowed(settings, project->GivenFileName(), place, commands))
    return true;
  if (!AskConsent(commands, place, this))
    return false;
  Guarded([&] { Allow(settings, project->GivenFileName(), place, commands); });
  return true;
}

bool TMainWindow::MaySend(const std::vector<std::string>& files) {
  const TOpenProject* project = CurrentProject();
  if (!project)
    return false;
  TSettings& settings = FSession.Settings();
  const std::vector<std::string> asked =
      SourcesWithoutConsent(settings, project->GivenFileName(), files);
  if (asked.empty())
    return true;
  if (!AskSourceConsent(asked, this))
    return false;
  Guarded([&] { AllowSources(settings, project->GivenFileName(), asked); });
  return true;
}

void TMainWindow::ShowLostConnection(const std::string& profile, const std::string& reason) {
  FStatus->Say(tr("No connection to the files of %1: %2")
                   .arg(ToQString(Visible(profile)), ToQString(Visible(reason))));
}

bool TMainWindow::CreateProfile(const deployment::ICustomProject& project,
                                std::string_view platform) {
  TOpenProject* open = FProjects->Find(project);
  const bool made = open && CreateAndAssignProfile(FSession, *open, platform, this);
  if (TProjectEdits* edits = FProjects->EditsAt(FTabs->currentIndex()))
    edits->FileWritten();
  return made;
}

void TMainWindow::OfferRecovery() {
  const TRecoverySearch search = FindRecoverable();
  for (const std::string& problem : search.Problems)
    ShowError(tr("Unsaved Edits"), ToQString(problem), this);
  for (const TRecoverable& recoverable : search.Found) {
    switch (AskRecovery(recoverable, this)) {
    case TRecoveryAnswer::Recover:
      FProjects->Recover(recoverable);
      break;
    case TRecoveryAnswer::Discard:
      Guarded([&] { Discard(recoverable); });
      break;
    case TRecoveryAnswer::Later:
      break;
    }
  }
}

} // namespace workbench
