// The files that an application bundle of iOS needs beside the program.
#pragma once

#include "package/reconcile/reconcile_context.h"

namespace deployment {

TReconcileResult ReconcileiOSDefaults(TReconcileContext& context);

} // namespace deployment
