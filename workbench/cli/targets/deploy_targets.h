// deploymgr deploy for several targets at once.
#pragma once

#include "workbench/cli/context/target.h"
#include "workbench/cli/targets/deploy_conduct.h"
#include "workbench/cli/targets/target_options.h"
#include "workbench/deploy/deploy_request.h"

namespace workbench {

/// What the deploys are asked to do.
struct TTargetsDeploy {
  const TTargetOptions& Targets;
  TDeployOptions Options = {};
  TAllowed Allowed = {};
  bool IsCheck = false;
};

/// Deploys the project to each of the profiles. The list is reconciled and read once for all of
/// them; consent to its commands is asked for once, before any target. Returns the exit status;
/// throws as ICommand::Run does when nothing was begun.
int DeployToTargets(TCommandContext& context, TOpenProject& project, const TTarget& target,
                    const TTargetsDeploy& wanted);

} // namespace workbench
