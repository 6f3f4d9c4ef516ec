// deploymgr profile: the user's remote profiles.
#include "workbench/cli/command.h"
#include "workbench/cli/commands.h"
#include "workbench/cli/target.h"
#include "workbench/project/project_settings.h"
#include "workbench/remote/remote_profile_services.h"

#include <CLI/CLI.hpp>

namespace workbench {
namespace {

class TProfileCommand final : public ICommand {
public:
  std::string Name() const override { return "profile"; }
  std::string Summary() const override {
    return "List, add, remove, test and assign remote profiles";
  }

  void AddOptions(CLI::App& app) override {
    app.add_option("ACTION", FAction, "list, add, remove, test or assign")
        ->required()
        ->check(CLI::IsMember({"list", "add", "remove", "test", "assign"}));
    app.add_option("NAME", FName, "Name of the profile; for assign \"\" takes it away");
    app.add_option("PROJECT", FProject, "Project file, for assign");
    FKindOption = app.add_option("--kind", FKind, "How the machine is reached: folder");
    FPathOption = app.add_option("--path", FPath, "Directory below which everything is put");
    FDefaultOption = app.add_flag("--default", FDefault, "Make it the platform's default profile");
    FOutsideOption =
        app.add_flag("--allow-outside", FAllowOutside, "Allow directories beyond the path");
    AddChangeOptions(app, FChange);
  }

  int Run(TCommandContext& context) override {
    CheckArguments();
    CheckPlatformOption(context, nullptr);
    if (FAction == "list")
      List(context);
    else if (FAction == "add")
      Add(context);
    else if (FAction == "remove")
      Remove(context);
    else if (FAction == "test")
      Test(context);
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
    if (FAction == "add")
      return;
    for (const CLI::Option* option : {FKindOption, FPathOption, FDefaultOption, FOutsideOption}) {
      if (option->count() > 0)
        throw TUsageError(option->get_name() + " is for profile add only");
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
    TJson profiles = TJson::array();
    for (const TProfile& profile : context.Session.RemoteProfiles().Profiles().List()) {
      if (!context.Options.Platform.empty() && context.Options.Platform != AllPlatformsArgument &&
          profile.Platform != context.Options.Platform)
        continue;
      profiles.push_back({{"name", profile.Name},
                          {"platform", profile.Platform},
                          {"kind", ProfileKindName(profile.Kind)},
                          {"path", profile.Path},
                          {"default", profile.IsDefault},
                          {"allowOutside", profile.AllowOutside}});
      context.Output.Line(Visible(profile.Name) + "  " + Visible(profile.Platform) + "  " +
                          std::string(ProfileKindName(profile.Kind)) + " " + Visible(profile.Path) +
                          (profile.IsDefault ? "  default" : "") +
                          (profile.AllowOutside ? "  allow-outside" : ""));
    }
    if (context.Output.IsJson())
      context.Output.Document({{"profiles", profiles}});
  }

  TProfile NewProfile(TCommandContext& context) const {
    TProfile profile;
    profile.Name = FName;
    profile.Platform = RequirePlatform(context, FAction);
    profile.Kind = ProfileKindFromName(FKind);
    if (FPath.empty())
      throw TUsageError("a profile of kind \"folder\" needs a directory; name it with --path");
    profile.Path = std::filesystem::absolute(FPath).lexically_normal().string();
    while (profile.Path.size() > 1 && profile.Path.ends_with('/'))
      profile.Path.pop_back();
    profile.IsDefault = FDefault;
    profile.AllowOutside = FAllowOutside;
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
        MakeFolder(context, profile.Path);
      }
    } catch (const std::invalid_argument& error) {
      throw TUsageError(error.what());
    }
    Say(context, "added");
  }

  // A folder that is missing later is one that was unplugged.
  static void MakeFolder(TCommandContext& context, const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (!std::filesystem::is_directory(path))
      context.Output.Warn({path + " is no directory and cannot be made one" +
                               (error ? ": " + error.message() : std::string()),
                           {},
                           0});
  }

  void Remove(TCommandContext& context) const {
    Require(context, FName);
    if (!FChange.DryRun)
      context.Session.RemoteProfiles().RemoveProfile(FName);
    Say(context, "removed");
  }

  void Test(TCommandContext& context) const {
    Require(context, FName);
    TRemoteProfileServices& services = context.Session.RemoteProfiles();
    std::string message;
    if (!services.Connect(*services.FindProfile(FName), message))
      throw TExitError(exit_status::NoConnection,
                       "the profile \"" + FName + "\" has no connection: " + message);
    if (context.Output.IsJson())
      context.Output.Document({{"profile", FName}, {"connected", true}});
    context.Output.Line("connected: " + Visible(FName));
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
  std::string FPath;
  bool FDefault = false;
  bool FAllowOutside = false;
  TChangeOptions FChange;
  CLI::Option* FKindOption = nullptr;
  CLI::Option* FPathOption = nullptr;
  CLI::Option* FDefaultOption = nullptr;
  CLI::Option* FOutsideOption = nullptr;
};

} // namespace

std::unique_ptr<ICommand> MakeProfileCommand() {
  return std::make_unique<TProfileCommand>();
}

} // namespace workbench
