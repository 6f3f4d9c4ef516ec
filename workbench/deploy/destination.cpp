#include "workbench/deploy/destination.h"

#include "package/common/errors.h"
#include "package/host/api/platformapi.h"
#include "workbench/files/machine_path.h"
#include "workbench/files/user_name.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/remote/target/unfinished_names.h"
#include "workbench/text/visible_text.h"

namespace workbench {
namespace {

constexpr std::string_view StagingDirectory = "package";

} // namespace

std::string TDestination::Text() const {
  if (!Profile)
    return Visible(Staging.string());
  return "profile " + Visible(Profile->Name) + " (" + ProfilePlace(*Profile) + ")";
}

std::vector<std::string> DifferencesOf(const TBinding& then, const TBinding& now) {
  std::vector<std::string> differences;
  const auto compare = [&](const std::string& before, const std::string& after,
                           const std::string& what) {
    if (before != after)
      differences.push_back(what + " was " + (before.empty() ? "none" : Visible(before)) +
                            " and is " + (after.empty() ? "none" : Visible(after)));
  };
  compare(then.Profile, now.Profile, "the profile");
  compare(then.Place, now.Place, "the place of the profile \"" + Visible(now.Profile) + "\"");
  compare(then.Machine, now.Machine, "the machine that the folder is on");
  compare(then.HostKey, now.HostKey, "the host key of the target");
  return differences;
}

bool TDestinations::IsStaged(deployment::ICustomProject& project,
                             const std::string& platform) const {
  return FPlatforms.IsStaged(platform, project.GetPersonality());
}

const TProfile& TDestinations::ProfileOf(deployment::ICustomProject& project,
                                         const std::string& platform) const {
  const auto* platforms = project.GetProjectPlatforms();
  const std::string assigned = platforms ? platforms->GetProfileName(platform) : std::string();
  const TProfile* profile =
      assigned.empty() ? FProfiles.FindDefault(platform) : FProfiles.Find(assigned);
  if (!profile && assigned.empty())
    throw TConnectionError("the project assigns no profile to the platform \"" + platform +
                           "\", and the platform has no default one");
  if (!profile)
    throw TConnectionError("there is no profile \"" + assigned + "\"");
  if (profile->Platform != platform)
    throw TConnectionError("the profile \"" + profile->Name + "\" is one of the platform \"" +
                           profile->Platform + "\", not of \"" + platform + "\"");
  return *profile;
}

TDestination TDestinations::Find(deployment::ICustomProject& project,
                                 const deployment::TDeploymentTarget& target) const {
  if (!IsStaged(project, target.Platform))
    return {.Profile = ProfileOf(project, target.Platform)};
  const auto output =
      ToMachinePath(project.GetOutputFileName(target.Configuration, target.Platform));
  return {.Staging = output.parent_path() / StagingDirectory};
}

void TDestinations::Prepare(deployment::ICustomProject& project,
                            const std::string& platform) const {
  if (IsStaged(project, platform))
    return;
  try {
    FConnections.Prepare(ProfileOf(project, platform));
  } catch (const TConnectionError&) {
    return;
  } catch (const deployment::TInputError&) {
    return; // damaged profiles
  }
}

void TDestinations::Prepare(const TProfile& profile) const {
  try {
    FConnections.Prepare(profile);
  } catch (const TConnectionError&) {
    return; // connecting says what is wrong
  }
}

std::shared_ptr<IRemoteConnection> TDestinations::Connect(const TDestination& destination,
                                                          const std::atomic<int>* cancelled) const {
  if (destination.Profile)
    return FConnections.Open(*destination.Profile, cancelled);
  return std::make_shared<TFolderConnection>(destination.Staging, TMissingFolder::Make, cancelled);
}

std::optional<TDestination> TDestinations::Find(const TBinding& bound,
                                                const std::string& platform) const {
  if (bound.Profile.empty())
    return TDestination{.Staging = bound.Place};
  const TProfile* profile = FProfiles.Find(bound.Profile);
  if (!profile || profile->Platform != platform)
    return std::nullopt;
  return TDestination{.Profile = *profile};
}

TBinding TDestinations::BindingOf(const TDestination& destination,
                                  const std::atomic<int>& cancelled) const {
  if (!destination.Profile)
    return {.Place = destination.Staging.string(), .Machine = MachineName()};
  const TProfile& profile = *destination.Profile;
  TBinding binding{.Profile = profile.Name, .Place = ProfilePlace(profile)};
  if (profile.Kind == TProfileKind::Folder)
    binding.Machine = MachineName();
  else
    binding.HostKey = HostKeyOf(profile, cancelled);
  return binding;
}

// What is not there yet is made in the directory above it.
std::string TDestinations::WriteProblem(const TProfile& profile) const {
  const auto connection = FConnections.Open(profile);
  const std::string root = connection->Root();
  std::vector<std::string> directories;
  for (std::string path = root; path.size() > 1; path.resize(path.find_last_of('/')))
    directories.push_back(path);
  directories.emplace_back("/");
  for (const TRemoteDirectory& directory : connection->Resolve(directories)) {
    if (!directory.Problem.empty())
      return directory.Problem;
    if (!directory.Exists)
      continue;
    const TRemoteName name{directory.Path == "/" ? "" : directory.Path,
                           TUnfinishedNames().Next({})};
    const TRemoteCreation made = connection->CreateFile(name, {}, std::chrono::system_clock::now());
    return made.Result == TRemoteCreation::TResult::Made ? connection->Remove(name) : made.Problem;
  }
  return root + " is not there and cannot be made";
}

TPlaceRules TDestinations::RulesOf(const TDestination& destination,
                                   std::string_view platform) const {
  const TPlatform* facts = FPlatforms.FindPlatform(platform);
  return {.Names = NameRulesOf(platform, facts && facts->IgnoresCase()),
          .AllowOutside = destination.Profile && destination.Profile->AllowOutside};
}

} // namespace workbench
