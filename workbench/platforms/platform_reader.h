// Reads the platform table's file.
#pragma once

#include "package/host/api/xml.h"
#include "workbench/platforms/platform_table.h"

#include <vector>

namespace workbench {

/// The platforms in the order of the file. Throws TInputError when the root is not that of a
/// platform table of a known version, and for anything in it that is missing, unknown, named twice
/// or no value of its kind.
std::vector<TPlatformFacts> ReadPlatforms(deployment::IXMLNode& root);

} // namespace workbench
