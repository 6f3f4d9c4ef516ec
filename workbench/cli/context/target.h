// Which configuration and platform a command works for.
#pragma once

#include "workbench/cli/context/command.h"

#include <string>

namespace workbench {

/// The target of a command.
struct TTarget {
  std::string Configuration;
  std::string Platform; ///< empty when AllPlatforms is set
  bool AllPlatforms = false;
};

/// The platform option, in this system's name for it where the project's builds have another one.
std::string PlatformOption(TCommandContext& context, const TOpenProject* project);

/// Throws TUsageError, with the known names, when the platform option names one that neither the
/// table nor the project (which may be null) knows, or the configuration option one that the
/// project does not have. "all" is a platform, "Base" a configuration of every project.
void CheckTargetOptions(TCommandContext& context, const TOpenProject* project);
/// Each of the two checks alone.
void CheckPlatformOption(TCommandContext& context, const TOpenProject* project);
void CheckConfigurationOption(TCommandContext& context, const TOpenProject& project);

/// The options, with the project's active target where they are silent. Warns of a target that the
/// project has not set up, and says so when an environment variable has made it the active one.
/// Throws as CheckTargetOptions does, for names that come from the environment too.
TTarget ChooseTarget(TCommandContext& context, const TOpenProject& project);

/// Warns when a build of the target makes nothing to deploy; a target of all platforms says
/// nothing.
void WarnOfNothingBuilt(TCommandContext& context, TOpenProject& project, const TTarget& target);

/// For commands that work on every target: checks the options as above, and says that a target
/// which was chosen changes nothing, for the reason given.
void WarnOfTarget(TCommandContext& context, const TOpenProject* project, const std::string& reason);

/// The same for commands that a configuration alone does not concern.
void WarnOfConfiguration(TCommandContext& context, const std::string& reason);

/// True when the platform is one that the table or the project knows.
bool IsKnownPlatform(TCommandContext& context, const TOpenProject* project,
                     const std::string& platform);

/// Throws TUsageError for a platform that nobody knows.
void CheckPlatform(TCommandContext& context, const TOpenProject* project,
                   const std::string& platform);

} // namespace workbench
