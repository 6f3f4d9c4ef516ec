// The files that an Android application package needs beside the program.
#pragma once

#include "package/reconcile/reconcile_context.h"

namespace deployment {

TReconcileResult ReconcileAndroidDefaults(TReconcileContext& context);

} // namespace deployment
