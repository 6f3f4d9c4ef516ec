// "%XX" in project files: how a character stands in a value without its special meaning.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// The text with every "%" and two hexadecimal digits replaced by the character of that code
/// point, as UTF-8: "%C3" is one character, not one byte. Any other "%" stays, and so does "%00",
/// since no name can hold a zero.
std::string UnescapeMSBuild(std::string_view text);

/// The text with the characters escaped that have a meaning in an include: % * ? @ $ ( ) ; '
std::string EscapeMSBuild(std::string_view text);

} // namespace workbench
