// What is to be done on the target when a file is there: it is run or unpacked, and then the
// commands of its entry run.
#pragma once

#include "workbench/deploy/plan/deploy_files.h"
#include "workbench/process/shell.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

struct TAfterStep {
  enum class TKind { Run, Unpack, Command };
  TKind Kind = TKind::Command;
  std::string Command = {}; ///< as the entry says it, for a command

  bool operator==(const TAfterStep&) const = default;

  /// As a record keeps it: "run", "unpack" or "command:" and its text.
  std::string Key() const;
  /// Nothing for a text that Key does not say.
  static std::optional<TAfterStep> FromKey(std::string_view key);
  /// For people, such as "unpack a.tar"; `name` is that of the file on the target.
  std::string Text(std::string_view name) const;
  /// The command line for a shell; nothing when that has no way to say it. An archive is unpacked
  /// by no shell.
  std::optional<std::string> CommandLine(TShell shell, std::string_view name) const;
};

/// All steps of an entry, in their order.
std::vector<TAfterStep> AfterStepsOf(const TDeployFile& file);

/// Those of them that are still owed. A step that was owed and is none of the entry any more was
/// mended since: all of them are to be done then.
std::vector<TAfterStep> OwedSteps(const std::vector<TAfterStep>& steps,
                                  const std::vector<std::string>& owedKeys);

/// The keys of the steps, in their order.
std::vector<std::string> KeysOf(std::span<const TAfterStep> steps);

/// For people, what a key of a record stands for.
std::string OwedText(const std::string& key, std::string_view name);

} // namespace workbench
