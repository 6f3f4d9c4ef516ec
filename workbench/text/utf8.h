// UTF-8 texts.
#pragma once

#include <cstddef>
#include <string_view>

namespace workbench {

/// True for well-formed UTF-8 without overlong forms and surrogates.
bool IsUtf8(std::string_view text);

/// Number of code points: the places that most texts take on a terminal.
std::size_t CodePointCount(std::string_view text);

} // namespace workbench
