// deploymgr add: puts files on the list.
#include "package/common/delimited_list.h"
#include "package/host/api/default_deployment.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/name_hint.h"
#include "workbench/cli/context/project_argument.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/context/text_check.h"
#include "workbench/cli/entries/change_report.h"
#include "workbench/cli/entries/file_arguments.h"
#include "workbench/cli/targets/source_permission.h"
#include "workbench/project/project_settings.h"
#include "workbench/session/entry_adder.h"

namespace workbench {
namespace {

class TAddCommand final : public ICommand {
public:
  std::string Name() const override { return "add"; }
  std::string Summary() const override { return "Put files on the list for a target"; }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Texts("FILE", FFiles.Files, "Files on this machine, names with macros, or patterns");
    options.Texts("--tree", FFiles.Trees, "All files of a directory, with its structure")
        .ValueName("DIR");
    options.Flag("--missing-ok", FFiles.MissingOk, "Add files that are not there yet");
    options.Flag("--outside", FFiles.Outside, "Add files from beyond the project's directory");
    options.Text("--class", FClass, "Deployment class").ShowDefault();
    options.Text("--remote-dir", FRemoteDir, "Directory on the target");
    options.Text("--remote-name", FRemoteName, "Name on the target");
    options.Flag("--disabled", FDisabled, "Do not deploy the files yet");
    AddChangeOptions(options, FChange);
    options.Footer("With \"-p all\" the entry gets every platform of the project. A file that the "
                   "list of the target has already stays as it is; \"set\" changes it.");
  }

  int Run(TCommandContext& context) override {
    CheckArguments();
    TOpenProject& project = OpenProject(context, FProject, FChange.Purpose());
    const TTarget target = ChooseTarget(context, project);
    TNewEntry entry;
    entry.Configuration = target.Configuration.empty() ? std::string(deployment::BaseConfiguration)
                                                       : target.Configuration;
    if (!project.Settings().FindConfiguration(entry.Configuration))
      CheckName("configuration", entry.Configuration);
    entry.Platforms = PlatformsOf(project, target);
    entry.Class = FClass;
    entry.RemoteDir = FRemoteDir;
    entry.RemoteName = FRemoteName;
    entry.Enabled = !FDisabled;
    FFiles.Chains = FRemoteName.empty();
    const std::vector<TAddedFile> files = CollectFiles(context, FFiles, project);
    WarnOfUnknownClass(context, project);
    const std::vector<TEntryChange> changes = Add(context, project, files, std::move(entry));
    if (FFiles.Outside && !FChange.DryRun)
      AllowAddedSources(context, project, changes);
    SaveAndReport(context, project, FChange, changes);
    return exit_status::Done;
  }

private:
  void CheckArguments() const {
    CheckOrder("add", FProject, FFiles.Files);
    if (FFiles.Files.empty() && FFiles.Trees.empty())
      throw TUsageError("nothing is given to be added: name a FILE, or a directory with --tree");
    if (!FRemoteName.empty() && (FFiles.Files.size() > 1 || !FFiles.Trees.empty()))
      throw TUsageError("--remote-name goes with one file only");
    CheckStorable("--class", FClass);
    CheckStorable("--remote-dir", FRemoteDir);
    CheckStorable("--remote-name", FRemoteName);
  }

  static std::vector<std::string> PlatformsOf(const TOpenProject& project, const TTarget& target) {
    if (!target.AllPlatforms)
      return {target.Platform};
    std::vector<std::string> names;
    for (const TProjectPlatform& platform : project.Settings().Platforms())
      names.push_back(platform.Name);
    return names;
  }

  std::vector<TEntryChange> Add(TCommandContext& context, TOpenProject& project,
                                const std::vector<TAddedFile>& files, TNewEntry entry) const {
    if (files.size() > 1 && !FRemoteName.empty())
      throw TUsageError("--remote-name goes with one file only");
    const std::string platforms = deployment::JoinDelimited(entry.Platforms, ",");
    TEntryAdder adder(project, context.Session.Platforms());
    std::vector<TEntryChange> changes;
    changes.reserve(files.size());
    for (const TAddedFile& file : files) {
      entry.LocalName = file.LocalName;
      entry.SubDirectory = file.SubDirectory;
      const TAddOutcome outcome = adder.Add(entry);
      if (outcome == TAddOutcome::Present)
        context.Output.Warn({"\"" + file.LocalName + "\" is on the list for " +
                                 entry.Configuration + ", " + platforms +
                                 " already; \"set\" changes it",
                             project.GivenFileName().string(), 0});
      changes.push_back({file.LocalName, entry.Configuration, platforms,
                         outcome == TAddOutcome::Added      ? "added"
                         : outcome == TAddOutcome::Extended ? "changed"
                                                            : "present"});
    }
    return changes;
  }

  void WarnOfUnknownClass(TCommandContext& context, TOpenProject& project) const {
    // A list without the class of users' files is common and harmless.
    deployment::EnsureDefaultDeployment(project.Deployment());
    if (FClass == deployment::class_names::File || project.Deployment().FindClass(FClass))
      return;
    std::vector<std::string> names;
    for (const auto& known : project.Deployment().GetClasses())
      names.push_back(known->GetClassId());
    context.Output.Warn({"the project has no class \"" + FClass + "\"" + HintAt(FClass, names),
                         project.GivenFileName().string(), 0});
  }

  std::string FProject;
  TFileArguments FFiles;
  std::string FClass{deployment::class_names::File};
  std::string FRemoteDir;
  std::string FRemoteName;
  bool FDisabled = false;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeAddCommand() {
  return std::make_unique<TAddCommand>();
}

} // namespace workbench
