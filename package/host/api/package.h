// How a host loads the package: two functions that the module exports, one object that it hands
// out.
#pragma once

#include "package/host/api/ideservices.h"

#include <cstdint>
#include <memory>
#include <string>

namespace deployment {

/// Goes up with every change of a header in this folder; host and package must agree.
inline constexpr std::uint32_t PackageInterfaceVersion = 6;

/// Which package a module holds.
struct TPackageVersion {
  std::uint32_t Interface; ///< the PackageInterfaceVersion that it was built with
  const char* Release;     ///< such as "0.1.0"; good as long as the module is loaded
};

/// The loaded package. Owned by the host, which destroys it before it unloads the module and after
/// it closed every module that the package attached a handler to.
class IPackage {
public:
  virtual ~IPackage() = default;
  /// Initialises the units in order. A second call does nothing.
  virtual void Start() = 0;
  /// Registers the package, once it is started; to be called before the host's main form is
  /// created. A second call does nothing.
  virtual void IDERegister() = 0;
  /// Root under which the host keeps its settings, for other packages; empty before IDERegister and
  /// after Stop.
  virtual std::string BaseRegKey() const = 0;
  /// Finalises the started units in reverse order. May come twice, and without a start.
  virtual void Stop() = 0;
};

/// Name and type of the exported function. It fills `package` and answers true; it answers false
/// when the host was built for another version of the interface.
inline constexpr const char* CreatePackageName = "CreateDeploymentPackage";
using TCreatePackage = bool (*)(VelmorIDEServices& host, std::uint32_t interfaceVersion,
                                std::unique_ptr<IPackage>& package);

/// Name and type of the other exported function, by which a host can say why it refuses a module.
inline constexpr const char* PackageVersionName = "DeploymentPackageVersion";
using TGetPackageVersion = TPackageVersion (*)();

} // namespace deployment
