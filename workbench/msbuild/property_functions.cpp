#include "workbench/msbuild/property_functions.h"

#include "package/common/case_fold.h"

namespace workbench {

const TPropertyFunction* FindPropertyFunction(std::string_view owner, std::string_view name,
                                              std::size_t arguments) {
  const TPropertyFunction* near = nullptr;
  for (const auto part : {TextFunctions(), PathFunctions(), NumberFunctions()}) {
    for (const TPropertyFunction& function : part) {
      if (!deployment::SameText(function.Name, name) ||
          !deployment::SameText(function.Owner, owner))
        continue;
      if (arguments >= function.LeastArguments && arguments <= function.MostArguments)
        return &function;
      near = &function;
    }
  }
  return near;
}

std::string_view MethodOwner(const TPropertyValue& value) {
  if (std::holds_alternative<TVersionNumber>(value))
    return "version";
  return std::holds_alternative<TTextList>(value) ? "list" : "text";
}

} // namespace workbench
