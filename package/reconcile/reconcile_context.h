// What the steps of one reconcile work with.
#pragma once

#include "package/reconcile/reconcile_plan.h"
#include "package/reconcile/reconcile_target.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// Lives while one plan is made.
struct TReconcileContext {
  const TReconcileTarget& Target;
  IProjectDeployment& Deployment;
  TReconcilePlan& Plan;
  /// True when the package list counts as empty.
  bool ReconcileInternally = false;

  // What steps leave for those behind them.

  /// Local name of the project's output.
  std::string Output = {};
  TWantId OutputWant = 0;
  /// Absent while the output has no debug symbols.
  std::optional<TWantId> SymbolsWant = std::nullopt;
  /// The packages that the project depends on; symbols and resources go with them. Absent when
  /// nobody could tell, or there is none.
  std::optional<std::vector<TWantId>> Packages = std::nullopt;
  /// Extensions of the listed project files in lower case, each once, in order.
  std::vector<std::string> Extensions = {};

  /// `name` in the directory of the output.
  std::string BesideOutput(std::string_view name) const;
};

} // namespace deployment
