#include "workbench/settings/number_setting.h"

#include "package/common/errors.h"
#include "workbench/settings/known_settings.h"

#include <string>

namespace workbench {

std::uint64_t NumberSetting(const TSettings& settings, std::string_view key,
                            std::uint64_t byDefault) {
  const auto text = settings.Get(key);
  if (!text)
    return byDefault;
  if (const auto problem = ProblemOfValue(key, *text, {}))
    throw deployment::TInputError(*problem, {settings.File().string(), 0});
  return std::stoull(*text);
}

} // namespace workbench
