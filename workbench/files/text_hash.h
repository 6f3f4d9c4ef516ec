// A short hash of texts, for names and for noticing damage; none that withstands an attacker.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// Sixteen hexadecimal digits, the same on every machine.
std::string TextHash(std::string_view text);

} // namespace workbench
