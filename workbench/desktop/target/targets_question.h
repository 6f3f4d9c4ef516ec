// Asking several targets at once what a deploy would find there.
#pragma once

#include "workbench/desktop/target/targets_model.h"

#include <atomic>
#include <vector>

namespace workbench {

class TDeployService;
struct TDeploySubject;
struct TProfile;

/// Plans for each of the profiles, some at a time, and carries nothing out. The answers come in the
/// order of the profiles; those that were not asked, since `cancelled` became something else than
/// 0, say so.
std::vector<TTargetAnswer> AskTargets(const TDeployService& deploys, const TDeploySubject& subject,
                                      const std::vector<TProfile>& profiles,
                                      const std::atomic<int>& cancelled);

} // namespace workbench
