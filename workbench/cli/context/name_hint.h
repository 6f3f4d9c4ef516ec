// Guesses which name was meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// "; did you mean "x"?" for the name that is nearest to the word, begins with it or is what
/// another program's word for it means; empty when there is none.
std::string HintAt(std::string_view word, const std::vector<std::string>& names);

} // namespace workbench
