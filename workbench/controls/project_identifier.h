// Names of the frames that are open side by side.
#pragma once

#include "package/host/api/toolsapi.h"

#include <string>

namespace workbench {

/// The project's full path in letters, digits and "_"; what a name cannot hold is written as its
/// number.
std::string ProjectIdentifier(const deployment::IOTAProject& project);

} // namespace workbench
