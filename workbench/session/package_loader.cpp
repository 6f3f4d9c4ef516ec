#include "workbench/session/package_loader.h"

#include "package/common/errors.h"
#include "workbench/files/own_modules.h"

#include <dlfcn.h>
#include <string>

namespace workbench {
namespace {

std::string LoaderReason() {
  const char* reason = ::dlerror();
  return reason ? reason : "no reason was given";
}

std::string VersionText(const char* release, std::uint32_t interface) {
  return "version " + std::string(release) + " (interface " + std::to_string(interface) + ")";
}

// Why a module refuses this host, in words that name both.
std::string DifferenceOf(void* module) {
  const std::string own =
      VersionText(DEPLOYMENT_VERSION, deployment::PackageInterfaceVersion) + " of this program";
  void* symbol = ::dlsym(module, deployment::PackageVersionName);
  if (!symbol)
    return "the package is of an older version, which does not tell its number; it does not go "
           "with " +
           own;
  const deployment::TPackageVersion version =
      reinterpret_cast<deployment::TGetPackageVersion>(symbol)();
  return "the package of " + VersionText(version.Release, version.Interface) +
         " does not go with " + own;
}

} // namespace

void TPackageLoader::TUnload::operator()(void* module) const {
  ::dlclose(module);
}

std::filesystem::path PackageModuleFile() {
  return OwnModuleFile("deployment-package.so");
}

TPackageLoader::TPackageLoader(deployment::VelmorIDEServices& host,
                               const std::filesystem::path& module) {
  const deployment::TErrorPlace place{module.string(), 0};
  std::error_code ignored;
  if (!std::filesystem::exists(module, ignored))
    throw deployment::TInputError("there is no such file: the installation is not complete", place);
  // A full path, because the loader searches a bare name in the system's directories.
  FModule.reset(::dlopen(std::filesystem::absolute(module).c_str(), RTLD_NOW | RTLD_LOCAL));
  if (!FModule)
    throw deployment::TInputError("the package cannot be loaded: " + LoaderReason(), place);
  void* symbol = ::dlsym(FModule.get(), deployment::CreatePackageName);
  if (!symbol)
    throw deployment::TInputError("the module is no deployment package: " + LoaderReason(), place);
  const auto create = reinterpret_cast<deployment::TCreatePackage>(symbol);
  if (!create(host, deployment::PackageInterfaceVersion, FPackage))
    throw deployment::TInputError(DifferenceOf(FModule.get()), place);
  if (!FPackage)
    throw deployment::TInputError("the package did not come to life", place);
}

} // namespace workbench
