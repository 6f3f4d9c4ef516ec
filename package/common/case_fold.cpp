#include "package/common/case_fold.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace deployment {
namespace {

struct TCaseRange {
  char32_t First;
  char32_t Last;
  std::int32_t Step;
  std::int32_t Delta;
};

constexpr TCaseRange CaseRanges[] = {
#include "package/common/case_table.inc"
};

constexpr char AsciiUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

constexpr bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

char32_t UpperCodePoint(char32_t code) {
  if (code < 0x80)
    return static_cast<unsigned char>(AsciiUpper(static_cast<char>(code)));
  const auto* range = std::upper_bound(
      std::begin(CaseRanges), std::end(CaseRanges), code,
      [](char32_t value, const TCaseRange& candidate) { return value < candidate.First; });
  if (range == std::begin(CaseRanges))
    return code;
  --range;
  if (code > range->Last || static_cast<std::int32_t>(code - range->First) % range->Step != 0)
    return code;
  return static_cast<char32_t>(static_cast<std::int32_t>(code) + range->Delta);
}

constexpr char32_t NotUtf8 = 0x110000;

unsigned SequenceLength(unsigned char lead) {
  if (lead < 0x80)
    return 1;
  if (lead >= 0xC2 && lead < 0xE0)
    return 2;
  if (lead >= 0xE0 && lead < 0xF0)
    return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

// Takes one code point off the front. A byte that starts no valid sequence comes back as a value
// of its own above the Unicode range, so that damaged text still compares consistently.
char32_t TakeCodePoint(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const unsigned length = SequenceLength(lead);
  const auto invalid = [&] {
    text.remove_prefix(1);
    return NotUtf8 + lead;
  };
  if (length == 0 || length > text.size())
    return invalid();
  constexpr std::array<unsigned char, 5> LeadMask{0, 0x7F, 0x1F, 0x0F, 0x07};
  char32_t code = lead & LeadMask[length];
  for (unsigned i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0) != 0x80)
      return invalid();
    code = (code << 6) | (next & 0x3F);
  }
  text.remove_prefix(length);
  return code;
}

void AppendCodePoint(std::string& text, char32_t code) {
  if (code >= NotUtf8) {
    text.push_back(static_cast<char>(code - NotUtf8));
  } else if (code < 0x80) {
    text.push_back(static_cast<char>(code));
  } else if (code < 0x800) {
    text.push_back(static_cast<char>(0xC0 | (code >> 6)));
    text.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  } else if (code < 0x10000) {
    text.push_back(static_cast<char>(0xE0 | (code >> 12)));
    text.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
    text.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  } else {
    text.push_back(static_cast<char>(0xF0 | (code >> 18)));
    text.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
    text.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
    text.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  }
}

char32_t TakeUpper(std::string_view& text) {
  if (IsAscii(text.front())) {
    const char upper = AsciiUpper(text.front());
    text.remove_prefix(1);
    return static_cast<unsigned char>(upper);
  }
  return UpperCodePoint(TakeCodePoint(text));
}

// Eight ASCII characters with their small letters made capital. Adding to each byte sets its high
// bit when the character is at least "a", or beyond "z"; no sum reaches the next byte.
constexpr std::uint64_t UpperAsciiBlock(std::uint64_t block) {
  constexpr std::uint64_t Ones = 0x0101010101010101U;
  const std::uint64_t atLeastA = block + Ones * (0x80 - 'a');
  const std::uint64_t beyondZ = block + Ones * (0x80 - 'z' - 1);
  return block - (((atLeastA & ~beyondZ & (Ones * 0x80)) >> 7) * ('a' - 'A'));
}

} // namespace

std::string UpperCase(std::string_view text) {
  std::string upper;
  upper.reserve(text.size());
  while (!text.empty())
    AppendCodePoint(upper, TakeUpper(text));
  return upper;
}

std::string LowerCaseAscii(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  });
  return lower;
}

bool SameText(std::string_view left, std::string_view right) {
  if (left == right)
    return true;
  while (!left.empty() && !right.empty()) {
    if (TakeUpper(left) != TakeUpper(right))
      return false;
  }
  return left.empty() && right.empty();
}

std::strong_ordering CompareText(std::string_view left, std::string_view right) {
  while (!left.empty() && !right.empty()) {
    const auto order = TakeUpper(left) <=> TakeUpper(right);
    if (order != std::strong_ordering::equal)
      return order;
  }
  return !left.empty() <=> !right.empty();
}

std::size_t HashText(std::string_view text) {
  constexpr std::uint64_t Multiplier = 0x9E3779B97F4A7C15U;
  std::uint64_t hash = 0xCBF29CE484222325U;
  // Eight letters at a time up to the first one beyond ASCII: texts that count as the same have
  // it in the same place, since no letter of ASCII equals one beyond it.
  for (; text.size() >= 8; text.remove_prefix(8)) {
    std::uint64_t block = 0;
    std::memcpy(&block, text.data(), sizeof(block));
    if ((block & 0x8080808080808080U) != 0)
      break;
    hash = (hash ^ UpperAsciiBlock(block)) * Multiplier;
    hash ^= hash >> 29;
  }
  while (!text.empty())
    hash = (hash ^ TakeUpper(text)) * 0x100000001B3U;
  return static_cast<std::size_t>(hash ^ (hash >> 32));
}

} // namespace deployment
