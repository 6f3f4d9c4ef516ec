#include "workbench/xml/xml_text.h"

#include "package/common/errors.h"
#include "workbench/xml/short_text.h"

#include <array>

namespace workbench {
namespace {

[[noreturn]] void RaiseUnwritable(std::string_view text) {
  throw deployment::TInputError("the text \"" + ShortText(text) +
                                "\" holds characters that an XML file cannot hold");
}

// Length of the UTF-8 sequence at `start` when it is a character that XML allows; else throws.
std::size_t SequenceLength(std::string_view text, std::size_t start) {
  const auto byte = [&](std::size_t i) {
    return start + i < text.size() ? static_cast<unsigned char>(text[start + i]) : 0U;
  };
  const unsigned lead = byte(0);
  const std::size_t length = lead < 0xC2   ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length == 0)
    RaiseUnwritable(text);
  char32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U)
      RaiseUnwritable(text);
    code = (code << 6) | (byte(i) & 0x3FU);
  }
  constexpr std::array<char32_t, 5> Smallest{0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < Smallest[length] || surrogate || code > 0x10FFFF || code == 0xFFFE || code == 0xFFFF)
    RaiseUnwritable(text);
  return length;
}

bool IsPlain(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x20 && byte < 0x80 && c != '&' && c != '<' && c != '>' && c != '"';
}

void AppendSpecial(std::string& markup, std::string_view text, std::size_t& at, bool inAttribute) {
  const char c = text[at];
  switch (c) {
  case '&':
    markup += "&amp;";
    break;
  case '<':
    markup += "&lt;";
    break;
  case '>':
    markup += "&gt;";
    break;
  case '"':
    markup += inAttribute ? "&quot;" : "\"";
    break;
  case '\t':
    markup += inAttribute ? "&#x9;" : "\t";
    break;
  case '\n':
    markup += "&#xA;";
    break;
  case '\r':
    markup += "&#xD;";
    break;
  default: {
    if (static_cast<unsigned char>(c) < 0x80)
      RaiseUnwritable(text);
    const std::size_t length = SequenceLength(text, at);
    markup += text.substr(at, length);
    at += length;
    return;
  }
  }
  ++at;
}

void AppendEscaped(std::string& markup, std::string_view text, bool inAttribute) {
  std::size_t at = 0;
  while (at < text.size()) {
    std::size_t end = at;
    while (end < text.size() && IsPlain(text[end]))
      ++end;
    markup += text.substr(at, end - at);
    at = end;
    if (at < text.size())
      AppendSpecial(markup, text, at, inAttribute);
  }
}

} // namespace

void AppendXmlText(std::string& markup, std::string_view text) {
  AppendEscaped(markup, text, /*inAttribute=*/false);
}

void AppendXmlAttributeValue(std::string& markup, std::string_view text) {
  AppendEscaped(markup, text, /*inAttribute=*/true);
}

} // namespace workbench
