// Makes a project whose list are the install rules of a build.
#pragma once

#include "workbench/project/build_import/install_plan.h"
#include "workbench/session/build_refresh.h"
#include "workbench/session/project_text.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// What a project is made from.
struct TBuildSource {
  std::filesystem::path Directory;     ///< of the build
  std::vector<std::string> Components; ///< to be taken; empty: all
};

/// What the project says of itself, for the one platform that the build is for.
TProjectValues ValuesForBuild(const std::string& platform);

/// Writes the project file and its side file; the project is open then. `plan` was read from the
/// source, and its configurations are those of `values`. What was done to the list goes to `done`.
/// Throws TInputError and TSaveError; then there is no project file.
TOpenProject& CreateFromBuild(TSession& session, const std::filesystem::path& file,
                              TProjectValues values, const TBuildSource& source,
                              const TInstallPlan& plan, TBuildRefresh& done);

} // namespace workbench
