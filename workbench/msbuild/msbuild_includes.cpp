#include "workbench/msbuild/msbuild_includes.h"

#include "package/common/text_trim.h"
#include "workbench/msbuild/msbuild_properties.h"
#include "workbench/msbuild/values/condition_tokens.h"
#include "workbench/msbuild/values/property_names.h"

namespace workbench {
std::vector<std::string_view> SplitIncludes(std::string_view escaped) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  bool references = true; // until one is found that never closes
  const auto finish = [&](std::size_t end) {
    if (const std::string_view piece = deployment::Trimmed(escaped.substr(start, end - start));
        !piece.empty())
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
  const std::string_view name = deployment::Trimmed(inside.substr(0, inside.find(',')));
  return IsPropertyName(name) ? name : std::string_view();
}

} // namespace workbench
