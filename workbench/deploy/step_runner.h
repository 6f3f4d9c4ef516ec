// Does one step that follows a file that is on the target.
#pragma once

#include "workbench/deploy/deploy_plan.h"
#include "workbench/process/process_run.h"

#include <atomic>
#include <string>

namespace workbench {

/// Runs or unpacks the file, or runs a command of its entry; `hear` gets the lines that are
/// printed. The reason when it failed, which begins with what was to be done; else empty. Throws
/// TConnectionError.
std::string RunAfterStep(const TPlannedFile& file, const TAfterStep& step, const TPlaceRules& rules,
                         IRemoteConnection& connection, const THearLine& hear,
                         const std::atomic<int>& cancelled);

} // namespace workbench
