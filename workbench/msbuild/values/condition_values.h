// Operands of a condition as numbers, versions and Booleans.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace workbench {

/// A decimal number with optional sign and fraction, or "0x" and hexadecimal digits.
std::optional<double> ConditionNumber(std::string_view text);

/// Two to four whole numbers between dots; missing ones are 0.
using TConditionVersion = std::array<unsigned, 4>;
std::optional<TConditionVersion> ConditionVersion(std::string_view text);

/// true, on, yes and false, off, no in any case.
std::optional<bool> ConditionBoolean(std::string_view text);

/// True for an operand of nothing but blanks.
bool IsBlankOperand(std::string_view text);

} // namespace workbench
