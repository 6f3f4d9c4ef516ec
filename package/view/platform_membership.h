// Whether a file belongs to a platform, as the view understands it.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <string_view>

namespace deployment {

/// True for no platform and for "All Platforms"; else when the file has a record of the platform,
/// ignoring case.
bool IsFileInPlatform(std::string_view platform, const IProjectDeploymentFile& file);

/// True when the file has a record of the platform, compared exactly.
bool HoldsPlatform(const IProjectDeploymentFile& file, std::string_view platform);

} // namespace deployment
