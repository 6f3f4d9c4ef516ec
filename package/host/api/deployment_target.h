// What a program is built and deployed for.
#pragma once

#include <string>

namespace deployment {

/// One build configuration on one platform, by their names.
struct TDeploymentTarget {
  std::string Configuration;
  std::string Platform; ///< "All Platforms" where a list may show every one

  bool operator==(const TDeploymentTarget&) const = default;
};

} // namespace deployment
