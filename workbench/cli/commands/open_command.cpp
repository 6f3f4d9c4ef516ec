// deploymgr open: starts the window.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/project_argument.h"
#include "workbench/cli/context/target.h"
#include "workbench/files/file_descriptor.h"
#include "workbench/files/machine_path.h"
#include "workbench/session/solution_projects.h"

#include <csignal>
#include <cstdlib>

namespace workbench {
namespace {

constexpr const char* WindowProgram = "deployment-manager";

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

class TOpenCommand final : public ICommand {
public:
  std::string Name() const override { return "open"; }
  std::string Summary() const override { return "Open the project in the window"; }
  void AddOptions(IOptions& options) override {
    AddProjectsArgument(options, FProject);
    options.Footer("--config and --platform choose the target that the window shows.");
  }

  int Run(TCommandContext& context) override {
    CheckProject(context);
    const std::filesystem::path program = RunningProgram().parent_path() / WindowProgram;
    if (::access(program.c_str(), X_OK) != 0)
      throw TWorkError("the window, " + program.string() +
                       ", cannot be started: " + SystemReason(errno));
    if (!IsSet("DISPLAY") && !IsSet("WAYLAND_DISPLAY") && !IsSet("QT_QPA_PLATFORM"))
      throw TWorkError("there is no screen: neither DISPLAY nor WAYLAND_DISPLAY is set; the other "
                       "commands work without one");
    Start(program, context.Options);
  }

private:
  // What the window would refuse is said here, where the command was given.
  void CheckProject(TCommandContext& context) {
    FProject = FindProject(FProject).string();
    if (IsSolutionName(FProject)) {
      context.Session.CheckInstallation();
      const TOpenSolution solution(FProject);
      return CheckPlatformOption(context, nullptr);
    }
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    project.Deployment();
    CheckTargetOptions(context, &project);
    context.Session.Close(project);
  }

  // The window takes the place of this program.
  [[noreturn]] void Start(const std::filesystem::path& program,
                          const TCommonOptions& options) const {
    std::vector<std::string> arguments{program.string()};
    const auto pass = [&](const char* name, const std::string& value) {
      if (!value.empty())
        arguments.push_back(name + ("=" + value));
    };
    pass("--root", options.Root);
    pass("--config", options.Configuration);
    pass("--platform", options.Platform);
    arguments.insert(arguments.end(), {"--", FProject});
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments)
      pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    std::signal(SIGPIPE, SIG_DFL);
    ::execv(program.c_str(), pointers.data());
    throw TWorkError("the window, " + program.string() +
                     ", cannot be started: " + SystemReason(errno));
  }

  std::string FProject;
};

} // namespace

std::unique_ptr<ICommand> MakeOpenCommand() {
  return std::make_unique<TOpenCommand>();
}

} // namespace workbench
