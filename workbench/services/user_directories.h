// The directories of this machine that its user named: what stands below them is known to be meant.
#pragma once

#include "workbench/settings/settings_store.h"

#include <filesystem>
#include <vector>

namespace workbench {

/// The installation at `root`, and every directory that a setting names, such as those of SDKs and
/// libraries.
std::vector<std::filesystem::path> UserDirectories(const TSettings& settings,
                                                   const std::filesystem::path& root);

} // namespace workbench
