// Comparing text "ignoring case": the one place that says when two texts count as the same.
#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

namespace deployment {

/// The text with every letter replaced by its simple upper case, letters beyond ASCII included.
/// UTF-8 in and out; bytes that are not UTF-8 are kept as they are.
std::string UpperCase(std::string_view text);

/// The text with the ASCII letters in lower case; for extensions and other names of the system.
std::string LowerCaseAscii(std::string_view text);

/// True when both texts are the same but for the case of letters.
bool SameText(std::string_view left, std::string_view right);

/// Ordinal comparison of the upper-cased texts, code point by code point.
std::strong_ordering CompareText(std::string_view left, std::string_view right);

/// A hash under which texts that SameText calls the same collide.
std::size_t HashText(std::string_view text);

} // namespace deployment
