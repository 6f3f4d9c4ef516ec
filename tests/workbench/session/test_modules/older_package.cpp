// A package from before modules told their version: it refuses every host and cannot say why.
#include "package/host/api/package.h"

extern "C" __attribute__((visibility("default"))) bool
CreateDeploymentPackage(deployment::VelmorIDEServices&, std::uint32_t,
                        std::unique_ptr<deployment::IPackage>&) {
  return false;
}
