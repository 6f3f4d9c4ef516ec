#include "workbench/desktop/interaction/window_interaction.h"

#include "workbench/desktop/controls/background_work.h"
#include "workbench/desktop/dialogs/deploy/deploy_panel.h"
#include "workbench/desktop/interaction/connection_questions.h"

#include <atomic>

namespace workbench {

TPrompts TWindowInteraction::Prompts() const {
  const auto questions = FParts.Questions;
  return {
      .AcceptsHostKey = [questions](const THostKey& key) { return questions->AcceptsHostKey(key); },
      .TellsSecret =
          [questions](const std::string& prompt, const TIsCancelled& isOver) {
            return questions->TellSecret(prompt, isOver);
          }};
}

bool TWindowInteraction::CreateProfile(deployment::ICustomProject& project,
                                       std::string_view platform) {
  return FParts.CreateProfile(project, platform);
}

void TWindowInteraction::RunInBackground(const std::function<void()>& work) {
  FParts.Background.Run(work);
}

TDeployReport TWindowInteraction::Deploy(const TDeployService& service,
                                         const TDeployRequest& request) {
  std::atomic<int> cancelled = 0;
  TDeployRequest completed = request;
  completed.MayRun = FParts.MayRun;
  completed.MaySend = FParts.MaySend;
  completed.Options.Undo = FParts.UndoLimits();
  completed.Cancelled = &cancelled;
  // The panel is told of the end also when the deploy could not even begin.
  struct TShown {
    ~TShown() { Panel.End(Report, /*dryRun=*/false); }
    TDeployPanel& Panel;
    TDeployReport Report = {};
  };
  TShown shown{FParts.Panel};
  FParts.Panel.Begin(cancelled);
  shown.Report = service.Deploy(completed, FParts.Panel);
  if (FParts.Deployed)
    FParts.Deployed(shown.Report);
  return shown.Report;
}

void TWindowInteraction::ConnectionLost(const std::string& profile, const std::string& reason) {
  FParts.ConnectionLost(profile, reason);
}

} // namespace workbench
