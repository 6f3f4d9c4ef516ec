#include "workbench/text/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace workbench {

bool IsUtf8(std::string_view text) {
  constexpr std::array<unsigned, 5> Smallest{0, 0, 0x80, 0x800, 0x10000};
  for (std::size_t i = 0; i < text.size();) {
    const unsigned lead = static_cast<unsigned char>(text[i]);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || i + length > text.size())
      return false;
    unsigned code = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t k = 1; k < length; ++k) {
      const unsigned next = static_cast<unsigned char>(text[i + k]);
      if ((next & 0xC0U) != 0x80U)
        return false;
      code = (code << 6) | (next & 0x3FU);
    }
    if (code < Smallest[length] || (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF)
      return false;
    i += length;
  }
  return true;
}

std::size_t CodePointCount(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

} // namespace workbench
