// A person who puts files from beyond a project's tree on its list means to send them.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/cli/entries/change_report.h"

#include <vector>

namespace workbench {

/// Keeps the user's yes to the files that were added and stand beyond the project's tree; names
/// with macros are left out. Throws TInputError for damaged settings.
void AllowAddedSources(TCommandContext& context, const TOpenProject& project,
                       const std::vector<TEntryChange>& changes);

} // namespace workbench
