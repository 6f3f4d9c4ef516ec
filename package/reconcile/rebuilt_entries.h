// Entries that every reconcile makes anew, so that they follow what they belong to.
#pragma once

#include "package/reconcile/reconcile_context.h"

#include <vector>

namespace deployment {

/// Brings the present entries of one class to what removing them all and adding the wanted ones
/// would leave. One that would come out the same stays where it is, and nobody is told of it.
void RebuildEntries(TReconcileContext& context, const TDeploymentFiles& present,
                    const std::vector<TDefaultEntry>& wanted);

} // namespace deployment
