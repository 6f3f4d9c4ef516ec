// The door of the loadable module: the functions that it exports.
#include "package/host/api/package.h"
#include "package/host/plugin/deployment_package.h"

#include <cstdint>
#include <memory>
#include <type_traits>

extern "C" __attribute__((visibility("default"))) bool
CreateDeploymentPackage(deployment::VelmorIDEServices& host, std::uint32_t interfaceVersion,
                        std::unique_ptr<deployment::IPackage>& package) {
  if (interfaceVersion != deployment::PackageInterfaceVersion)
    return false;
  package = std::make_unique<deployment::TDeploymentPackage>(host);
  return true;
}

extern "C" __attribute__((visibility("default"))) deployment::TPackageVersion
DeploymentPackageVersion() {
  return {deployment::PackageInterfaceVersion, DEPLOYMENT_VERSION};
}

static_assert(std::is_same_v<decltype(&CreateDeploymentPackage), deployment::TCreatePackage>,
              "the exported function is not what hosts look for");
static_assert(std::is_same_v<decltype(&DeploymentPackageVersion), deployment::TGetPackageVersion>,
              "the exported function is not what hosts look for");
