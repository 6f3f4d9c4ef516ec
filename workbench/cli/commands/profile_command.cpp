// deploymgr profile: the user's remote profiles.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/project/project_settings.h"
#include "workbench/remote/profile/profile_check.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/remote/profile/profile_json.h"
#include "workbench/services/remote_profile_services.h"

namespace workbench {
namespace {

class TProfileCommand final : public ICommand {
public:
  std::string Name() const override { return "profile"; }
  std::string Summary() const override {
    return "List, add, remove, test and assign remote profiles";
  }

  void AddOptions(IOptions& options) override {
    options
        .Choice("ACTION", FAction, {"list", "add", "remove", "test", "assign"},
                "list, add, remove, test or assign")
        .Required();
    options.Text("NAME", FName, "Name of the profile; for assign \"\" takes it away");
    options.Text("PROJECT", FProject, "Project file, for assign");
    FAddOptions = {
        &options.Text("--kind", FKind, "How the machine is reached: folder or ssh"),
        &options.Text("--path", FProfile.Path, "Directory below which everything is put"),
        &options.Flag("--default", FProfile.IsDefault, "Make it the platform's default profile"),
        &options.Flag("--allow-outside", FProfile.AllowOutside,
                      "Allow directories beyond the path"),
        &options.Flag("--stateless", FProfile.Stateless,
                      "Leave no record of deploys on the target"),
        &options.Text("--after-deploy", FProfile.AfterDeploy,
                      "Command for the target, run after a deploy that changed something"),
    };
    FSshOptions = {
        &options.Text("--host", FProfile.Host, "ssh: name or address of the machine"),
        &options.Number("--port", FProfile.Port, 1, 65535, "ssh: port"),
        &options.Text("--user", FProfile.User, "ssh: user on the machine"),
        &options.Text("--identity", FProfile.Identity, "ssh: file of the key"),
        &options.Texts("--ssh-option", FProfile.SshOptions,
                       "ssh: KEY=VALUE for the client, as in its configuration; may be repeated"),
        &options.Flag("--compress", FProfile.Compress,
                      "ssh: compress what travels, for thin lines"),
        &options.Number("--connect-timeout", FProfile.ConnectTimeout, 1, 3600,
                        "ssh: seconds to wait for the machine"),
        &options.Number("--keep-alive", FProfile.KeepAlive, 1, 3600,
                        "ssh: seconds between two signs of life"),
    };
    options.Text("--password", FPassword, "Refused with advice").Hidden();
    AddChangeOptions(options, FChange);
  }

  int Run(TCommandContext& context) override {
    CheckArguments();
    CheckTargetOptions(context, nullptr);
    if (FAction == "list")
      List(context);
    else if (FAction == "add")
      Add(context);
    else if (FAction == "remove")
      Remove(context);
    else if (FAction == "test")
      return Test(context);
    else
      Assign(context);
    return exit_status::Done;
  }

private:
  void CheckArguments() const {
    const bool isAssign = FAction == "assign";
    if (FAction == "list" && !FName.empty())
      throw TUsageError("profile list takes no name");
    if (FAction != "list" && !isAssign && FName.empty())
      throw TUsageError("profile " + FAction + " needs the name of a profile");
    if (isAssign == FProject.empty())
      throw TUsageError(isAssign ? std::string("profile assign needs a profile and a project file")
                                 : "profile " + FAction + " takes no project file");
    if (!FPassword.empty())
      throw TUsageError("a password on the command line can be read by others; use a key or the "
                        "agent, or answer when you are asked");
    if (FAction != "add") {
      RefuseAny(FAddOptions, " is for profile add only");
      RefuseAny(FSshOptions, " is for profile add only");
    } else if (FKind == ProfileKindName(TProfileKind::Folder)) {
      RefuseAny(FSshOptions, " is for profiles of kind ssh");
    }
  }

  static void RefuseAny(const std::vector<IOption*>& options, const char* reason) {
    for (const IOption* option : options) {
      if (option->IsGiven())
        throw TUsageError(option->Name() + reason);
    }
  }

  static std::string RequirePlatform(TCommandContext& context, const std::string& action) {
    const std::string& platform = context.Options.Platform;
    if (platform.empty() || platform == AllPlatformsArgument)
      throw TUsageError("profile " + action + " needs a platform; name it with --platform");
    return platform;
  }

  static const TProfile& Require(TCommandContext& context, const std::string& name) {
    const TProfile* profile = context.Session.RemoteProfiles().Profiles().Find(name);
    if (profile)
      return *profile;
    std::string known;
    for (const TProfile& other : context.Session.RemoteProfiles().Profiles().List())
      known += (known.empty() ? "" : ", ") + other.Name;
    throw TUsageError("there is no profile \"" + name + "\"" +
                      (known.empty() ? "; none was added yet" : "; known are: " + known));
  }

  static void List(TCommandContext& context) {
    TJson profiles = TJson::Array();
    for (const TProfile& profile : context.Session.RemoteProfiles().Profiles().List()) {
      if (!context.Options.Platform.empty() && context.Options.Platform != AllPlatformsArgument &&
          profile.Platform != context.Options.Platform)
        continue;
      profiles.Append(ProfileToJson(profile));
      context.Output.Line(Visible(profile.Name) + "  " + Visible(profile.Platform) + "  " +
                          std::string(ProfileKindName(profile.Kind)) + " " + ProfilePlace(profile) +
                          (profile.IsDefault ? "  default" : "") +
                          (profile.AllowOutside ? "  allow-outside" : ""));
    }
    if (context.Output.IsJson())
      context.Output.Document({{"profiles", profiles}});
  }

  TProfile NewProfile(TCommandContext& context) const {
    TProfile profile = FProfile;
    profile.Name = FName;
    profile.Platform = RequirePlatform(context, FAction);
    profile.Kind = ProfileKindFromName(FKind);
    if (profile.Path.empty())
      throw TUsageError("a profile of kind \"" + FKind +
                        "\" needs a directory; name it with --path");
    profile = TidyProfile(std::move(profile));
    CheckProfile(profile);
    return profile;
  }

  void Add(TCommandContext& context) const {
    try {
      const TProfile profile = NewProfile(context);
      if (FChange.DryRun && context.Session.RemoteProfiles().Profiles().Find(FName))
        throw TUsageError("there is a profile \"" + FName + "\" already");
      if (!FChange.DryRun) {
        context.Session.RemoteProfiles().AddProfile(profile);
        // A folder that is missing later is one that was unplugged.
        if (const std::string problem = MakeProfileFolder(profile); !problem.empty())
          context.Output.Warn({problem, {}, 0});
      }
    } catch (const std::invalid_argument& error) {
      throw TUsageError(error.what());
    }
    Say(context, "added");
  }

  void Remove(TCommandContext& context) const {
    Require(context, FName);
    if (!FChange.DryRun)
      context.Session.RemoteProfiles().RemoveProfile(FName);
    Say(context, "removed");
  }

  int Test(TCommandContext& context) const {
    Require(context, FName);
    TRemoteProfileServices& services = context.Session.RemoteProfiles();
    std::string message;
    if (!services.Connect(*services.FindProfile(FName), message))
      throw TExitError(exit_status::NoConnection,
                       "the profile \"" + FName + "\" has no connection: " + message);
    const std::string problem =
        services.Destinations().WriteProblem(*services.Profiles().Find(FName));
    if (context.Output.IsJson())
      context.Output.Document(
          {{"profile", FName}, {"connected", true}, {"writable", problem.empty()}});
    context.Output.Line("connected: " + Visible(FName));
    if (problem.empty())
      return exit_status::Done;
    context.Output.Complain("the path of the profile cannot be written: " + problem);
    return exit_status::WorkFailed;
  }

  void Assign(TCommandContext& context) const {
    const std::string platform = RequirePlatform(context, FAction);
    if (!FName.empty() && Require(context, FName).Platform != platform)
      throw TUsageError("the profile \"" + FName + "\" is one of the platform \"" +
                        Require(context, FName).Platform + "\", not of \"" + platform + "\"");
    TOpenProject& project =
        OpenProject(context, FProject, FChange.DryRun ? TOpenPurpose::Look : TOpenPurpose::Edit);
    const TProjectPlatform* known = project.Settings().FindPlatform(platform);
    if (!known)
      throw TUsageError("the project is not set up for the platform \"" + platform + "\"");
    if (known->Profile == FName) {
      Say(context, {});
      return;
    }
    const std::size_t told = project.Warnings().size();
    if (!FChange.DryRun)
      project.AssignProfile(platform, FName, FChange.ForceSave);
    WarnSince(context, project, told);
    Say(context, "assigned");
  }

  // An empty word says that nothing changed.
  void Say(TCommandContext& context, const std::string& done) const {
    if (context.Output.IsJson())
      context.Output.Document({{"changed", !done.empty()}, {"dryRun", FChange.DryRun}});
    context.Output.Line(done.empty()
                            ? "nothing to do"
                            : (FChange.DryRun ? "would be " : "") + done + ": " + Visible(FName));
  }

  std::string FAction, FName, FProject;
  std::string FKind = "folder";
  std::string FPassword;
  TProfile FProfile; // what the options say
  TChangeOptions FChange;
  std::vector<IOption*> FAddOptions;
  std::vector<IOption*> FSshOptions; // for adding one of kind ssh
};

} // namespace

std::unique_ptr<ICommand> MakeProfileCommand() {
  return std::make_unique<TProfileCommand>();
}

} // namespace workbench
