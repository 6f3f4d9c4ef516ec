// deploymgr explain --output: where the path of what a build makes comes from.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"

namespace workbench {

/// Prints every step that leads to the output's path, or the document of --json.
void ExplainOutput(TCommandContext& context, const TOpenProject& project, const TTarget& target);

/// Every step, as [{"name","value","text","source","file","line","unknown"}].
TJson OutputStepsAsJson(const TOpenProject& project, const TTarget& target);

/// The steps as lines of text below an entry.
void PrintOutputSteps(TOutput& output, const TOpenProject& project, const TTarget& target);

} // namespace workbench
