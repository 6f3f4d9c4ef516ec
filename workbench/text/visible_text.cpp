#include "workbench/text/visible_text.h"

#include "workbench/text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace workbench {
namespace {

constexpr std::size_t MostLines = 8;
constexpr std::size_t LongestSaid = 1000; // bytes

// Length of a mark that changes the direction of writing or breaks the line, in UTF-8; 0 for
// others.
std::size_t MarkLength(std::string_view text) {
  constexpr std::array<std::string_view, 14> Marks{
      "\xD8\x9C",     "\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xA8", "\xE2\x80\xA9",
      "\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD", "\xE2\x80\xAE",
      "\xE2\x81\xA6", "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9"};
  for (const std::string_view mark : Marks) {
    if (text.starts_with(mark))
      return mark.size();
  }
  return 0;
}

// Length of a character that a terminal acts upon instead of showing it; 0 for others.
std::size_t HiddenLength(std::string_view text) {
  const auto byte = static_cast<unsigned char>(text.front());
  if (byte < 0x20 || byte == 0x7F)
    return 1;
  if (byte == 0xC2 && text.size() > 1 && static_cast<unsigned char>(text[1]) < 0xA0)
    return 2;
  return byte == 0xD8 || byte == 0xE2 ? MarkLength(text) : 0;
}

std::string Escaped(unsigned char byte) {
  std::array<char, 5> escape{};
  std::snprintf(escape.data(), escape.size(), "\\x%02X", byte);
  return escape.data();
}

} // namespace

std::string Visible(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const std::size_t hidden = HiddenLength(text);
    if (hidden == 0)
      shown.push_back(text.front());
    for (std::size_t i = 0; i < hidden; ++i)
      shown += Escaped(static_cast<unsigned char>(text[i]));
    text.remove_prefix(hidden == 0 ? 1 : hidden);
  }
  return shown;
}

std::string SaidText(std::string_view text) {
  constexpr std::string_view Blanks = " \t\r";
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    line.remove_prefix(std::min(line.find_first_not_of(Blanks), line.size()));
    line.remove_suffix(line.size() - (line.find_last_not_of(Blanks) + 1));
    if (!line.empty())
      lines.push_back(line);
  }
  std::string said;
  for (std::size_t i = lines.size() - std::min(lines.size(), MostLines); i < lines.size(); ++i) {
    said += said.empty() ? "" : "; ";
    if (IsUtf8(lines[i])) {
      said += Visible(lines[i]);
      continue;
    }
    for (const char c : lines[i]) {
      const auto byte = static_cast<unsigned char>(c);
      said += byte < 0x20 || byte >= 0x7F ? Escaped(byte) : std::string(1, c);
    }
  }
  if (said.size() > LongestSaid) {
    std::size_t length = LongestSaid;
    while ((static_cast<unsigned char>(said[length]) & 0xC0U) == 0x80U)
      --length;
    said.resize(length);
    said += " ...";
  }
  return said;
}

} // namespace workbench
