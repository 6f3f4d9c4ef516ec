// deploymgr classes: the classes of a project, or those that ship with the workbench.
#include "package/host/api/default_deployment.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/entry_json.h"
#include "workbench/cli/entries/entry_text.h"

#include <algorithm>

namespace workbench {
namespace {

class TClassesCommand final : public ICommand {
public:
  std::string Name() const override { return "classes"; }
  std::string Summary() const override {
    return "Show the classes of a project, or the shipped ones";
  }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject, /*required=*/false);
  }

  int Run(TCommandContext& context) override {
    TOpenProject* project = nullptr;
    if (!FProject.empty()) {
      project = &OpenProject(context, FProject, TOpenPurpose::Look);
      deployment::EnsureDefaultDeployment(project->Deployment());
    }
    WarnOfConfiguration(context, "classes have no configuration");
    CheckTargetOptions(context, project);
    auto classes = project ? project->Deployment().GetClasses() : context.Session.ShippedClasses();
    const std::string& platform = context.Options.Platform;
    if (!platform.empty() && platform != AllPlatformsArgument)
      std::erase_if(classes, [&](const auto& entry) { return !HasPlatform(*entry, platform); });
    if (context.Output.IsJson())
      context.Output.Document({{"classes", ClassesAsJson(classes)}});
    for (const auto& entry : classes)
      context.Output.Line(ClassLine(*entry, context.Output));
    return exit_status::Done;
  }

private:
  static bool HasPlatform(const deployment::IProjectDeploymentClass& entry,
                          const std::string& platform) {
    const auto platforms = entry.GetPlatforms();
    return std::any_of(platforms.begin(), platforms.end(), [&](const std::string& own) {
      return own == platform || own == deployment::FallbackPlatform;
    });
  }

  std::string FProject;
};

} // namespace

std::unique_ptr<ICommand> MakeClassesCommand() {
  return std::make_unique<TClassesCommand>();
}

} // namespace workbench
