#include "workbench/xml/short_text.h"

namespace workbench {

std::string ShortText(std::string_view text, std::size_t limit) {
  if (text.size() <= limit)
    return std::string(text);
  while (limit > 0 && (static_cast<unsigned char>(text[limit]) & 0xC0U) == 0x80U)
    --limit;
  return std::string(text.substr(0, limit)) + "...";
}

} // namespace workbench
