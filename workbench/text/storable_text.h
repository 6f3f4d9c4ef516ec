// Which texts can stand in a project.
#pragma once

#include <string_view>

namespace workbench {

/// False for a text with control characters, or with others that an XML file cannot hold.
bool IsStorable(std::string_view text);

} // namespace workbench
