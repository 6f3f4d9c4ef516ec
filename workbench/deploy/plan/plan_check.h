// Is everything still what it was when a plan was made?
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <string>
#include <vector>

namespace workbench {

/// A sentence for each local file of the plan that is not what it was.
std::vector<std::string> CheckLocalFiles(const TDeployPlan& plan);

/// A sentence for each file of the plan that is not what it was on the target, or lies where it
/// must not. Fills in where the record has the files. Throws TConnectionError.
std::vector<std::string> CheckTargetFiles(IRemoteConnection& connection,
                                          const TTargetRecord& record, const TPlaceRules& rules,
                                          TDeployPlan& plan);

} // namespace workbench
