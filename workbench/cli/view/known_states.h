// What a target was like when it was looked at last, kept on this machine.
#pragma once

#include "workbench/deploy/deploy_report.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace workbench {

/// Which target of which project.
struct TKnownTarget {
  std::filesystem::path Project;
  std::string Platform;
  std::string Configuration;
  std::string Place; ///< of the destination
};

struct TKnownStates {
  std::string AsOf = {};     ///< UTC, as in a record; empty: it was never looked at
  TDeployReport Report = {}; ///< rows with names and states, left-overs, what is owed, the last run
};

/// None when it was never looked at, or what was kept cannot be read.
TKnownStates ReadKnownStates(const TKnownTarget& target);

/// Keeps what a plan or a deploy found, or left. What cannot be kept is not.
void KeepKnownStates(const TKnownTarget& target, const TDeployReport& report);

} // namespace workbench
