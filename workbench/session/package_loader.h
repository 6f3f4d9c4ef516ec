// Loads the package's module and keeps it as long as the package lives.
#pragma once

#include "package/host/api/package.h"

#include <filesystem>
#include <memory>

namespace workbench {

/// The loadable module: beside the running program, else where that program was installed with it.
/// The file need not exist.
std::filesystem::path PackageModuleFile();

/// The loaded package. Destroys it before it unloads the module.
class TPackageLoader {
public:
  /// Throws TInputError when the module cannot be loaded, is no package or was built for another
  /// version of the host. The host must outlive this object.
  explicit TPackageLoader(deployment::VelmorIDEServices& host,
                          const std::filesystem::path& module = PackageModuleFile());

  deployment::IPackage& Package() const { return *FPackage; }

private:
  struct TUnload {
    void operator()(void* module) const;
  };

  std::unique_ptr<void, TUnload> FModule;
  std::unique_ptr<deployment::IPackage> FPackage;
};

} // namespace workbench
