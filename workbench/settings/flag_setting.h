// Settings that are true or false.
#pragma once

#include "workbench/settings/settings_store.h"

#include <string_view>

namespace workbench {

/// "true" lets the window deploy without showing the plan where nothing conflicts.
inline constexpr std::string_view DeployUnaskedSetting = "deploy-unasked";

/// The value under the key, or `byDefault` when it is unset or says neither.
bool FlagSetting(const TSettings& settings, std::string_view key, bool byDefault);

} // namespace workbench
