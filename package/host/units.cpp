#include "package/host/units.h"

namespace deployment {
namespace {

constexpr TUnit Units[] = {
    {"DeploymentImpl", [](TPackageUnits& units) { units.DeploymentImpl.Initialize(); },
     [](TPackageUnits& units) { units.DeploymentImpl.Finalize(); }},
};

} // namespace

std::span<const TUnit> StartUpTable() {
  return Units;
}

} // namespace deployment
