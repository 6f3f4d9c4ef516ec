// Texts of the host that the package hands on.
#pragma once

#include <functional>
#include <string>

namespace deployment {

/// The unit-level object of the unit "DeployStrs".
struct TDeployStrs {
  /// Empty until registration sets it.
  std::function<std::string()> FGetBaseRegKeyProc;

  /// Root under which the host keeps its settings; empty before registration.
  std::string BaseRegKey() const { return FGetBaseRegKeyProc ? FGetBaseRegKeyProc() : ""; }
};

} // namespace deployment
