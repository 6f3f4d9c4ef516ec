#include "workbench/msbuild/msbuild_includes.h"

#include "workbench/msbuild/condition_tokens.h"
#include "workbench/msbuild/msbuild_properties.h"

namespace workbench {
namespace {

constexpr std::string_view Blanks = " \t\r\n";

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(Blanks);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

} // namespace

std::vector<std::string_view> SplitIncludes(std::string_view escaped) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  bool references = true; // until one is found that never closes
  const auto finish = [&](std::size_t end) {
    if (const std::string_view piece = Trim(escaped.substr(start, end - start)); !piece.empty())
      pieces.push_back(piece);
    start = end + 1;
  };
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    if (references && escaped.substr(i).starts_with("@(")) {
      const std::size_t end = ReferenceEnd(escaped, i);
      references = end != std::string_view::npos;
      if (references)
        i = end - 1;
    } else if (escaped[i] == ';') {
      finish(i);
    }
  }
  finish(escaped.size());
  return pieces;
}

bool IsItemReference(std::string_view piece) {
  return piece.starts_with("@(");
}

std::string_view ReferencedType(std::string_view reference) {
  std::string_view inside = reference.substr(2);
  if (!inside.ends_with(")"))
    return {};
  inside.remove_suffix(1);
  const std::string_view name = Trim(inside.substr(0, inside.find(',')));
  return IsPropertyName(name) ? name : std::string_view();
}

} // namespace workbench
