// From arguments to exit status: finds the command, runs it and reports what went wrong.
#pragma once

namespace workbench {

/// Runs deploymgr with the arguments of a process. Never throws.
int RunCommandLine(int argc, const char* const* argv) noexcept;

} // namespace workbench
