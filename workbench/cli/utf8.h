// Is a text UTF-8?
#pragma once

#include <string_view>

namespace workbench {

/// True for well-formed UTF-8 without overlong forms and surrogates.
bool IsUtf8(std::string_view text);

} // namespace workbench
