// deploymgr remove: takes files off the list.
#include "package/common/delimited_list.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/project_argument.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/change_report.h"
#include "workbench/cli/entries/entry_filter.h"
#include "workbench/cli/entries/entry_lookup.h"

namespace workbench {
namespace {

class TRemoveCommand final : public ICommand {
public:
  std::string Name() const override { return "remove"; }
  std::string Summary() const override { return "Take files off the list"; }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Texts("FILE", FFiles, "Local names as the list has them").Required();
    AddChangeOptions(options, FChange);
    options.Footer(
        "Without --yes each file is asked about; \"a\" answers for it and all further ones.");
  }

  int Run(TCommandContext& context) override {
    CheckOrder("remove", FProject, FFiles);
    TOpenProject& project = OpenProject(context, FProject, FChange.Purpose());
    CheckFilterOptions(context, project);
    deployment::IProjectDeployment& deployment = project.Deployment();
    const TEntryLookup lookup(deployment.GetFiles(), context.Options, TPlatformNarrowing::Always);
    const deployment::TDeploymentFiles files = lookup.FindAll(FFiles);
    std::vector<TEntryChange> changes;
    for (const auto& file : files) {
      if (!MayRemove(context, *file, files.size() > 1))
        continue;
      changes.push_back({file->GetLocalName(), file->GetConfiguration(),
                         deployment::JoinDelimited(file->GetPlatforms(), ","), "removed"});
      deployment.RemoveFileEntry(*file);
    }
    SaveAndReport(context, project, FChange, changes);
    return exit_status::Done;
  }

private:
  // Throws TWorkError without an answer; nothing is saved then.
  bool MayRemove(const TCommandContext& context, const deployment::IProjectDeploymentFile& file,
                 bool several) {
    if (FChange.DryRun || FChange.Yes || FYesToAll)
      return true;
    const TAnswer answer = context.Output.Ask(
        "Are you sure you want to delete file \"" + file.GetLocalName() + "\"?", several);
    if (answer == TAnswer::None)
      throw TWorkError("nothing was removed, since nobody could be asked; --yes removes without "
                       "a question");
    FYesToAll = answer == TAnswer::YesToAll;
    return FYesToAll || answer == TAnswer::Yes;
  }

  std::string FProject;
  std::vector<std::string> FFiles;
  TChangeOptions FChange;
  bool FYesToAll = false;
};

} // namespace

std::unique_ptr<ICommand> MakeRemoveCommand() {
  return std::make_unique<TRemoveCommand>();
}

} // namespace workbench
