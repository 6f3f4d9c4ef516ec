#include "workbench/process/command_runner.h"

namespace workbench {

std::string RunAndHear(const TProcessStart& start, const THearLine& hear,
                       const std::atomic<int>& cancelled) {
  TLineSplitter lines(hear);
  try {
    const TProcessEnd end = RunProcess(
        start, nullptr, [&lines](std::string_view bytes) { lines.Add(bytes); },
        [&cancelled] { return cancelled != 0; });
    lines.Finish();
    return end.Problem();
  } catch (const std::system_error& error) {
    return std::string("cannot be run: ") + error.what();
  }
}

std::string RunCommandLine(const std::string& command, const std::filesystem::path& directory,
                           const THearLine& hear, const std::atomic<int>& cancelled) {
  if (command.find('\0') != std::string::npos)
    return "has a NUL character";
  return RunAndHear({.Command = {"/bin/sh", "-c", command},
                     .Environment = EnvironmentWith({}),
                     .Directory = directory,
                     .JoinErrors = true},
                    hear, cancelled);
}

} // namespace workbench
