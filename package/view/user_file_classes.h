// The entries that users put on the list themselves, and may take off again.
#pragma once

#include "package/common/class_names.h"
#include "package/host/api/deploymentapi.h"

namespace deployment {

/// Entries of any other class are made by reconciling, which would bring them back.
inline bool IsUserFile(const IProjectDeploymentFile& file) {
  return class_names::IsUserClass(file.GetDeploymentClass());
}

} // namespace deployment
