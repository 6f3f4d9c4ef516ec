// Brings the list of one target in line with a plan.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/reconcile/reconcile_plan.h"

namespace deployment {

/// Entries that leave, then those that change, then those that are new. Asks nothing of the host;
/// listeners hear of each entry once it is whole.
void ApplyPlan(IProjectDeployment& deployment, const TReconcilePlan& plan);

} // namespace deployment
