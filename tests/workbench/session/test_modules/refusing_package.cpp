// A package of another version of the interface: it refuses every host.
#include "package/host/api/package.h"

extern "C" __attribute__((visibility("default"))) bool
CreateDeploymentPackage(deployment::VelmorIDEServices&, std::uint32_t,
                        std::unique_ptr<deployment::IPackage>&) {
  return false;
}

extern "C" __attribute__((visibility("default"))) deployment::TPackageVersion
DeploymentPackageVersion() {
  return {4'000'000'000, "9.8.7"};
}
