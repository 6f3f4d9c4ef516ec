// Entries of a deployment as the JSON documents show them.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "workbench/cli/context/output.h"

namespace workbench {

/// Values as they are stored in the records, in the order of storage.
TJson FileAsJson(deployment::IProjectDeploymentFile& file);
TJson ClassesAsJson(const deployment::TDeploymentClasses& classes);

} // namespace workbench
