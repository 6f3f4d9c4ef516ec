#include "workbench/deploy/plan/after_steps.h"

#include <algorithm>

namespace workbench {
namespace {

using deployment::TDeployOperation;
using TKind = TAfterStep::TKind;

constexpr std::string_view RunKey = "run";
constexpr std::string_view UnpackKey = "unpack";
constexpr std::string_view CommandStart = "command:";

} // namespace

std::string TAfterStep::Key() const {
  switch (Kind) {
  case TKind::Run:
    return std::string(RunKey);
  case TKind::Unpack:
    return std::string(UnpackKey);
  case TKind::Command:
    break;
  }
  return std::string(CommandStart) + Command;
}

std::optional<TAfterStep> TAfterStep::FromKey(std::string_view key) {
  if (key == RunKey)
    return TAfterStep{.Kind = TKind::Run};
  if (key == UnpackKey)
    return TAfterStep{.Kind = TKind::Unpack};
  if (!key.starts_with(CommandStart))
    return std::nullopt;
  return TAfterStep{.Kind = TKind::Command,
                    .Command = std::string(key.substr(CommandStart.size()))};
}

std::string TAfterStep::Text(std::string_view name) const {
  return OwedText(Key(), name);
}

std::optional<std::string> TAfterStep::CommandLine(TShell shell, std::string_view name) const {
  switch (Kind) {
  case TKind::Run:
    return RunFileCommand(shell, name);
  case TKind::Unpack:
    return std::nullopt;
  case TKind::Command:
    break;
  }
  return Command;
}

std::vector<TAfterStep> AfterStepsOf(const TDeployFile& file) {
  std::vector<TAfterStep> steps;
  if (file.Operation == TDeployOperation::Unpack)
    steps.push_back({.Kind = TKind::Unpack});
  else if (file.Operation == TDeployOperation::Run ||
           file.Operation == TDeployOperation::RunAndRemove)
    steps.push_back({.Kind = TKind::Run});
  for (const std::string& command : file.RemoteCommands)
    steps.push_back({.Kind = TKind::Command, .Command = command});
  return steps;
}

std::vector<TAfterStep> OwedSteps(const std::vector<TAfterStep>& steps,
                                  const std::vector<std::string>& owedKeys) {
  const auto isOwed = [&](const TAfterStep& step) {
    return std::ranges::find(owedKeys, step.Key()) != owedKeys.end();
  };
  const auto isKnown = [&](const std::string& key) {
    return std::ranges::any_of(steps, [&](const TAfterStep& step) { return step.Key() == key; });
  };
  if (owedKeys.empty())
    return {};
  if (!std::ranges::all_of(owedKeys, isKnown))
    return steps;
  std::vector<TAfterStep> owed;
  std::ranges::copy_if(steps, std::back_inserter(owed), isOwed);
  return owed;
}

std::vector<std::string> KeysOf(std::span<const TAfterStep> steps) {
  std::vector<std::string> keys;
  keys.reserve(steps.size());
  for (const TAfterStep& step : steps)
    keys.push_back(step.Key());
  return keys;
}

std::string OwedText(const std::string& key, std::string_view name) {
  if (key.starts_with(CommandStart))
    return key.substr(CommandStart.size());
  return key + " " + std::string(name);
}

} // namespace workbench
