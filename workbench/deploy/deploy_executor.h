// Does what a plan says.
#pragma once

#include "workbench/deploy/deploy_run.h"

#include <filesystem>

namespace workbench {

/// Carries the plan out and fills the rows of the run's report, which stand in the plan's order.
/// `connection` is the first connection, `connect` opens more. Local commands run in `directory`.
void ExecuteDeployPlan(const TDeployPlan& plan, IRemoteConnection& connection,
                       const TConnect& connect, const std::filesystem::path& directory,
                       TDeployRun& run);

/// The rows of a plan before anything is done: the actions that are to be taken.
std::vector<TDeployRow> RowsOf(const TDeployPlan& plan);

} // namespace workbench
