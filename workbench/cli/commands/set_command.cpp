// deploymgr set: edits entries.
#include "package/common/case_fold.h"
#include "package/common/convert.h"
#include "package/common/delimited_list.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/project_argument.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/context/text_check.h"
#include "workbench/cli/entries/change_report.h"
#include "workbench/cli/entries/entry_edit.h"
#include "workbench/cli/entries/entry_lookup.h"
#include "workbench/cli/entries/entry_text.h"
#include "workbench/list/entry_record.h"

#include <algorithm>

namespace workbench {
namespace {

bool BooleanOf(const std::string& option, const std::string& text) {
  const auto value = deployment::TextToBoolean(text);
  if (!value)
    throw TUsageError(option + " takes true or false, not \"" + text + "\"");
  return *value;
}

deployment::TDeployOperation OperationOf(const std::string& text) {
  const auto ordinal = deployment::TextToInteger(text);
  for (int i = 0; i < deployment::DeployOperationCount; ++i) {
    const auto operation = static_cast<deployment::TDeployOperation>(i);
    if (ordinal == i || deployment::SameText(text, OperationName(operation)))
      return operation;
  }
  throw TUsageError("--operation takes 0 to 6, or copy, copy-executable, unpack, run, "
                    "run-and-remove, remove, default; not \"" +
                    text + "\"");
}

class TSetCommand final : public ICommand {
public:
  std::string Name() const override { return "set"; }
  std::string Summary() const override { return "Edit files on the list for a platform"; }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Texts("FILE", FFiles, "Local names as the list has them").Required();
    FEnabledOption = &options.Text("--enabled", FEnabled, "Deploy the file: true or false");
    FOverwriteOption =
        &options.Text("--overwrite", FOverwrite, "Replace the file on the target: true or false");
    FRequiredOption =
        &options.Text("--required", FRequired, "The file cannot be left out: true or false");
    FRemoteDirOption = &options.Text("--remote-dir", FRemoteDir, "Directory on the target");
    FRemoteNameOption =
        &options.Text("--remote-name", FRemoteName, "Name on the target; empty for the local one");
    FOperationOption =
        &options.Text("--operation", FOperation, "What is done on the target: 0 to 6, or its name");
    FConditionOption = &options.Text("--condition", FCondition, "MSBuild condition");
    FLocalCommandOption =
        &options.Text("--local-command", FLocalCommand,
                      "Command to run here before the file is copied; empty for none");
    FRemoteCommandOption =
        &options.Text("--remote-command", FRemoteCommand,
                      "Command to run on the target when the file is there; empty for none");
    options.Texts("--add-platform", FEdit.AddPlatforms, "Deploy to this platform too");
    options.Texts("--remove-platform", FEdit.RemovePlatforms, "Deploy to this platform no more");
    AddChangeOptions(options, FChange);
    options.Footer("With \"-p all\" every platform that an entry has is edited.");
  }

  int Run(TCommandContext& context) override {
    ReadEdit();
    CheckOrder("set", FProject, FFiles);
    TOpenProject& project = OpenProject(context, FProject, FChange.Purpose());
    for (const std::string& platform : FEdit.AddPlatforms)
      CheckPlatform(context, &project, platform);
    CheckTargetOptions(context, &project);
    const TEntryLookup lookup(project.Deployment().GetFiles(), context.Options,
                              TPlatformNarrowing::WhenSeveral);
    const deployment::TDeploymentFiles files = lookup.FindAll(FFiles);
    CheckRemovedPlatforms(context, project, files);
    if (FEdit.Condition) {
      for (const auto& file : files)
        CheckCondition(*FEdit.Condition, project, *file);
    }
    const TTarget target = ChooseTarget(context, project);
    std::vector<TEntryChange> changes;
    for (const auto& file : files)
      changes.push_back(Edit(project, *file, target));
    SaveAndReport(context, project, FChange, changes);
    return exit_status::Done;
  }

private:
  void ReadEdit() {
    if (FEnabledOption->IsGiven())
      FEdit.Enabled = BooleanOf("--enabled", FEnabled);
    if (FOverwriteOption->IsGiven())
      FEdit.Overwrite = BooleanOf("--overwrite", FOverwrite);
    if (FRequiredOption->IsGiven())
      FEdit.Required = BooleanOf("--required", FRequired);
    if (FRemoteDirOption->IsGiven())
      FEdit.RemoteDir = FRemoteDir;
    if (FRemoteNameOption->IsGiven())
      FEdit.RemoteName = FRemoteName;
    if (FOperationOption->IsGiven())
      FEdit.Operation = OperationOf(FOperation);
    if (FConditionOption->IsGiven())
      FEdit.Condition = FCondition;
    if (FLocalCommandOption->IsGiven())
      FEdit.LocalCommand = FLocalCommand;
    if (FRemoteCommandOption->IsGiven())
      FEdit.RemoteCommand = FRemoteCommand;
    if (FEdit.IsEmpty())
      throw TUsageError("nothing is given to be set; see \"deploymgr set --help\"");
    CheckStorable("--remote-dir", FRemoteDir);
    CheckStorable("--remote-name", FRemoteName);
    CheckStorable("--condition", FCondition);
    CheckStorable("--local-command", FLocalCommand);
    CheckStorable("--remote-command", FRemoteCommand);
    for (const std::string& platform : FEdit.AddPlatforms) {
      if (std::ranges::count(FEdit.RemovePlatforms, platform) > 0)
        throw TUsageError("platform \"" + platform + "\" is to be added and removed at once");
    }
  }

  // A platform that nobody knows can be taken from an entry that has it.
  void CheckRemovedPlatforms(TCommandContext& context, const TOpenProject& project,
                             const deployment::TDeploymentFiles& files) const {
    for (const std::string& platform : FEdit.RemovePlatforms) {
      const bool held = std::ranges::any_of(files, [&](const auto& file) {
        return std::ranges::count(file->GetPlatforms(), platform) > 0;
      });
      if (!held)
        CheckPlatform(context, &project, platform);
    }
  }

  TEntryChange Edit(TOpenProject& project, deployment::IProjectDeploymentFile& file,
                    const TTarget& target) const {
    const std::vector<std::string> platforms =
        target.AllPlatforms ? file.GetPlatforms() : std::vector<std::string>{target.Platform};
    const TEntryRecord before = RecordOf(file);
    ApplyEdit(FEdit, file, platforms);
    const bool changed = RecordOf(file) != before;
    // A new record that holds nothing but defaults is a change that no listener hears of.
    if (changed)
      project.MarkChanged();
    return {file.GetLocalName(), file.GetConfiguration(),
            deployment::JoinDelimited(file.GetPlatforms(), ","), changed ? "changed" : "unchanged"};
  }

  std::string FProject;
  std::vector<std::string> FFiles;
  std::string FEnabled, FOverwrite, FRequired, FRemoteDir, FRemoteName, FOperation, FCondition,
      FLocalCommand, FRemoteCommand;
  IOption *FEnabledOption = nullptr, *FOverwriteOption = nullptr, *FRequiredOption = nullptr,
          *FRemoteDirOption = nullptr, *FRemoteNameOption = nullptr, *FOperationOption = nullptr,
          *FConditionOption = nullptr, *FLocalCommandOption = nullptr,
          *FRemoteCommandOption = nullptr;
  TEntryEdit FEdit;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeSetCommand() {
  return std::make_unique<TSetCommand>();
}

} // namespace workbench
