#include "workbench/cli/commands/profile_groups.h"

#include "package/common/delimited_list.h"
#include "workbench/cli/commands/profile_names.h"
#include "workbench/remote/profile/profile_check.h"
#include "workbench/services/remote_profile_services.h"

#include <algorithm>
#include <stdexcept>

namespace workbench {
namespace {

class TGroupRun {
public:
  TGroupRun(TCommandContext& context, const TGroupRequest& request)
      : FContext(context), FServices(context.Session.RemoteProfiles()),
        FStore(FServices.Profiles()), FDryRun(request.DryRun) {
    if (!request.Names.empty())
      FGroup = request.Names.front();
    if (request.Names.size() > 1)
      FProfiles.assign(request.Names.begin() + 1, request.Names.end());
  }

  void List() const {
    if (!FProfiles.empty())
      throw TUsageError("profile group list takes the name of one group");
    TJson groups = TJson::Array();
    const auto show = [&](const TProfileGroup& group) {
      groups.Append({{"name", group.Name}, {"profiles", group.Profiles}});
      FContext.Output.Line(Visible(group.Name) + "  " +
                           (group.Profiles.empty()
                                ? std::string("no profiles")
                                : Visible(deployment::JoinDelimited(group.Profiles, ", "))));
    };
    if (!FGroup.empty())
      show(RequireGroup(FStore, FGroup));
    else
      std::ranges::for_each(FStore.Groups(), show);
    if (FContext.Output.IsJson())
      FContext.Output.Document({{"groups", std::move(groups)}});
  }

  void Add() const {
    if (FProfiles.empty())
      throw TUsageError("profile group add needs a group and profiles");
    CheckNewName(FGroup, "group");
    for (const std::string& name : FProfiles)
      RequireProfile(FStore, name);
    const TProfileGroup* before = FStore.FindGroup(FGroup);
    const bool changes = !before || std::ranges::any_of(FProfiles, [before](const auto& name) {
      return std::ranges::find(before->Profiles, name) == before->Profiles.end();
    });
    Say(FDryRun ? changes : FServices.AddToGroup(FGroup, FProfiles), "added to");
  }

  void Remove() const {
    if (FGroup.empty())
      throw TUsageError("profile group remove needs the name of a group");
    const std::vector<std::string> members = RequireGroup(FStore, FGroup).Profiles;
    for (const std::string& name : FProfiles) {
      if (std::ranges::find(members, name) == members.end())
        throw TUsageError("the group \"" + FGroup + "\" has no profile \"" + name + "\"" +
                          (members.empty()
                               ? std::string()
                               : "; it has: " + deployment::JoinDelimited(members, ", ")));
    }
    if (!FDryRun && FProfiles.empty())
      FServices.RemoveGroup(FGroup);
    else if (!FDryRun)
      FServices.RemoveFromGroup(FGroup, FProfiles);
    Say(true, FProfiles.empty() ? "removed" : "removed from");
  }

private:
  void Say(bool changed, const std::string& done) const {
    if (FContext.Output.IsJson())
      FContext.Output.Document({{"changed", changed}, {"dryRun", FDryRun}});
    FContext.Output.Line(!changed
                             ? "nothing to do"
                             : (FDryRun ? "would be " : "") + done + ": group " + Visible(FGroup));
  }

  TCommandContext& FContext;
  TRemoteProfileServices& FServices;
  const TProfileStore& FStore;
  const bool FDryRun;
  std::string FGroup;
  std::vector<std::string> FProfiles;
};

} // namespace

void RunProfileGroup(TCommandContext& context, const TGroupRequest& request) {
  const TGroupRun run(context, request);
  try {
    if (request.Action == "list")
      run.List();
    else if (request.Action == "add")
      run.Add();
    else if (request.Action == "remove")
      run.Remove();
    else
      throw TUsageError("profile group knows add, remove and list, not \"" + request.Action + "\"");
  } catch (const std::invalid_argument& error) {
    throw TUsageError(error.what());
  }
}

} // namespace workbench
