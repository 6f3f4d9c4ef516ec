#include "workbench/services/variable_references.h"

#include <algorithm>

namespace workbench {

std::string ReplaceVariables(std::string_view text, const TVariableLookup& lookup) {
  constexpr std::string_view opening = "$(";
  std::string result;
  result.reserve(text.size());
  while (true) {
    const std::size_t start = std::min(text.find(opening), text.size());
    result += text.substr(0, start);
    text.remove_prefix(start);
    if (text.empty())
      return result;
    // A name ends before the next reference, so that unclosed ones are not searched again and
    // again.
    const std::size_t end = text.find_first_of("$()", opening.size());
    std::optional<std::string> value;
    if (end != std::string_view::npos && text[end] == ')')
      value = lookup(text.substr(opening.size(), end - opening.size()));
    result += value ? std::string_view(*value) : opening;
    text.remove_prefix(value ? end + 1 : opening.size());
  }
}

} // namespace workbench
