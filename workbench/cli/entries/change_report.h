// Tells what a changing command did, or would do, and saves it.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "workbench/cli/context/command.h"

#include <string>
#include <vector>

namespace workbench {

/// What was done to one entry.
struct TEntryChange {
  std::string LocalName;
  std::string Configuration;
  std::string Platform;
  std::string Action; ///< "added", "removed", "changed", "unchanged" or "present"
};

/// Saves the project when it has changes, unless this is a dry run, and prints one line per change
/// or the JSON document {"project","changed","dryRun","files"}. True when something changed or
/// would. Throws TSaveError, and TInputError where the installation is not complete.
bool SaveAndReport(TCommandContext& context, TOpenProject& project, const TChangeOptions& options,
                   const std::vector<TEntryChange>& changes);

} // namespace workbench
