#include "workbench/desktop/interaction/window_interaction.h"

#include "workbench/desktop/controls/background_work.h"
#include "workbench/desktop/deploy/deploy_flow.h"
#include "workbench/desktop/interaction/connection_questions.h"

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

void TWindowInteraction::Pause() {
  FParts.Background.Pause();
}

TDeployReport TWindowInteraction::Deploy(const TDeployService& service,
                                         const TDeployRequest& request) {
  TDeployReport report = FParts.Deploys.Deploy(service, request);
  if (FParts.Deployed)
    FParts.Deployed(report);
  return report;
}

void TWindowInteraction::ConnectionLost(const std::string& profile, const std::string& reason) {
  FParts.ConnectionLost(profile, reason);
}

} // namespace workbench
