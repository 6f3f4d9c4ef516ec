// Replaces "$(NAME)" in a text.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace workbench {

/// The value of a name; nothing when the name is not known.
using TVariableLookup = std::function<std::optional<std::string>(std::string_view name)>;

/// The text with the value in place of every "$(NAME)" that the look-up knows. Others stay, and
/// values are not searched again.
std::string ReplaceVariables(std::string_view text, const TVariableLookup& lookup);

} // namespace workbench
