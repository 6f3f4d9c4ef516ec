// The runtime packages that a project depends on, their debug symbols and translated resources.
#pragma once

#include "package/reconcile/reconcile_context.h"

namespace deployment {

/// CannotReconcile when the personality has no package service.
TReconcileResult ReconcilePackages(TReconcileContext& context);

} // namespace deployment
