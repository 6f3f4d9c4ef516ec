#include "package/host/plugin/units.h"

namespace deployment {
namespace {

// A unit without objects of its own.
void Nothing(TPackageUnits& /*units*/) {}

constexpr TUnit Units[] = {
    {"DeployFeatureForm", Nothing, Nothing},
    {"DeployModules", Nothing, Nothing},
    {"DeploymentImpl", [](TPackageUnits& units) { units.DeploymentImpl.Initialize(); },
     [](TPackageUnits& units) { units.DeploymentImpl.Finalize(); }},
    {"SelectPlatformForm", Nothing, Nothing},
    {"RevertToDefaultDialog", Nothing, Nothing},
    // Code of the package must not run on a thread any more when it is unloaded.
    {"DeploymentMgrFrame", Nothing, [](TPackageUnits& units) { units.Views->Threads->Join(); }},
    // The registry stays, for views that the host has still open.
    {"DeploymentWindow", Nothing, Nothing},
    {"DeployStrs", Nothing, [](TPackageUnits& units) { units.DeployStrs = {}; }},
    {"DeployDataModule", Nothing,
     [](TPackageUnits& units) { units.DeployDataModule.DMDeploy.reset(); }},
    {"DeployService", Nothing, Nothing},
    {"DeployReg", Nothing, [](TPackageUnits& units) { units.DeployReg.ProductStartup.reset(); }},
};

} // namespace

std::span<const TUnit> StartUpTable() {
  return Units;
}

void IDERegister(TPackageUnits& units) {
  if (units.DeployReg.ProductStartup)
    return;
  units.DeployReg.ProductStartup =
      std::make_unique<TProductStartup>(units.Views, units.DeployDataModule);
  units.DeployStrs.FGetBaseRegKeyProc = [&host = units.Host] {
    return host.GetAppStrings().rkBaseRegKey();
  };
}

} // namespace deployment
