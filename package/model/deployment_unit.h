// The deployment unit: connects deployments to the host when it is ready, and takes them off again.
#pragma once

#include "package/host/api/ideservices.h"
#include "package/model/deployment_commands.h"

#include <memory>
#include <vector>

namespace deployment {

/// The unit-level objects of the unit "DeploymentImpl". Owned by the loaded package.
class TDeploymentImplUnit {
public:
  /// `host` must outlive the unit.
  explicit TDeploymentImplUnit(VelmorIDEServices& host) : FHost(host) {}
  TDeploymentImplUnit(const TDeploymentImplUnit&) = delete;
  TDeploymentImplUnit& operator=(const TDeploymentImplUnit&) = delete;

  /// The first of several initializations waits for the host's main form; the others are counted.
  void Initialize();
  /// The last finalization takes everything off the host again. Ignored without an initialization.
  void Finalize();

private:
  void MainFormCreated();

  VelmorIDEServices& FHost;
  int FInitializations = 0;
  TEventHandle FMainFormCreated = 0;
  TDeploymentUnitObjects FObjects;
  /// Deployments of modules that the host still has open refer to the storage of their run.
  std::vector<std::shared_ptr<TDeploymentStorageManager>> FPastStorages;
};

} // namespace deployment
