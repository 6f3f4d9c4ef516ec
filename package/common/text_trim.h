// Blanks around a text.
#pragma once

#include <string_view>

namespace deployment {

/// The text without the blanks and control characters at its ends. A view into `text`.
inline std::string_view Trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
  while (!text.empty() && isBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

} // namespace deployment
