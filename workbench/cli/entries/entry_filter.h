// Narrows entries by the configuration and platform options.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "workbench/cli/context/command.h"

namespace workbench {

/// True when the entry belongs to the configuration and has a record for the platform that the
/// options name; an option that is not given, and the platform "all", fit every entry. An entry
/// without configuration counts as one of "Base".
bool FitsOptions(const deployment::IProjectDeploymentFile& file, const TCommonOptions& options);

/// Checks the options as CheckTargetOptions does; names that entries have are good too, though the
/// project may know them no more: such entries can be seen and taken away.
void CheckFilterOptions(TCommandContext& context, TOpenProject& project);

} // namespace workbench
