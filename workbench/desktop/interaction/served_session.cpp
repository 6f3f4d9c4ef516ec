#include "workbench/desktop/interaction/served_session.h"

#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/deploy/consent_dialog.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"
#include "workbench/desktop/dialogs/profiles/profile_manager_dialog.h"
#include "workbench/desktop/interaction/connection_questions.h"
#include "workbench/desktop/interaction/window_deploys.h"
#include "workbench/desktop/interaction/window_history.h"
#include "workbench/desktop/interaction/window_interaction.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"
#include "workbench/settings/command_consent.h"
#include "workbench/settings/source_consent.h"
#include "workbench/text/visible_text.h"

#include <QCoreApplication>
#include <utility>

namespace workbench {
namespace {

QString LostConnectionText(const std::string& profile, const std::string& reason) {
  return QCoreApplication::translate("workbench::TMainWindow",
                                     "No connection to the files of %1: %2")
      .arg(ToQString(Visible(profile)), EngineText(reason));
}

} // namespace

TServedSession::TServedSession(TSession& session, TServingParts parts)
    : FSession(session), FParts(std::move(parts)),
      FQuestions(std::make_shared<TConnectionQuestions>(FParts.Window)),
      FDeploys(std::make_unique<TWindowDeploys>(
          Front(), FParts.Window, FParts.Panel, FParts.Background, FSession,
          TWindowDeploys::TAnswers{
              .MayRun = [this](const auto& commands,
                               const std::string& place) { return MayRun(commands, place); },
              .MaySend = [this](const auto& files) { return MaySend(files); },
              .CreateProfile =
                  [this](const auto& project, std::string_view platform) {
                    return CreateProfile(project, platform);
                  },
              .ShowProfiles = [this] { ShowProfiles(); }})),
      FHistory(
          std::make_unique<TWindowHistory>(Front(), FParts.Panel, FParts.Background, FSession)) {
  FSession.SetEditorArea(&FParts.Tabs);
  FSession.SetModalForms(&FParts.Forms);
  FSession.RemoteProfiles().SetInteraction(std::make_shared<TWindowInteraction>(TWindowParts{
      .Deploys = FDeploys->Flow(),
      .Background = FParts.Background,
      .Questions = FQuestions,
      .CreateProfile =
          [this](const auto& project, std::string_view platform) {
            return CreateProfile(project, platform);
          },
      .ConnectionLost = [this](const std::string& profile,
                               const std::string& reason) { ShowLostConnection(profile, reason); },
      .Deployed = FParts.Deployed}));
}

TServedSession::~TServedSession() {
  FSession.CloseViews();
  FSession.SetEditorArea(nullptr);
  FSession.SetModalForms(nullptr);
  FQuestions->Close();
  FSession.RemoteProfiles().SetInteraction(nullptr);
}

void TServedSession::ShowLostConnection(const std::string& profile,
                                        const std::string& reason) const {
  if (FParts.ConnectionLost)
    FParts.ConnectionLost(profile, reason);
  FParts.Say(LostConnectionText(profile, reason));
}

void TServedSession::ShowProfiles() {
  TProfileManagerDialog(FSession, Front().Project(), &FParts.Window).exec();
  if (TProjectEdits* edits = FParts.Projects.EditsAt(FParts.Tabs.currentIndex()))
    edits->FileWritten(); // a profile may have been assigned
}

// A command is asked for as long as the user has not said yes to exactly this one.
bool TServedSession::MayRun(const std::vector<std::string>& commands, const std::string& place) {
  const TOpenProject* project = Front().Project();
  if (!project)
    return false;
  TSettings& settings = FSession.Settings();
  if (IsAllowed(settings, project->GivenFileName(), place, commands))
    return true;
  if (!AskConsent(commands, place, &FParts.Window))
    return false;
  Guarded([&] { Allow(settings, project->GivenFileName(), place, commands); });
  return true;
}

bool TServedSession::MaySend(const std::vector<std::string>& files) {
  const TOpenProject* project = Front().Project();
  if (!project)
    return false;
  TSettings& settings = FSession.Settings();
  const std::vector<std::string> asked =
      SourcesWithoutConsent(settings, project->GivenFileName(), files);
  if (asked.empty())
    return true;
  if (!AskSourceConsent(asked, &FParts.Window))
    return false;
  Guarded([&] { AllowSources(settings, project->GivenFileName(), asked); });
  return true;
}

bool TServedSession::CreateProfile(const deployment::ICustomProject& project,
                                   std::string_view platform) {
  TOpenProject* open = FParts.Projects.Find(project);
  const bool made = open && CreateAndAssignProfile(FSession, *open, platform, &FParts.Window);
  if (TProjectEdits* edits = FParts.Projects.EditsAt(FParts.Tabs.currentIndex()))
    edits->FileWritten();
  return made;
}

} // namespace workbench
