// Does one step that follows a file that is on the target.
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"
#include "workbench/process/process_run.h"

#include <atomic>
#include <string>

namespace workbench {

class TSharedWork;

/// Runs or unpacks the file, or runs a command of its entry; `hear` gets the lines that are
/// printed. The reason when it failed, which begins with what was to be done; else empty. Throws
/// TConnectionError.
std::string RunAfterStep(const TPlannedFile& file, const TAfterStep& step, const TPlaceRules& rules,
                         IRemoteConnection& connection, const THearLine& hear,
                         const std::atomic<int>& cancelled);

/// Runs the commands that a file has on this machine, in the directory of the project, up to the
/// first that fails; why it did, else an empty text. Of runs that share work the first one that
/// wants the file does it, and the others wait for its end.
std::string RunLocalSteps(const TDeployFile& file, const std::filesystem::path& directory,
                          TSharedWork* shared, const THearLine& hear,
                          const std::atomic<int>& cancelled);

} // namespace workbench
