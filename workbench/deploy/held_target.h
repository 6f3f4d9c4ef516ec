// Why a run leaves the target alone.
#pragma once

#include "workbench/deploy/deploy_report.h"

#include <string>
#include <vector>

namespace workbench {

/// Thrown and caught within a run.
struct THeldTarget {
  TDeployEnd End;
  std::vector<std::string> Reasons;
};

} // namespace workbench
