// deploymgr status of several targets at once.
#pragma once

#include "workbench/cli/context/target.h"
#include "workbench/cli/targets/target_options.h"

#include <string>

namespace workbench {

struct TTargetsStatus {
  const TTargetOptions& Targets;
  bool Offline = false;     ///< what was known when each target was looked at last
  bool Differences = false; ///< the table leaves out what is the same on every target
  std::string SortKey = {}; ///< of the rows; empty: they stay as they are
  bool SortsDown = false;
};

/// Asks each of the profiles, and prints a table of files and targets or the document. Returns the
/// exit status; throws as ICommand::Run does when nothing was begun.
int StatusOfTargets(TCommandContext& context, TOpenProject& project, const TTarget& target,
                    const TTargetsStatus& wanted);

} // namespace workbench
