#include "workbench/msbuild/values/property_value.h"

#include "package/common/delimited_list.h"
#include "workbench/msbuild/values/condition_values.h"
#include "workbench/xml/short_text.h"

#include <charconv>
#include <cmath>

namespace workbench {
namespace {

constexpr double LargestWhole = 9007199254740992.0; // every whole number up to here is exact

std::string VersionText(const TVersionNumber& version) {
  std::string text;
  for (const int part : version) {
    if (part >= 0)
      text += (text.empty() ? "" : ".") + std::to_string(part);
  }
  return text;
}

std::string DoubleText(double number) {
  std::array<char, 64> buffer{};
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return {buffer.data(), end};
}

} // namespace

std::string TextOf(const TPropertyValue& value) {
  struct TWriter {
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return DoubleText(number); }
    std::string operator()(bool flag) const { return flag ? "True" : "False"; }
    std::string operator()(const TVersionNumber& version) const { return VersionText(version); }
    std::string operator()(const TTextList& list) const {
      return deployment::JoinDelimited(list, ";");
    }
  };
  return std::visit(TWriter{}, value);
}

double NumberOf(const TPropertyValue& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value))
    return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&value))
    return *number;
  const std::string text = TextOf(value);
  if (const auto number = ConditionNumber(text))
    return *number;
  throw TFunctionError("\"" + ShortText(text) + "\" is no number");
}

std::int64_t IntegerOf(const TPropertyValue& value) {
  const double number = NumberOf(value);
  if (std::abs(number) > LargestWhole || std::trunc(number) != number)
    throw TFunctionError("\"" + ShortText(TextOf(value)) + "\" is no whole number");
  return static_cast<std::int64_t>(number);
}

TVersionNumber VersionOf(const TPropertyValue& value) {
  if (const auto* version = std::get_if<TVersionNumber>(&value))
    return *version;
  const std::string text = TextOf(value);
  TVersionNumber version{-1, -1, -1, -1};
  const auto parts = deployment::SplitDelimited(text, '.');
  bool valid = parts.size() >= 2 && parts.size() <= version.size();
  for (std::size_t i = 0; valid && i < parts.size(); ++i) {
    const auto [end, error] =
        std::from_chars(parts[i].data(), parts[i].data() + parts[i].size(), version[i]);
    valid = error == std::errc() && end == parts[i].data() + parts[i].size() && version[i] >= 0;
  }
  if (!valid)
    throw TFunctionError("\"" + ShortText(text) + "\" is no version");
  return version;
}

TPropertyValue NumberValue(double number) {
  if (std::abs(number) <= LargestWhole && std::trunc(number) == number)
    return static_cast<std::int64_t>(number);
  return number;
}

} // namespace workbench
