// The install plan of a Meson build directory.
#pragma once

#include "workbench/project/build_import/install_plan.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// True for a directory that Meson has set up.
bool IsMesonBuild(const std::filesystem::path& directory);

/// Reads what Meson wrote when it set the directory up; `components` are Meson's install tags, as
/// for TInstallCollector, "Unspecified" for files without one. Throws TInputError with the place.
TInstallPlan ReadMesonPlan(const std::filesystem::path& directory,
                           const std::vector<std::string>& components);

} // namespace workbench
