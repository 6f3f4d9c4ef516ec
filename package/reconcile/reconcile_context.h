// What the steps of one reconcile work with.
#pragma once

#include "package/reconcile/default_entries.h"
#include "package/reconcile/reconcile_target.h"

#include <string>

namespace deployment {

/// Lives as long as one reconcile.
struct TReconcileContext {
  const TReconcileTarget& Target;
  IProjectDeployment& Deployment;
  TDefaultEntries& Entries;
  /// True when the package list counts as empty.
  bool ReconcileInternally = false;
  /// Local name of the project's output; set by the project output step for those behind it.
  std::string Output = {};

  /// `name` in the directory of the output.
  std::string BesideOutput(std::string_view name) const;
};

} // namespace deployment
