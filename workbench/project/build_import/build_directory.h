// Which tool made a build directory, and what it installs.
#pragma once

#include "workbench/project/build_import/install_plan.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// Reads the install rules of a build directory of CMake or Meson; of `components` alone, when
/// there are some. Where CMake has not told its rules yet it is run to tell them, unless `mayRun`
/// is false. Throws TInputError, with the place, for a directory of neither tool and for rules that
/// cannot be taken.
TInstallPlan ReadBuildDirectory(const std::filesystem::path& directory,
                                const std::vector<std::string>& components, bool mayRun);

} // namespace workbench
