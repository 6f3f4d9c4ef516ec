// What a refresh from a build did to the list, for the reports of commands.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/cli/entries/change_report.h"
#include "workbench/session/build_refresh.h"

#include <string>
#include <vector>

namespace workbench {

/// The changes of the list. Warns of rules that make no entry and of entries that stay as a person
/// made them although the build says otherwise.
std::vector<TEntryChange> BuildChanges(TCommandContext& context, const TOpenProject& project,
                                       const std::string& platform, const TBuildRefresh& done);

} // namespace workbench
