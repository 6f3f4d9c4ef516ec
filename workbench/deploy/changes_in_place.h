// What a deploy changes of files that are on the target already and are not sent.
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace workbench {

/// Removes the files of the plan that are to be removed, and gives rights and times to those that
/// are to have others; a target far away is asked once for all of them. Returns, for each index,
/// why that failed; empty when it did not, or when there was nothing to change. Throws
/// TConnectionError.
std::vector<std::string> ChangeInPlace(IRemoteConnection& connection, const TDeployPlan& plan,
                                       std::span<const std::size_t> indexes);

} // namespace workbench
