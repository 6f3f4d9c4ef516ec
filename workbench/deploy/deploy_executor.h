// Does what a plan says.
#pragma once

#include "workbench/deploy/deploy_observer.h"

#include <atomic>
#include <filesystem>

namespace workbench {

class TRecordKeeper;
class TSharedWork;

/// What a plan is carried out with.
struct TDeployExecution {
  IRemoteConnection& Connection;   ///< the first one
  TConnect Connect;                ///< opens more
  std::filesystem::path Directory; ///< where local commands run
  unsigned Jobs = 0;               ///< connections; 0: as many as suit the machine
  IDeployObserver& Observer;
  const std::atomic<int>& Cancelled;
  TRecordKeeper* Keeper = nullptr; ///< hears what is to be remembered; null: nothing is
  deployment::TDeploymentTarget Target = {};
  TPlaceRules Places = {};       ///< what the target takes
  TSharedWork* Shared = nullptr; ///< runs what is to run once for several targets; null: for one
};

/// Carries the plan out and fills the rows of the report, which stand in the plan's order.
void ExecuteDeployPlan(const TDeployPlan& plan, const TDeployExecution& execution,
                       TDeployReport& report);

/// The rows of a plan before anything is done: the actions that are to be taken.
std::vector<TDeployRow> RowsOf(const TDeployPlan& plan);

} // namespace workbench
