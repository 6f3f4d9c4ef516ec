// The names that properties can have.
#pragma once

#include <algorithm>
#include <string_view>

namespace workbench {

/// What a name begins with: an ASCII letter or "_".
constexpr bool IsNameStart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

/// What follows: also digits and "-".
constexpr bool IsNameCharacter(char c) {
  return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-';
}

/// True for a letter or "_" followed by letters, digits, "_" and "-". A "." would start a property
/// function: "$(Name.Length)".
constexpr bool IsPropertyName(std::string_view name) {
  return !name.empty() && IsNameStart(name[0]) && std::ranges::all_of(name, IsNameCharacter);
}

} // namespace workbench
