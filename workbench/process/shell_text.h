// Texts in command lines of a shell.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// The text in quotes, as one word that means itself.
inline std::string ShellQuoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text)
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

} // namespace workbench
