#include "workbench/deploy/step_runner.h"

#include "workbench/deploy/unpacking.h"

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

} // namespace workbench
