#include "workbench/project/project_kind.h"

#include "package/common/case_fold.h"

#include <array>

namespace workbench {
namespace {

struct TKindRow {
  std::string_view Type;
  std::string_view Kind;
};

constexpr std::array<TKindRow, 3> ConfigurationTypes = {{
    {"Application", "Application"},
    {"DynamicLibrary", "Library"},
    {"StaticLibrary", "Library"},
}};

} // namespace

std::string_view ApplicationTypeOf(std::string_view configurationType) {
  for (const TKindRow& row : ConfigurationTypes) {
    if (deployment::SameText(row.Type, configurationType))
      return row.Kind;
  }
  return configurationType;
}

} // namespace workbench
