// Texts of others inside a sentence of ours.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// The text between double quotes, as it stands.
inline std::string Quoted(std::string_view text) {
  return std::string("\"").append(text).append("\"");
}

} // namespace workbench
