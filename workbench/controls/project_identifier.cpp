#include "workbench/controls/project_identifier.h"

#include <string_view>

namespace workbench {

std::string ProjectIdentifier(const deployment::IOTAProject& project) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  std::string identifier;
  for (const char c : project.GetFileName()) {
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) {
      identifier.push_back(c);
    } else {
      const auto code = static_cast<unsigned char>(c);
      identifier.append({'_', Digits[code >> 4], Digits[code & 0xF]});
    }
  }
  return identifier;
}

} // namespace workbench
