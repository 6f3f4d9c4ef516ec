#include "workbench/text/storable_text.h"

namespace workbench {

bool IsStorable(std::string_view text) {
  constexpr std::string_view FirstNoCharacter = "\xEF\xBF\xBE";
  constexpr std::string_view SecondNoCharacter = "\xEF\xBF\xBF";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool c1 =
        byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    const std::string_view rest = text.substr(i);
    if (byte < 0x20 || byte == 0x7F || c1 || rest.starts_with(FirstNoCharacter) ||
        rest.starts_with(SecondNoCharacter))
      return false;
  }
  return true;
}

} // namespace workbench
