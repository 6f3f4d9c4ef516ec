#include "package/common/convert.h"

#include "package/common/case_fold.h"

#include <charconv>

namespace deployment {
namespace {

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view Blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(Blanks);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

} // namespace

std::optional<bool> TextToBoolean(std::string_view text) {
  const std::string_view value = Trimmed(text);
  if (value == "1" || SameText(value, "true"))
    return true;
  if (value == "0" || SameText(value, "false"))
    return false;
  return std::nullopt;
}

std::optional<int> TextToInteger(std::string_view text) {
  std::string_view digits = Trimmed(text);
  if (digits.size() > 1 && digits.front() == '+' && digits[1] != '-')
    digits.remove_prefix(1);
  int value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size())
    return std::nullopt;
  return value;
}

std::string_view BooleanToText(bool value) {
  return value ? "true" : "false";
}

} // namespace deployment
