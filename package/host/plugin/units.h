// The units of the package and the order in which they start.
#pragma once

#include "package/host/api/ideservices.h"
#include "package/host/plugin/deploy_data_module.h"
#include "package/host/plugin/deploy_reg.h"
#include "package/host/plugin/deploy_strs.h"
#include "package/host/plugin/deployment_window.h"
#include "package/model/deployment_unit.h"

#include <memory>
#include <span>
#include <string_view>

namespace deployment {

/// The unit-level objects of one loaded package.
struct TPackageUnits {
  /// `host` must outlive the units.
  explicit TPackageUnits(VelmorIDEServices& host)
      : Host(host), DeploymentImpl(host), Views(std::make_shared<TViewContext>(host)) {}

  VelmorIDEServices& Host;
  TDeploymentImplUnit DeploymentImpl;
  /// Threads of the unit "DeploymentMgrFrame" and registry of the unit "DeploymentWindow".
  std::shared_ptr<TViewContext> Views;
  TDeployStrs DeployStrs;
  TDeployDataModule DeployDataModule;
  TDeployReg DeployReg;
};

/// A row of the start-up table.
struct TUnit {
  std::string_view Name;
  void (*Initialize)(TPackageUnits& units);
  void (*Finalize)(TPackageUnits& units);
};

/// All units in the order of their initialization; they are finalized in the reverse one.
std::span<const TUnit> StartUpTable();

/// Registers the package with its host; nothing happens when it is registered.
void IDERegister(TPackageUnits& units);

} // namespace deployment
