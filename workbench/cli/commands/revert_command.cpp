// deploymgr revert: back to the default entries and classes.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/changes_output.h"
#include "workbench/cli/entries/entry_json.h"
#include "workbench/explain/list_changes.h"
#include "workbench/project/project_settings.h"

#include <algorithm>

namespace workbench {
namespace {

class TRevertCommand final : public ICommand {
public:
  std::string Name() const override { return "revert"; }
  std::string Summary() const override {
    return "Go back to the default entries and classes of a platform";
  }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Flag("--all-platforms", FAllPlatforms, "Every platform, not the chosen one alone");
    options.Flag("--drop-added", FDropAdded, "Drop the files of class \"File\" too");
    AddChangeOptions(options, FChange);
    options.Footer("All configurations of the platform are reverted. Files that were added by hand "
                   "stay, unless --drop-added is given.");
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, FChange.Purpose());
    context.Session.RequireDefaults();
    WarnOfConfiguration(context, "a revert is for all configurations");
    const std::vector<std::string> platforms = Platforms(context, project);
    deployment::IProjectDeployment& deployment = project.Deployment();
    const std::size_t told = project.Warnings().size();
    TListChanges list(deployment);
    const TJson classesBefore = ClassesAsJson(deployment.GetClasses());
    deployment.Revert(platforms, !FDropAdded);
    const TTargetChanges changes = list.Finish().front();
    const bool classesChanged = ClassesAsJson(deployment.GetClasses()) != classesBefore;
    WarnSince(context, project, told);
    if (classesChanged)
      project.MarkChanged();
    const bool changed = classesChanged || !changes.IsEmpty();
    if (changed)
      project.RequireShippedFiles();
    if (!FChange.IsDry())
      Save(context, project, changed);
    Report(context, project, platforms, changes, classesChanged);
    return exit_status::Done;
  }

private:
  std::vector<std::string> Platforms(TCommandContext& context, TOpenProject& project) const {
    CheckTargetOptions(context, &project);
    const std::string& chosen = context.Options.Platform;
    if (!FAllPlatforms && chosen != AllPlatformsArgument)
      return {chosen.empty() ? project.Settings().ActivePlatform() : chosen};
    if (!chosen.empty() && chosen != AllPlatformsArgument)
      throw TUsageError("--all-platforms and --platform \"" + chosen + "\" exclude each other");
    return AllPlatforms(project);
  }

  // Those of the project, and those that only entries of the list have.
  static std::vector<std::string> AllPlatforms(TOpenProject& project) {
    std::vector<std::string> names;
    const auto add = [&names](const std::string& name) {
      if (std::find(names.begin(), names.end(), name) == names.end())
        names.push_back(name);
    };
    for (const TProjectPlatform& platform : project.Settings().Platforms())
      add(platform.Name);
    for (const auto& file : project.Deployment().GetFiles()) {
      for (const std::string& platform : file->GetPlatforms()) {
        if (platform != deployment::FallbackPlatform && platform != deployment::sAllPlatforms)
          add(platform);
      }
    }
    return names;
  }

  void Save(TCommandContext& context, TOpenProject& project, bool changed) const {
    const std::size_t told = project.Warnings().size();
    if (changed)
      project.Save(FChange.ForceSave);
    else
      project.RefreshSideFile();
    WarnSince(context, project, told);
  }

  void Report(TCommandContext& context, const TOpenProject& project,
              const std::vector<std::string>& platforms, const TTargetChanges& changes,
              bool classesChanged) const {
    const bool changed = classesChanged || !changes.IsEmpty();
    if (context.Output.IsJson()) {
      TJson document = {{"project", project.GivenFileName().string()},
                        {"changed", changed},
                        {"dryRun", FChange.DryRun},
                        {"platforms", platforms},
                        {"classesChanged", classesChanged}};
      document.AddAll(ChangesAsJson(changes));
      context.Output.Document(document);
      return;
    }
    PrintChanges(context.Output, changes, FChange.IsDry());
    if (classesChanged)
      context.Output.Line(FChange.IsDry() ? "would read the default classes again"
                                          : "read the default classes again");
    if (!changed)
      context.Output.Line("nothing to do");
  }

  std::string FProject;
  bool FAllPlatforms = false;
  bool FDropAdded = false;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeRevertCommand() {
  return std::make_unique<TRevertCommand>();
}

} // namespace workbench
