// What a command throws, as a message and an exit status.
#pragma once

#include "workbench/cli/context/output.h"

#include <functional>

namespace workbench {

/// Runs the action and returns its exit status. What it throws is said on the output, as the error
/// document too, and its status is returned. Errors that the package raised are made of its code:
/// the session must live meanwhile.
int Reported(TOutput& output, const std::function<int()>& action);

} // namespace workbench
