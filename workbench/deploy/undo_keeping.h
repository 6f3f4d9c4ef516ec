// What a deploy keeps on the target before it changes anything, so that it can be taken back.
#pragma once

#include "workbench/deploy/deploy_request.h"
#include "workbench/deploy/plan/deploy_plan.h"
#include "workbench/deploy/record/undo_store.h"

#include <string>

namespace workbench {

/// Keeps what the plan is about to replace or remove, and drops what was kept of the oldest runs.
/// Returns why the deploy cannot be taken back; empty when it can, or changes nothing. Throws
/// TConnectionError.
std::string KeepForUndo(IRemoteConnection& connection, TUndoStore& store, const TDeployPlan& plan,
                        const TTargetRecord& record, const TRecordedRun& run,
                        const TUndoLimits& limits);

} // namespace workbench
