// The classes that every project has.
#pragma once

#include "package/host/api/deploymentapi.h"

namespace deployment {

/// A project without a list of its own gets the default classes: the first look at its entries
/// brings them. Throws as GetFiles does.
inline void EnsureDefaultDeployment(IProjectDeployment& deployment) {
  static_cast<void>(deployment.GetFiles());
}

} // namespace deployment
