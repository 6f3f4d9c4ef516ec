// The files that belong to an application itself.
#pragma once

#include "package/reconcile/reconcile_context.h"

namespace deployment {

/// Lists the project's files, takes out the entries of files that left it, and offers the optional
/// files that go with a type of file. A catalog that cannot be understood is warned of.
TReconcileResult ReconcileProjectFiles(TReconcileContext& context);

} // namespace deployment
