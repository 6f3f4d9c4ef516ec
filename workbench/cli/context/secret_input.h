// Reads what a person types without showing it.
#pragma once

#include "workbench/process/process_run.h"

#include <optional>
#include <string>

namespace workbench {

/// Asks at the terminal that standard input is. Nothing when the person gave no answer (an end of
/// file, an interrupt) or `isOver` said so. Ctrl-C has its usual effect on the program, with the
/// terminal as it was before.
std::optional<std::string> ReadSecret(const std::string& prompt, const TIsCancelled& isOver);

} // namespace workbench
