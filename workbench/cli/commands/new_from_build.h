// Writes a project whose list are the install rules of a build.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/project/project_text.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// What the project is made from.
struct TBuildSource {
  std::filesystem::path Directory;     ///< of the build
  std::vector<std::string> Components; ///< to be taken; empty: all
};

/// Writes the project file for the one platform of `values`, with the configurations of the build,
/// and says what is in its list. The build is read before anything is written. With `dryRun`
/// nothing is. Throws TUsageError, TInputError and TSaveError.
void NewFromBuild(TCommandContext& context, const std::filesystem::path& file,
                  TProjectValues values, const TBuildSource& source, bool dryRun);

} // namespace workbench
