// Is everything still what it was when a plan was made?
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <atomic>
#include <string>
#include <vector>

namespace workbench {

/// A sentence for each local file of the plan that is not what it was. Throws TConnectionError when
/// the run is cancelled meanwhile; null is never cancelled.
std::vector<std::string> CheckLocalFiles(const TDeployPlan& plan,
                                         const std::atomic<int>* cancelled);

/// A sentence for each file of the plan that is not what it was on the target, or lies where it
/// must not. Fills in where the record has the files. Throws TConnectionError.
std::vector<std::string> CheckTargetFiles(IRemoteConnection& connection,
                                          const TTargetRecord& record, const TPlaceRules& rules,
                                          TDeployPlan& plan);

} // namespace workbench
