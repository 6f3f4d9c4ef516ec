// The object through which deployments are stored during one run of the host.
#pragma once

#include "package/host/api/ideservices.h"
#include "package/model/deployment_gauntlet_handler.h"
#include "package/model/deployment_storage_manager.h"

#include <memory>

namespace deployment {

struct TDeploymentUnitObjects;

/// Keeps the storage registered with the host as long as it lives.
class TDeploymentCommands {
public:
  /// Makes the storage and registers it. `host` must outlive the object.
  explicit TDeploymentCommands(VelmorIDEServices& host);
  ~TDeploymentCommands();
  TDeploymentCommands(const TDeploymentCommands&) = delete;
  TDeploymentCommands& operator=(const TDeploymentCommands&) = delete;

  /// Connects deployments to the host, once its main form exists: adds a handler to the
  /// module-handler chain and then makes the commands object. `objects` must stay in its place.
  static void Startup(VelmorIDEServices& host, TDeploymentUnitObjects& objects);

  const std::shared_ptr<TDeploymentStorageManager>& DeploymentStorage() const { return FStorage; }

private:
  VelmorIDEServices& FHost;
  std::shared_ptr<TDeploymentStorageManager> FStorage;
  int FNotifierIndex; ///< of the storage, at the host's project file storage
};

/// What the deployment unit holds during one run of the host; null before its start.
struct TDeploymentUnitObjects {
  std::shared_ptr<TDeploymentGauntletHandler> GauntletHandler;
  std::unique_ptr<TDeploymentCommands> Commands;
};

} // namespace deployment
