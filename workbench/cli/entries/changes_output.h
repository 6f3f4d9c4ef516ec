// What changed in a list, as commands print it.
#pragma once

#include "workbench/cli/context/output.h"
#include "workbench/explain/list_changes.h"

namespace workbench {

/// The lists as JSON: {"added","modified","removed"} with {"localName","class"} entries.
TJson ChangesAsJson(const TTargetChanges& changes);

/// One line for each change, such as "added data\a.dat [File] for Debug, Win32".
void PrintChanges(TOutput& output, const TTargetChanges& changes, bool dryRun);

} // namespace workbench
