// A command that is done for one project, or for each project of a solution.
#pragma once

#include "workbench/cli/context/command.h"

#include <functional>
#include <string>

namespace workbench {

/// What the command does for a project that is open; returns the exit status and throws as
/// ICommand::Run does.
using TProjectWork = std::function<int(TCommandContext&, TOpenProject&)>;

/// Which targets of a project the command works for.
enum class TWorkTargets {
  One, ///< the one that the options choose
  All,
};

/// Opens the project named and does the work for it. A solution's projects are taken in its order,
/// those that have something to deploy: options that name a target name one of the solution where
/// it has such a one. One that fails stops no other, an interrupt stops all. The lines of each
/// begin with its name; as JSON there is one document with that of each project. Returns the exit
/// status, of a solution the highest one. Throws as OpenProject does.
int RunForProjects(TCommandContext& context, const std::string& argument, TOpenPurpose purpose,
                   TWorkTargets targets, const TProjectWork& work);

} // namespace workbench
