// The files that an application bundle of OS X needs beside the program.
#pragma once

#include "package/reconcile/reconcile_context.h"

namespace deployment {

TReconcileResult ReconcileOSXDefaults(TReconcileContext& context);

} // namespace deployment
