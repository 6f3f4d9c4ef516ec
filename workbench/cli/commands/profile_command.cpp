// deploymgr profile: the user's remote profiles.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/commands/profile_groups.h"
#include "workbench/cli/commands/profile_names.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/project/project_settings.h"
#include "workbench/remote/profile/profile_check.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/remote/profile/profile_json.h"
#include "workbench/services/remote_profile_services.h"

#include <algorithm>

namespace workbench {
namespace {

// An option that says something of a profile, and how that is taken over.
struct TProfileField {
  IOption* Option;
  void (*Take)(TProfile& to, const TProfile& from);
};

// The field alone.
template <auto Field>
void TakeField(TProfile& to, const TProfile& from) {
  to.*Field = from.*Field;
}

// Text of a field for people.
std::string FieldText(const TJson& value) {
  if (value.IsText())
    return Visible(value.AsText());
  if (!value.IsArray())
    return JsonText(value, -1);
  std::string text;
  for (const TJson& item : value.AsArray())
    text.append(text.empty() ? "" : ", ").append(Visible(item.AsText()));
  return text;
}

class TProfileCommand final : public ICommand {
public:
  std::string Name() const override { return "profile"; }
  std::string Summary() const override {
    return "Remote profiles: where targets are, and groups of them";
  }

  void AddOptions(IOptions& options) override {
    options
        .Choice("ACTION", FAction,
                {"list", "show", "add", "edit", "remove", "test", "assign", "group"},
                "list, show, add, edit, remove, test, assign or group")
        .Required();
    options.Text(
        "NAME", FName,
        "Name of the profile; for assign \"\" takes it away; for group add, remove or list");
    options.Texts("ARGUMENT", FArguments,
                  "For assign the project file; for group the name of the group and its profiles");
    const auto field = [this](IOption& option, auto take) { FFields.push_back({&option, take}); };
    field(options.Text("--path", FProfile.Path, "Directory below which everything is put"),
          TakeField<&TProfile::Path>);
    field(options.Flag("--default", FProfile.IsDefault, "Make it the platform's default profile"),
          TakeField<&TProfile::IsDefault>);
    field(
        options.Flag("--allow-outside", FProfile.AllowOutside, "Allow directories beyond the path"),
        TakeField<&TProfile::AllowOutside>);
    field(
        options.Flag("--stateless", FProfile.Stateless, "Leave no record of deploys on the target"),
        TakeField<&TProfile::Stateless>);
    field(options.Text("--after-deploy", FProfile.AfterDeploy,
                       "Command for the target, run after a deploy that changed something"),
          TakeField<&TProfile::AfterDeploy>);
    FKindOption = &options.Text("--kind", FKind, "How the machine is reached: folder or ssh");
    AddSshOptions(options);
    options.Footer("profile group add NAME PROFILE..., remove NAME [PROFILE...] (without profiles "
                   "the group goes), list [NAME]. profile edit takes the options of add; what is "
                   "not given stays, and --default=false and the like take a mark away.");
    options.Text("--password", FPassword, "Refused with advice").Hidden();
    AddChangeOptions(options, FChange);
  }

  int Run(TCommandContext& context) override {
    CheckArguments();
    CheckTargetOptions(context, nullptr);
    if (FAction == "list")
      List(context);
    else if (FAction == "show")
      Show(context);
    else if (FAction == "add")
      Add(context);
    else if (FAction == "edit")
      Edit(context);
    else if (FAction == "group")
      RunProfileGroup(context, {FName, FArguments, FChange.DryRun});
    else if (FAction == "remove")
      Remove(context);
    else if (FAction == "test")
      return Test(context);
    else
      Assign(context);
    return exit_status::Done;
  }

private:
  void AddSshOptions(IOptions& options) {
    const auto field = [this](IOption& option, auto take) {
      FSshFields.push_back({&option, take});
    };
    field(options.Text("--host", FProfile.Host, "ssh: name or address of the machine"),
          TakeField<&TProfile::Host>);
    field(options.Number("--port", FProfile.Port, 1, 65535, "ssh: port"),
          TakeField<&TProfile::Port>);
    field(options.Text("--user", FProfile.User, "ssh: user on the machine"),
          TakeField<&TProfile::User>);
    field(options.Text("--identity", FProfile.Identity, "ssh: file of the key"),
          TakeField<&TProfile::Identity>);
    field(options.Texts("--ssh-option", FProfile.SshOptions,
                        "ssh: KEY=VALUE for the client, as in its configuration; may be repeated"),
          TakeField<&TProfile::SshOptions>);
    field(
        options.Flag("--compress", FProfile.Compress, "ssh: compress what travels, for thin lines"),
        TakeField<&TProfile::Compress>);
    field(options.Number("--connect-timeout", FProfile.ConnectTimeout, 1, 3600,
                         "ssh: seconds to wait for the machine"),
          TakeField<&TProfile::ConnectTimeout>);
    field(options.Number("--keep-alive", FProfile.KeepAlive, 1, 3600,
                         "ssh: seconds between two signs of life"),
          TakeField<&TProfile::KeepAlive>);
  }

  void CheckArguments() const {
    const bool isAssign = FAction == "assign";
    const bool isGroup = FAction == "group";
    if (FAction == "list" && !FName.empty())
      throw TUsageError("profile list takes no name");
    if (isGroup && FName.empty())
      throw TUsageError("profile group needs add, remove or list");
    if (FAction != "list" && !isAssign && FName.empty())
      throw TUsageError("profile " + FAction + " needs the name of a profile");
    if (isAssign && FArguments.size() != 1)
      throw TUsageError("profile assign needs a profile and a project file");
    if (!isAssign && !isGroup && !FArguments.empty())
      throw TUsageError("profile " + FAction + " takes no project file");
    if (!FPassword.empty())
      throw TUsageError("a password on the command line can be read by others; use a key or the "
                        "agent, or answer when you are asked");
    if (FAction != "add" && FAction != "edit") {
      if (FKindOption->IsGiven())
        throw TUsageError("--kind is for profile add and edit only");
      RefuseAny(FFields, " is for profile add and edit only");
      RefuseAny(FSshFields, " is for profile add and edit only");
    }
  }

  static void RefuseAny(const std::vector<TProfileField>& fields, const char* reason) {
    for (const TProfileField& field : fields) {
      if (field.Option->IsGiven())
        throw TUsageError(field.Option->Name() + reason);
    }
  }

  static std::string RequirePlatform(TCommandContext& context, const std::string& action) {
    const std::string& platform = context.Options.Platform;
    if (platform.empty() || platform == AllPlatformsArgument)
      throw TUsageError("profile " + action + " needs a platform; name it with --platform");
    return platform;
  }

  static const TProfile& Require(TCommandContext& context, const std::string& name) {
    return RequireProfile(context.Session.RemoteProfiles().Profiles(), name);
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

  void Show(TCommandContext& context) const {
    const TProfile& profile = Require(context, FName);
    TJson document = ProfileToJson(profile);
    std::vector<std::string> groups;
    for (const TProfileGroup& group : context.Session.RemoteProfiles().Profiles().Groups()) {
      if (std::ranges::find(group.Profiles, profile.Name) != group.Profiles.end())
        groups.push_back(group.Name);
    }
    document.Add("groups", groups);
    for (const TJsonMember& member : document.AsObject())
      context.Output.Line(member.Name + ": " + FieldText(member.Value));
    if (context.Output.IsJson())
      context.Output.Document(document);
  }

  TProfile NewProfile(TCommandContext& context) const {
    TProfile profile = FProfile;
    profile.Name = FName;
    profile.Platform = RequirePlatform(context, FAction);
    profile.Kind = ProfileKindFromName(FKind);
    if (profile.Kind == TProfileKind::Folder)
      RefuseAny(FSshFields, " is for profiles of kind ssh");
    if (profile.Path.empty())
      throw TUsageError("a profile of kind \"" + FKind +
                        "\" needs a directory; name it with --path");
    profile = TidyProfile(std::move(profile));
    CheckNewName(profile.Name, "profile");
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
        MakeFolder(context, profile);
      }
    } catch (const std::invalid_argument& error) {
      throw TUsageError(error.what());
    }
    Say(context, "added");
  }

  // A folder that is missing later is one that was unplugged.
  static void MakeFolder(TCommandContext& context, const TProfile& profile) {
    if (const std::string problem = MakeProfileFolder(profile); !problem.empty())
      context.Output.Warn({problem, {}, 0});
  }

  // What the profile says with the options that were given.
  TProfile Edited(TCommandContext& context, const TProfile& before) const {
    TProfile profile = before;
    if (!context.Options.Platform.empty())
      profile.Platform = RequirePlatform(context, FAction);
    if (FKindOption->IsGiven())
      profile.Kind = ProfileKindFromName(FKind);
    const auto take = [&](const std::vector<TProfileField>& fields) {
      for (const TProfileField& field : fields) {
        if (field.Option->IsGiven())
          field.Take(profile, FProfile);
      }
    };
    take(FFields);
    if (profile.Kind == TProfileKind::Folder) {
      RefuseAny(FSshFields, " is for profiles of kind ssh");
      for (const TProfileField& field : FSshFields)
        field.Take(profile, TProfile());
    }
    take(FSshFields);
    // A path that stays is not one of the present directory.
    const bool isSsh = profile.Kind == TProfileKind::Ssh;
    if (profile.Path != before.Path || (isSsh && profile.Identity != before.Identity))
      profile = TidyProfile(std::move(profile));
    CheckProfile(profile);
    return profile;
  }

  void Edit(TCommandContext& context) const {
    const TProfile before = Require(context, FName);
    try {
      const TProfile after = Edited(context, before);
      if (after == before) {
        Say(context, {});
        return;
      }
      if (!FChange.DryRun) {
        context.Session.RemoteProfiles().ChangeProfile(FName, after);
        if (after.Kind != before.Kind || after.Path != before.Path)
          MakeFolder(context, after);
      }
    } catch (const std::invalid_argument& error) {
      throw TUsageError(error.what());
    }
    Say(context, "changed");
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
    if (!services.Reach(*services.FindProfile(FName), message))
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
    TOpenProject& project = OpenProject(context, FArguments.front(),
                                        FChange.DryRun ? TOpenPurpose::Look : TOpenPurpose::Edit);
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

  std::string FAction, FName;
  std::vector<std::string> FArguments;
  std::string FKind = "folder";
  std::string FPassword;
  TProfile FProfile; // what the options say
  TChangeOptions FChange;
  IOption* FKindOption = nullptr;
  std::vector<TProfileField> FFields;
  std::vector<TProfileField> FSshFields; // for those of kind ssh
};

} // namespace

std::unique_ptr<ICommand> MakeProfileCommand() {
  return std::make_unique<TProfileCommand>();
}

} // namespace workbench
