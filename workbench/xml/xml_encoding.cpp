#include "workbench/xml/xml_encoding.h"

#include "package/common/case_fold.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

using namespace std::string_view_literals;

// The markup is made by us and valid, so no sequence is cut or malformed.
char32_t TakeCodePoint(std::string_view& utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t code = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i)
    code = (code << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3F);
  utf8.remove_prefix(length);
  return code;
}

void AppendUnit(std::string& text, char32_t unit, bool littleEndian) {
  const char low = static_cast<char>(unit & 0xFF);
  const char high = static_cast<char>((unit >> 8) & 0xFF);
  text.push_back(littleEndian ? low : high);
  text.push_back(littleEndian ? high : low);
}

std::string EncodeUtf16(std::string_view utf8, bool littleEndian) {
  std::string text;
  text.reserve(utf8.size() * 2);
  while (!utf8.empty()) {
    const char32_t code = TakeCodePoint(utf8);
    if (code < 0x10000) {
      AppendUnit(text, code, littleEndian);
    } else {
      AppendUnit(text, 0xD800 + ((code - 0x10000) >> 10), littleEndian);
      AppendUnit(text, 0xDC00 + ((code - 0x10000) & 0x3FF), littleEndian);
    }
  }
  return text;
}

std::string EncodeSingleBytes(std::string_view utf8, char32_t last) {
  std::string text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const char32_t code = TakeCodePoint(utf8);
    if (code <= last)
      text.push_back(static_cast<char>(code));
    else
      text += "&#" + std::to_string(static_cast<unsigned long>(code)) + ";";
  }
  return text;
}

bool IsLeadingHalf(char32_t unit) {
  return (unit & 0xFC00U) == 0xD800U;
}

bool IsTrailingHalf(char32_t unit) {
  return (unit & 0xFC00U) == 0xDC00U;
}

} // namespace

TXmlEncoding DetectEncoding(std::string_view bytes, std::string_view declared) {
  const std::string_view head = bytes.substr(0, 2);
  // Without a mark a zero beside the first character tells it, as it does the parser: a blank may
  // stand in front of the first element.
  const bool isWide = head.size() == 2 && head[0] != head[1];
  if (head == "\xFF\xFE"sv || (isWide && head[1] == '\0'))
    return TXmlEncoding::Utf16LittleEndian;
  if (head == "\xFE\xFF"sv || (isWide && head[0] == '\0'))
    return TXmlEncoding::Utf16BigEndian;
  if (deployment::SameText(declared, "iso-8859-1"))
    return TXmlEncoding::Latin1;
  return deployment::SameText(declared, "us-ascii") ? TXmlEncoding::Ascii : TXmlEncoding::Utf8;
}

const char* EncodingName(TXmlEncoding encoding) {
  switch (encoding) {
  case TXmlEncoding::Utf16LittleEndian:
    return "UTF-16LE";
  case TXmlEncoding::Utf16BigEndian:
    return "UTF-16BE";
  case TXmlEncoding::Latin1:
    return "ISO-8859-1";
  case TXmlEncoding::Ascii:
    return "US-ASCII";
  case TXmlEncoding::Utf8:
    break;
  }
  return "UTF-8";
}

std::string EncodeMarkup(std::string utf8, TXmlEncoding encoding) {
  switch (encoding) {
  case TXmlEncoding::Utf16LittleEndian:
    return EncodeUtf16(utf8, true);
  case TXmlEncoding::Utf16BigEndian:
    return EncodeUtf16(utf8, false);
  case TXmlEncoding::Latin1:
    return EncodeSingleBytes(utf8, 0xFF);
  case TXmlEncoding::Ascii:
    return EncodeSingleBytes(utf8, 0x7F);
  case TXmlEncoding::Utf8:
    break;
  }
  return utf8;
}

std::optional<std::size_t> FindHalfCharacter(std::string_view bytes) {
  const TXmlEncoding encoding = DetectEncoding(bytes, {});
  if (encoding != TXmlEncoding::Utf16LittleEndian && encoding != TXmlEncoding::Utf16BigEndian)
    return std::nullopt;
  const std::size_t high = encoding == TXmlEncoding::Utf16LittleEndian ? 1 : 0;
  const auto unitAt = [&](std::size_t offset) -> char32_t {
    return static_cast<unsigned char>(bytes[offset + high]) * 256U +
           static_cast<unsigned char>(bytes[offset + 1 - high]);
  };
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t unit = unitAt(i);
    const bool isPair =
        IsLeadingHalf(unit) && i + 3 < bytes.size() && IsTrailingHalf(unitAt(i + 2));
    if (isPair)
      i += 2;
    else if (IsLeadingHalf(unit) || IsTrailingHalf(unit))
      return i;
  }
  return std::nullopt;
}

} // namespace workbench
