// Writes a project whose list are the install rules of a build.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/session/project_from_build.h"

#include <filesystem>

namespace workbench {

/// Writes the project file for the platform of the build, with the configurations of the build,
/// and says what is in its list. The build is read before anything is written. With `dryRun`
/// nothing is. Throws TUsageError, TInputError and TSaveError.
void NewFromBuild(TCommandContext& context, const std::filesystem::path& file,
                  const TBuildSource& source, bool dryRun);

} // namespace workbench
