// What a project misses on this machine before a deploy can work.
#pragma once

#include "package/host/api/deployment_target.h"

#include <string>

namespace workbench {

class TOpenProject;
class TSession;

/// Empty where nothing is missing.
struct TMissingParts {
  std::string Profile; ///< that the project names for the platform, and that is not kept here
  std::string Output;  ///< local name of what a build makes and did not make yet
};

/// Looks for one target; all platforms at once miss nothing.
TMissingParts FindMissingParts(TSession& session, TOpenProject& project,
                               const deployment::TDeploymentTarget& target);

} // namespace workbench
