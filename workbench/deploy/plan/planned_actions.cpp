// What plans say of their actions, commands and links.
#include "workbench/deploy/plan/deploy_plan.h"
#include "workbench/deploy/plan/link_texts.h"

#include <algorithm>
#include <array>

namespace workbench {

std::string_view DeployActionName(TDeployAction action) {
  constexpr std::array<std::string_view, DeployActionCount> Names{
      "copied", "unchanged", "mode", "kept", "skipped", "removed", "refused", "failed"};
  return Names[static_cast<std::size_t>(action)];
}

std::optional<TDeployAction> DeployActionFromName(std::string_view name) {
  for (std::size_t i = 0; i < DeployActionCount; ++i) {
    if (DeployActionName(static_cast<TDeployAction>(i)) == name)
      return static_cast<TDeployAction>(i);
  }
  return std::nullopt;
}

bool ChangesFiles(const TDeployPlan& plan) {
  return std::ranges::any_of(plan.Files, [](const TPlannedFile& file) {
    return file.Action == TDeployAction::Copied || file.Action == TDeployAction::Removed ||
           file.Action == TDeployAction::Mode;
  });
}

std::vector<std::string> CommandsOf(const std::vector<TDeployFile>& files,
                                    const TPlaceRules& places, const std::string& afterDeploy) {
  std::vector<std::string> commands;
  for (const TDeployFile& file : files) {
    for (const std::string& command : file.LocalCommands)
      commands.push_back("on this machine: " + command);
    for (const TAfterStep& step : AfterStepsOf(file)) {
      const TRemoteName place = FindTargetPlace(file.RemoteName, places).Name;
      const bool hasNameAlone = step.Kind == TAfterStep::TKind::Command || place.Directory.empty();
      commands.push_back("on the target: " + step.Text(hasNameAlone ? place.Name : place.Path()));
    }
  }
  if (!afterDeploy.empty())
    commands.push_back("on the target: " + afterDeploy);
  return commands;
}

std::vector<std::string> LinkTextsOf(const TDeployPlan& plan) {
  std::vector<TLinkCandidate> candidates;
  candidates.reserve(plan.Files.size());
  for (const TPlannedFile& file : plan.Files) {
    const bool isCopied = file.File.Operation == deployment::TDeployOperation::Copy ||
                          file.File.Operation == deployment::TDeployOperation::CopyExecutable;
    candidates.push_back(
        {file.File.LocalFile, file.Target,
         isCopied && !file.RecordPath.empty() && file.State != TFileState::MissingHere});
  }
  return LinkTexts(candidates);
}

} // namespace workbench
