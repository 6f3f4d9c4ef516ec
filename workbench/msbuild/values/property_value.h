// What a property function takes and gives: a text, a number, a Boolean, a version or a list.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace workbench {

/// Two to four whole numbers; those that were not given are -1.
using TVersionNumber = std::array<int, 4>;
using TTextList = std::vector<std::string>;
using TPropertyValue =
    std::variant<std::string, std::int64_t, double, bool, TVersionNumber, TTextList>;

/// A property function was called in a way in which no build could carry it out. The text says
/// what is wrong, without naming the function.
class TFunctionError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// The value as a build writes it into a property.
std::string TextOf(const TPropertyValue& value);
/// Throws TFunctionError when the value is no number.
double NumberOf(const TPropertyValue& value);
/// A whole number; throws TFunctionError for any other value.
std::int64_t IntegerOf(const TPropertyValue& value);
/// Throws TFunctionError when the value is no version.
TVersionNumber VersionOf(const TPropertyValue& value);
/// A whole number where it is one and can be held, else a number with a fraction.
TPropertyValue NumberValue(double number);

} // namespace workbench
