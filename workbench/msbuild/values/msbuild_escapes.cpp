#include "workbench/msbuild/values/msbuild_escapes.h"

namespace workbench {
namespace {

constexpr std::string_view SpecialCharacters = "%*?@$();'";
constexpr unsigned NoDigit = 16;

unsigned HexDigit(char c) {
  if (c >= '0' && c <= '9')
    return static_cast<unsigned>(c - '0');
  if (c >= 'a' && c <= 'f')
    return static_cast<unsigned>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F')
    return static_cast<unsigned>(c - 'A') + 10;
  return NoDigit;
}

// The code behind the "%" at `position`; 0 when there is no escape.
unsigned EscapedCode(std::string_view text, std::size_t position) {
  if (text.size() - position < 3)
    return 0;
  const unsigned high = HexDigit(text[position + 1]);
  const unsigned low = HexDigit(text[position + 2]);
  return high == NoDigit || low == NoDigit ? 0 : high * 16 + low;
}

void AppendCharacter(std::string& text, unsigned code) {
  if (code < 0x80) {
    text.push_back(static_cast<char>(code));
    return;
  }
  text.push_back(static_cast<char>(0xC0U | (code >> 6U)));
  text.push_back(static_cast<char>(0x80U | (code & 0x3FU)));
}

} // namespace

std::string UnescapeMSBuild(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned code = text[i] == '%' ? EscapedCode(text, i) : 0;
    if (code == 0) {
      plain.push_back(text[i]);
      continue;
    }
    AppendCharacter(plain, code);
    i += 2;
  }
  return plain;
}

std::string EscapeMSBuild(std::string_view text) {
  constexpr std::string_view Digits = "0123456789abcdef";
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    if (SpecialCharacters.find(c) == std::string_view::npos) {
      escaped.push_back(c);
      continue;
    }
    const auto code = static_cast<unsigned char>(c);
    escaped.push_back('%');
    escaped.push_back(Digits[code >> 4U]);
    escaped.push_back(Digits[code & 0xFU]);
  }
  return escaped;
}

} // namespace workbench
