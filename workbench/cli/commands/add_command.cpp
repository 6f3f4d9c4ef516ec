// deploymgr add: puts files on the list.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/context/text_check.h"
#include "workbench/cli/entries/change_report.h"
#include "workbench/project/project_settings.h"
#include "workbench/session/added_file.h"

namespace workbench {
namespace {

// The command line tells a wrong name from a file that is of the wrong kind.
TAddedFile LocalNameOfArgument(const std::string& argument, const TOpenProject& project) {
  try {
    return LocalNameOf(argument, project.GivenFileName());
  } catch (const TAddError& error) {
    if (error.Reason() == TAddError::TReason::Directory)
      throw TWorkError(error.what());
    throw TUsageError(error.what());
  }
}

class TAddCommand final : public ICommand {
public:
  std::string Name() const override { return "add"; }
  std::string Summary() const override { return "Put files on the list for a target"; }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Texts("FILE", FFiles, "Files on this machine, or names with macros").Required();
    options.Text("--class", FClass, "Deployment class").ShowDefault();
    options.Text("--remote-dir", FRemoteDir, "Directory on the target");
    options.Text("--remote-name", FRemoteName, "Name on the target");
    options.Flag("--disabled", FDisabled, "Do not deploy the files yet");
    AddChangeOptions(options, FChange);
    options.Footer(
        "With \"-p all\" the entry answers for every platform; it is stored under \"All\".");
  }

  int Run(TCommandContext& context) override {
    if (!FRemoteName.empty() && FFiles.size() > 1)
      throw TUsageError("--remote-name goes with one file only");
    CheckStorable("--class", FClass);
    CheckStorable("--remote-dir", FRemoteDir);
    CheckStorable("--remote-name", FRemoteName);
    TOpenProject& project =
        OpenProject(context, FProject, FChange.DryRun ? TOpenPurpose::Look : TOpenPurpose::Edit);
    const TTarget target = ChooseTarget(context, project);
    const std::string configuration = target.Configuration.empty()
                                          ? std::string(deployment::BaseConfiguration)
                                          : target.Configuration;
    if (!project.Settings().FindConfiguration(configuration))
      CheckName("configuration", configuration);
    const std::string platform =
        target.AllPlatforms ? std::string(deployment::FallbackPlatform) : target.Platform;
    std::vector<TAddedFile> added;
    added.reserve(FFiles.size());
    for (const std::string& file : FFiles)
      added.push_back(LocalNameOfArgument(file, project));
    std::vector<TEntryChange> changes;
    changes.reserve(added.size());
    for (const TAddedFile& file : added)
      changes.push_back({file.LocalName, configuration, platform,
                         AddEntry(context, project, file, configuration, platform)});
    WarnOfUnknownClass(context, project);
    SaveAndReport(context, project, FChange, changes);
    return exit_status::Done;
  }

private:
  // Returns what was done.
  std::string AddEntry(TCommandContext& context, TOpenProject& project, const TAddedFile& file,
                       const std::string& configuration, const std::string& platform) const {
    const std::string given = project.GivenFileName().string();
    const bool added = workbench::AddEntry(
        project, context.Session.Platforms(),
        {file.LocalName, configuration, platform, FClass, FRemoteDir, FRemoteName, !FDisabled});
    if (!added)
      context.Output.Warn({"\"" + file.LocalName + "\" is on the list for " + configuration + ", " +
                               platform + " already; \"set\" changes it",
                           given, 0});
    else if (!file.Exists)
      context.Output.Warn({"there is no file \"" + file.LocalName + "\" now", given, 0});
    return added ? "added" : "present";
  }

  void WarnOfUnknownClass(TCommandContext& context, TOpenProject& project) const {
    // A list without the class of users' files is common and harmless.
    if (FClass != UserFileClass && !project.Deployment().FindClass(FClass))
      context.Output.Warn(
          {"the project has no class \"" + FClass + "\"", project.GivenFileName().string(), 0});
  }

  std::string FProject;
  std::vector<std::string> FFiles;
  std::string FClass{UserFileClass};
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
