#include "workbench/settings/flag_setting.h"

#include "package/common/convert.h"

namespace workbench {

bool FlagSetting(const TSettings& settings, std::string_view key, bool byDefault) {
  const auto text = settings.Get(key);
  return text ? deployment::TextToBoolean(*text).value_or(byDefault) : byDefault;
}

} // namespace workbench
