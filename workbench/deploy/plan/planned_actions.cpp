// What plans say of their actions.
#include "workbench/deploy/plan/deploy_plan.h"

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

} // namespace workbench
