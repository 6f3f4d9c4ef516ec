#include "workbench/msbuild/environment.h"

#include "workbench/msbuild/msbuild_properties.h"
#include "workbench/msbuild/values/property_names.h"

#include <string_view>
#include <unistd.h>

namespace workbench {

TNamedTexts ProcessEnvironment() {
  TNamedTexts variables;
  for (char** entry = environ; entry && *entry; ++entry) {
    const std::string_view text = *entry;
    const std::size_t equals = text.find('=');
    if (equals != std::string_view::npos && IsPropertyName(text.substr(0, equals)))
      variables.push_back(
          {std::string(text.substr(0, equals)), std::string(text.substr(equals + 1))});
  }
  return variables;
}

} // namespace workbench
