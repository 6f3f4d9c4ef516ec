#include "workbench/session/package_loader.h"

#include "package/common/errors.h"
#include "workbench/files/machine_path.h"

#include <dlfcn.h>
#include <string>

namespace workbench {
namespace {

std::string LoaderReason() {
  const char* reason = ::dlerror();
  return reason ? reason : "no reason was given";
}

} // namespace

void TPackageLoader::TUnload::operator()(void* module) const {
  ::dlclose(module);
}

std::filesystem::path PackageModuleFile() {
  return RunningProgram().parent_path() / "deployment-package.so";
}

TPackageLoader::TPackageLoader(deployment::VelmorIDEServices& host,
                               const std::filesystem::path& module) {
  const deployment::TErrorPlace place{module.string(), 0};
  // A full path, because the loader searches a bare name in the system's directories.
  FModule.reset(::dlopen(std::filesystem::absolute(module).c_str(), RTLD_NOW | RTLD_LOCAL));
  if (!FModule)
    throw deployment::TInputError("the package cannot be loaded: " + LoaderReason(), place);
  void* symbol = ::dlsym(FModule.get(), deployment::CreatePackageName);
  if (!symbol)
    throw deployment::TInputError("the module is no deployment package: " + LoaderReason(), place);
  const auto create = reinterpret_cast<deployment::TCreatePackage>(symbol);
  if (!create(host, deployment::PackageInterfaceVersion, FPackage))
    throw deployment::TInputError("the package was built for another version of this program "
                                  "(this one has interface version " +
                                      std::to_string(deployment::PackageInterfaceVersion) + ")",
                                  place);
  if (!FPackage)
    throw deployment::TInputError("the package did not come to life", place);
}

} // namespace workbench
