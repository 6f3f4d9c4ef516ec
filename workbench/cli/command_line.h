// From arguments to exit status: finds the command, runs it and reports what went wrong.
#pragma once

namespace workbench {

/// What was built.
struct TProgramVersion {
  const char* Version; ///< such as "0.1.0"
  const char* Commit;  ///< as the version control describes it; empty when it was not there
};

/// Runs deploymgr with the arguments of a process. Never throws.
int RunCommandLine(int argc, const char* const* argv, const TProgramVersion& version) noexcept;

} // namespace workbench
