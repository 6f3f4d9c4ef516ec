// Guesses which name was meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// "; did you mean "x"?" for the name that is nearest to the word; empty when none is near.
std::string HintAt(std::string_view word, const std::vector<std::string>& names);

} // namespace workbench
