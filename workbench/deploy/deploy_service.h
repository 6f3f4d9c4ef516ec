// Deploys projects. The button of the view and the command line come here with the same request.
#pragma once

#include "package/host/api/entry_paths.h"
#include "workbench/deploy/deploy_observer.h"
#include "workbench/deploy/deploy_request.h"
#include "workbench/deploy/destination.h"

namespace workbench {

class TDeployService {
public:
  /// Everything must outlive the object.
  TDeployService(const TDestinations& destinations, const deployment::TEntryPathServices& services)
      : FDestinations(destinations), FServices(services) {}

  /// Plans the deploy and, unless it is a dry run, carries the plan out. What hinders or fails
  /// stands in the report. Throws TInputError for damaged profiles. Called on the main thread.
  TDeployReport Deploy(const TDeployRequest& request, IDeployObserver& observer) const;

private:
  void Run(const TDeployRequest& request, const TDestination& destination,
           IDeployObserver& observer, TDeployReport& report) const;

  const TDestinations& FDestinations;
  deployment::TEntryPathServices FServices;
};

} // namespace workbench
