// deploymgr profile group: names for several profiles.
#pragma once

#include "workbench/cli/context/command.h"

#include <string>
#include <vector>

namespace workbench {

/// What is to be done to a group.
struct TGroupRequest {
  std::string Action;             ///< "add", "remove" or "list"
  std::vector<std::string> Names; ///< of the group, then of profiles
  bool DryRun = false;
};

/// Does it and prints the outcome. Throws TUsageError for what cannot be asked, TInputError and
/// TSaveError.
void RunProfileGroup(TCommandContext& context, const TGroupRequest& request);

} // namespace workbench
