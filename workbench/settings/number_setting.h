// Settings that are whole numbers.
#pragma once

#include "workbench/settings/settings_store.h"

#include <cstdint>
#include <string_view>

namespace workbench {

/// The number under the key, or `byDefault` when it is unset. Throws TInputError, with the settings
/// file, for a text that is none.
std::uint64_t NumberSetting(const TSettings& settings, std::string_view key,
                            std::uint64_t byDefault);

} // namespace workbench
