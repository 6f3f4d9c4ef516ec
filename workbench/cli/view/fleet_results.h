// What the machines of a fleet came to, as documents and exit statuses.
#pragma once

#include "workbench/cli/context/output.h"
#include "workbench/deploy/fleet/fleet_play.h"

#include <cstddef>
#include <string>
#include <vector>

namespace workbench {

/// One machine as it is told.
struct TMachineResult {
  std::string Name;
  int Exit = 0;
  TJson Document;      ///< the one of a deploy, or the error document
  std::string Summary; ///< for people; empty where there is no more than the problems
  std::vector<std::string> Problems = {}; ///< what failed or was refused, one by one
};

/// How a run was meant.
struct TFleetTelling {
  bool IsDry = false;   ///< nothing was to be changed
  bool IsCheck = false; ///< and what would change is an exit status
  int Signal = 0;       ///< that interrupted the run
};

/// The result of a machine, whatever it answered.
TMachineResult ResultOf(const TFleetMachine& machine, const TFleetTelling& how);

/// Says it in lines that begin with the machine's name, filled up to `width` letters; what failed
/// on standard error.
void TellMachine(TOutput& output, const TMachineResult& result, std::size_t width);

/// The document of targets, one behind the other.
TJson TargetsJson(const std::vector<TMachineResult>& results);

} // namespace workbench
