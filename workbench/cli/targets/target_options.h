// --to-profile, --group and --hosts: a command for several targets at once.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/deploy/deploy_subject.h"
#include "workbench/remote/target/profile.h"

#include <string>
#include <vector>

namespace workbench {

/// What the command line says of targets.
struct TTargetOptions {
  std::vector<TGivenText> Given; ///< in the order of the command line
  unsigned Hosts = 4;            ///< how many are worked on at a time

  /// True when the command is for the profiles named here, whatever the project assigns.
  bool AreGiven() const { return !Given.empty(); }
  bool HasGroup() const;
};

/// The largest number of targets that are worked on at a time.
inline constexpr int MostHosts = 64;

/// Declares the options. They must outlive the command line.
void AddTargetOptions(IOptions& options, TTargetOptions& targets);

/// The profiles that are meant, as ChooseProfiles has them. Throws TUsageError, also for a platform
/// whose files go to a folder beside the program.
std::vector<TProfile> ChooseTargets(TCommandContext& context, TOpenProject& project,
                                    const TTargetOptions& targets, const std::string& platform);

/// What of the project goes to the target, once it is reconciled in memory. Warns of what that
/// brings up.
TDeploySubject ReadSubject(TCommandContext& context, TOpenProject& project, const TTarget& target);

} // namespace workbench
