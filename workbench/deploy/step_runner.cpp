#include "workbench/deploy/step_runner.h"

#include "workbench/deploy/shared_work.h"
#include "workbench/deploy/unpacking.h"
#include "workbench/process/command_runner.h"

namespace workbench {

std::string RunAfterStep(const TPlannedFile& file, const TAfterStep& step, const TPlaceRules& rules,
                         IRemoteConnection& connection, const THearLine& hear,
                         const std::atomic<int>& cancelled) {
  const auto failed = [&](const std::string& reason) {
    return "\"" + step.Text(file.Target.Name) + "\" " + reason;
  };
  if (step.Kind == TAfterStep::TKind::Unpack) {
    const std::string problem =
        UnpackOnTarget(file, rules, connection, [&cancelled] { return cancelled != 0; });
    return problem.empty() ? problem : file.Target.Name + " " + problem;
  }
  const TShell shell = connection.Shell();
  if (shell == TShell::None)
    return failed("cannot be run: the machine runs no commands");
  const auto command = step.CommandLine(shell, file.Target.Name);
  if (!command)
    return failed("cannot be said to " + std::string(ShellName(shell)));
  const std::string problem =
      connection.RunCommand(*command, file.Target.Directory, hear, cancelled);
  return problem.empty() ? problem : failed(problem);
}

namespace {

std::string RunInOrder(const TDeployFile& file, const std::filesystem::path& directory,
                       const THearLine& hear, const std::atomic<int>& cancelled) {
  for (const std::string& command : file.LocalCommands) {
    std::string problem = "the run was interrupted";
    if (cancelled == 0)
      problem = RunCommandLine(command, directory, hear, cancelled);
    if (!problem.empty())
      return std::string("the local command \"").append(command).append("\" ").append(problem);
  }
  return {};
}

} // namespace

std::string RunLocalSteps(const TDeployFile& file, const std::filesystem::path& directory,
                          TSharedWork* shared, const THearLine& hear,
                          const std::atomic<int>& cancelled) {
  if (file.LocalCommands.empty())
    return {};
  const auto run = [&] { return RunInOrder(file, directory, hear, cancelled); };
  return shared ? shared->Once(directory.string() + " > " + file.RemoteName, run) : run();
}

} // namespace workbench
