// Gives every project that the host opens its deployment.
#pragma once

#include "package/host/api/ideservices.h"
#include "package/model/deployment_storage.h"

#include <functional>
#include <utility>

namespace deployment {

/// A member of the host's module-handler chain. One per run of the host.
class TDeploymentGauntletHandler : public IModuleGauntletHandler {
public:
  /// The storage of the run; null before it was made. The chain has this member a moment earlier.
  using TFindStorage = std::function<IDeploymentStorage*()>;

  /// `host` must outlive the handler.
  TDeploymentGauntletHandler(VelmorIDEServices& host, TFindStorage findStorage)
      : FHost(host), FFindStorage(std::move(findStorage)) {}

  /// Attaches a deployment to a module that can carry one.
  void AttachHandler(IOTAModule& module) override;

private:
  VelmorIDEServices& FHost;
  TFindStorage FFindStorage;
};

} // namespace deployment
