// The package as the host sees it: units that start and stop together.
#pragma once

#include "package/host/api/package.h"
#include "package/host/plugin/units.h"

#include <cstddef>
#include <span>
#include <string>

namespace deployment {

/// Runs the start-up table forwards and backwards.
class TDeploymentPackage final : public IPackage {
public:
  /// Stores only; the work begins in Start. `host` and `table` must outlive the package.
  explicit TDeploymentPackage(VelmorIDEServices& host,
                              std::span<const TUnit> table = StartUpTable())
      : FTable(table), FUnits(host) {}
  /// Stops what is still started.
  ~TDeploymentPackage() override;
  TDeploymentPackage(const TDeploymentPackage&) = delete;
  TDeploymentPackage& operator=(const TDeploymentPackage&) = delete;

  /// When a unit throws, the units before it are finalized again and the error goes on.
  void Start() override;
  void IDERegister() override { deployment::IDERegister(FUnits); }
  std::string BaseRegKey() const override { return FUnits.DeployStrs.BaseRegKey(); }
  void Stop() override;

private:
  std::span<const TUnit> FTable;
  TPackageUnits FUnits;
  std::size_t FStarted = 0; ///< number of units, from the first on, that are initialized
};

} // namespace deployment
