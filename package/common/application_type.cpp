#include "package/common/application_type.h"

namespace deployment {
namespace {

struct TApplicationTypeRow {
  std::string_view ApplicationType;
  std::string_view Kind;
};

// The first row that matches wins.
constexpr TApplicationTypeRow ApplicationTypeRows[] = {
    {"Console", "Console"},
    {"CppConsoleApplication", "Console"},
    {"CppGuiApplication", "Application"},
    {"CppNWLApplication", "Application"},
    {"KyxGuiApplication", "Application"},
    {"RzmGuiApplication", "Application"},
    {"RziGuiApplication", "Application"},
    {"Application", "Application"},
    {"CppDynamicLibrary", "Library"},
    {"Library", "Library"},
    {"CppManagedDynamicLibrary", "Library"},
    {"CppPackage", "Package"},
    {"Package", "Package"},
};

} // namespace

std::string_view MapApplicationType(std::string_view applicationType) {
  for (const TApplicationTypeRow& row : ApplicationTypeRows) {
    if (row.ApplicationType == applicationType)
      return row.Kind;
  }
  return applicationType;
}

std::vector<std::string> ApplicationTypes() {
  std::vector<std::string> types;
  for (const TApplicationTypeRow& row : ApplicationTypeRows)
    types.emplace_back(row.ApplicationType);
  return types;
}

} // namespace deployment
