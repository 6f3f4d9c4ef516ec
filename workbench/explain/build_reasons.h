// Why an entry is in the list of a project that was made from a build.
#pragma once

#include "workbench/session/session.h"

#include <string>
#include <vector>

namespace workbench {

/// Why the entry is in the list, a sentence for each install rule of the project's build that asks
/// for it; empty when it did not come from a build.
std::vector<std::string> BuildReasons(TOpenProject& project,
                                      const deployment::IProjectDeploymentFile& entry);

} // namespace workbench
