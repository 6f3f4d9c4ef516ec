// What holds for an entry on a platform, and which record says so.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// One value of an entry on a platform.
struct TSourcedValue {
  std::string Name;   ///< as the JSON documents call it: "remoteDir", "enabled" and so on
  std::string Value;  ///< as text; Booleans as "true" and "false"
  std::string Source; ///< whose record it is, in words
};

/// The effective values of an entry for a platform, in a fixed order.
std::vector<TSourcedValue> SourcedValues(deployment::IProjectDeploymentFile& file,
                                         std::string_view platform,
                                         const deployment::IDeploymentClassList& classes);

} // namespace workbench
