#include "workbench/msbuild/values/condition_values.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

namespace workbench {
namespace {

template <class TNumber, class... TFormat>
std::optional<TNumber> WholeText(std::string_view text, TFormat... format) {
  TNumber number = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), number, format...);
  if (error != std::errc() || end != text.data() + text.size())
    return std::nullopt;
  return number;
}

} // namespace

std::optional<double> ConditionNumber(std::string_view text) {
  if (text.starts_with("0x") || text.starts_with("0X")) {
    const auto whole = WholeText<std::uint64_t>(text.substr(2), 16);
    return whole ? std::optional<double>(static_cast<double>(*whole)) : std::nullopt;
  }
  // Words such as "inf" and "nan" are no numbers here.
  if (text.find_first_not_of("0123456789.+-") != std::string_view::npos)
    return std::nullopt;
  if (text.starts_with("+") && !text.starts_with("+-"))
    text.remove_prefix(1);
  return WholeText<double>(text, std::chars_format::fixed);
}

std::optional<TConditionVersion> ConditionVersion(std::string_view text) {
  if (std::ranges::count(text, '.') > 3)
    return std::nullopt;
  const auto parts = deployment::SplitDelimited(text, '.');
  TConditionVersion version{};
  if (parts.size() < 2)
    return std::nullopt;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto part = WholeText<unsigned>(parts[i]);
    if (!part)
      return std::nullopt;
    version[i] = *part;
  }
  return version;
}

std::optional<bool> ConditionBoolean(std::string_view text) {
  for (const std::string_view word : {"true", "on", "yes"}) {
    if (deployment::SameText(text, word))
      return true;
  }
  for (const std::string_view word : {"false", "off", "no"}) {
    if (deployment::SameText(text, word))
      return false;
  }
  return std::nullopt;
}

bool IsBlankOperand(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

} // namespace workbench
