// Runs command lines of a project on this machine.
#pragma once

#include "workbench/process/process_run.h"

#include <atomic>
#include <filesystem>
#include <string>

namespace workbench {

/// Runs a command line with the system's shell in a directory and waits for it. `hear` gets the
/// lines that it prints; it reads nothing. Returns why it failed, such as "ended with status 3";
/// empty when it ended well. When `cancelled` is not 0 any more, the command is ended.
std::string RunCommandLine(const std::string& command, const std::filesystem::path& directory,
                           const THearLine& hear, const std::atomic<int>& cancelled);

/// Runs a program and hands over the lines that it prints. Returns why it failed, as above.
std::string RunAndHear(const TProcessStart& start, const THearLine& hear,
                       const std::atomic<int>& cancelled);

} // namespace workbench
