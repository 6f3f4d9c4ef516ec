// The units of the package and the order in which they start.
#pragma once

#include "package/host/api/ideservices.h"
#include "package/model/deployment_unit.h"

#include <span>
#include <string_view>

namespace deployment {

/// The unit-level objects of one loaded package.
struct TPackageUnits {
  /// `host` must outlive the units.
  explicit TPackageUnits(VelmorIDEServices& host) : DeploymentImpl(host) {}

  TDeploymentImplUnit DeploymentImpl;
};

/// A row of the start-up table.
struct TUnit {
  std::string_view Name;
  void (*Initialize)(TPackageUnits& units);
  void (*Finalize)(TPackageUnits& units);
};

/// All units in the order of their initialization; they are finalized in the reverse one.
std::span<const TUnit> StartUpTable();

} // namespace deployment
