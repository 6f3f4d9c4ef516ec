// deploymgr export: writes the side file for command-line builds.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"

namespace workbench {
namespace {

class TExportCommand final : public ICommand {
public:
  std::string Name() const override { return "export"; }
  std::string Summary() const override { return "Write <project>.deployproj for builds"; }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Flag("--dry-run", FDryRun, "Say what would be written; write nothing");
    options.Flag("--yes", FYes, "Answer every question with yes (an export asks none)");
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    WarnOfTarget(context, &project, "the side file holds every target");
    TSaveReport report;
    if (FDryRun)
      report.SideFile = std::filesystem::path(FProject).replace_extension(".deployproj");
    else
      report = Export(context, project);
    const std::string file = report.SideFile.string();
    if (context.Output.IsJson())
      context.Output.Document({{"project", FProject},
                               {"sideFile", file},
                               {"changed", report.SideFileWritten},
                               {"dryRun", FDryRun}});
    context.Output.Line((FDryRun                  ? "would write "
                         : report.SideFileWritten ? "wrote "
                                                  : "up to date: ") +
                        Visible(file));
    return exit_status::Done;
  }

private:
  static TSaveReport Export(TCommandContext& context, TOpenProject& project) {
    const std::size_t told = project.Warnings().size();
    TSaveReport report = project.Export();
    WarnSince(context, project, told);
    return report;
  }

  std::string FProject;
  bool FDryRun = false;
  bool FYes = false;
};

} // namespace

std::unique_ptr<ICommand> MakeExportCommand() {
  return std::make_unique<TExportCommand>();
}

} // namespace workbench
