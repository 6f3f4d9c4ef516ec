// Brings a project that was made from a build in line with what the build installs.
#pragma once

#include "workbench/project/build_import/build_record.h"
#include "workbench/project/build_import/list_update.h"
#include "workbench/session/session.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// What a refresh did.
struct TBuildRefresh {
  std::vector<TListUpdate> Updates;
  std::vector<TWarning> Warnings;
};

/// What the project remembers of its build. Throws TInputError when it was not made from one.
TBuildRecord ReadBuildRecord(TOpenProject& project);

/// The build directory that the project names.
std::filesystem::path BuildDirectoryOf(const TOpenProject& project, const TBuildRecord& record);

/// Brings list and record in line with the plan; a save writes both.
TBuildRefresh ApplyInstallPlan(TOpenProject& project, TBuildRecord record,
                               const TInstallPlan& plan);

/// The lines of the build's files that install the entry, as "FILE:LINE", read anew without running
/// anything; none when the entry did not come from a build. Throws TInputError when the build does
/// not tell any more.
std::vector<std::string> InstallRulesOf(TOpenProject& project,
                                        const deployment::IProjectDeploymentFile& entry);

} // namespace workbench
