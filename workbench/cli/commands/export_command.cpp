// deploymgr export: writes the side file for command-line builds.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/solution_run.h"
#include "workbench/cli/context/target.h"

namespace workbench {
namespace {

class TExportCommand final : public ICommand {
public:
  std::string Name() const override { return "export"; }
  std::string Summary() const override { return "Write <project>.deployproj for builds"; }
  void AddOptions(IOptions& options) override {
    AddProjectsArgument(options, FProject);
    options.Flag("--dry-run", FChange.DryRun, "Say what would be written; write nothing");
    AddCheckOption(options, FChange);
    options.Flag("--yes", FChange.Yes, "Answer every question with yes (an export asks none)");
  }

  int Run(TCommandContext& context) override {
    return RunForProjects(context, FProject, TOpenPurpose::Look, TWorkTargets::All,
                          [this](TCommandContext& part, TOpenProject& project) {
                            return ExportProject(part, project);
                          });
  }

private:
  int ExportProject(TCommandContext& context, TOpenProject& project) const {
    WarnOfTarget(context, &project, "the side file holds every target");
    const std::size_t told = project.Warnings().size();
    const TSaveReport report = FChange.IsDry() ? project.PlanExport() : project.Export();
    WarnSince(context, project, told);
    const std::string file = report.SideFile.string();
    if (context.Output.IsJson())
      context.Output.Document({{"project", project.GivenFileName().string()},
                               {"sideFile", file},
                               {"changed", report.SideFileWritten},
                               {"dryRun", FChange.IsDry()}});
    const std::string done = FChange.IsDry() ? "would write " : "wrote ";
    context.Output.Line((report.SideFileWritten ? done : "up to date: ") + Visible(file));
    return StatusOf(FChange, report.SideFileWritten);
  }

  std::string FProject;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeExportCommand() {
  return std::make_unique<TExportCommand>();
}

} // namespace workbench
