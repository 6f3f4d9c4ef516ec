// Runs command lines of a project on this machine.
#pragma once

#include <atomic>
#include <filesystem>
#include <string>

namespace workbench {

/// Runs a command line with the system's shell in a directory and waits for it. What it prints goes
/// to standard error, since standard output carries results; it reads nothing. Returns why it
/// failed, such as "ended with status 3"; empty when it ended well. When `cancelled` is not 0 any
/// more, the command is asked to end.
std::string RunCommandLine(const std::string& command, const std::filesystem::path& directory,
                           const std::atomic<int>& cancelled);

} // namespace workbench
