// The output of a project, its debug symbols, and what each platform wants beside them.
#pragma once

#include "package/reconcile/reconcile_context.h"

namespace deployment {

/// Drives the steps of the platforms as well, each when the target is one of its kind.
TReconcileResult ReconcileProjectOutput(TReconcileContext& context);

} // namespace deployment
