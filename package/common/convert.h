// Values as XML text: what the reader accepts and what the writer produces, side by side.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace deployment {

/// "true" and "false" in any case, "1" and "0"; blanks around them are ignored. Nothing for any
/// other text.
std::optional<bool> TextToBoolean(std::string_view text);

/// A decimal integer with optional sign, blanks around it ignored. Nothing for any other text and
/// for values that 32 bits do not hold.
std::optional<int> TextToInteger(std::string_view text);

/// "true" or "false".
std::string_view BooleanToText(bool value);

} // namespace deployment
