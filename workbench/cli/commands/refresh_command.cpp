// deploymgr refresh: brings a project that was made from a build in line with it.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/options.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/build_changes.h"
#include "workbench/cli/entries/change_report.h"
#include "workbench/cli/targets/source_permission.h"
#include "workbench/project/build_import/build_directory.h"
#include "workbench/session/build_refresh.h"

namespace workbench {
namespace {

class TRefreshCommand final : public ICommand {
public:
  std::string Name() const override { return "refresh"; }
  std::string Summary() const override {
    return "Bring a project that was made from a build in line with its install rules";
  }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    AddChangeOptions(options, FChange);
    options.Footer("What you changed on an entry stays, and so does what you took off the list.");
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project =
        OpenProject(context, FProject, FChange.DryRun ? TOpenPurpose::Look : TOpenPurpose::Edit);
    WarnOfTarget(context, &project, "\"refresh\" works for the build's own platform");
    TBuildRecord record = ReadBuildRecord(project);
    const TInstallPlan plan = ReadBuildDirectory(BuildDirectoryOf(project, record),
                                                 record.Components, /*mayRun=*/!FChange.DryRun);
    const std::string platform = record.Platform;
    const TBuildRefresh done = ApplyInstallPlan(project, std::move(record), plan);
    const std::vector<TEntryChange> changes = BuildChanges(context, project, platform, done);
    if (!FChange.DryRun)
      AllowAddedSources(context, project, changes);
    SaveAndReport(context, project, FChange, changes);
    return exit_status::Done;
  }

private:
  std::string FProject;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeRefreshCommand() {
  return std::make_unique<TRefreshCommand>();
}

} // namespace workbench
