// Makes a project whose list are the install rules of a build.
#pragma once

#include "workbench/project/build_import/install_plan.h"
#include "workbench/session/build_refresh.h"
#include "workbench/session/session.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// What the project is made from.
struct TBuildSource {
  std::filesystem::path Directory;          ///< of the build
  std::vector<std::string> Components = {}; ///< to be taken; empty: all
  std::string Platform;                     ///< that the build is for
  std::string Configuration = {};           ///< to be active; empty: the first of the build
};

/// Throws TInputError when a configuration of the build has a name that no project can hold.
void CheckBuildConfigurations(const TInstallPlan& plan);

/// A project that was made, and is open.
struct TMadeProject {
  TOpenProject& Project;
  TBuildRefresh Done; ///< to its list
};

/// Writes the project file and its side file, with the rules in its list, and keeps the yes to
/// those of its files that stand beyond its tree. Throws TInputError, and TSaveError, as when the
/// file exists already; no project file is left behind then, unless the side file alone was not
/// written.
TMadeProject CreateFromBuild(TSession& session, const std::filesystem::path& file,
                             const TBuildSource& source, const TInstallPlan& plan);

/// Who puts files from beyond a project's tree on its list means to send them: keeps the user's yes
/// to those of the files (as they are stored) that stand there. Names with macros are left out.
/// Throws TInputError for damaged settings.
void AllowListedSources(TSession& session, const TOpenProject& project,
                        const std::vector<std::string>& localNames);

} // namespace workbench
