#include "workbench/deploy/destination.h"

#include "package/common/errors.h"
#include "package/host/api/platformapi.h"
#include "workbench/files/machine_path.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/text/visible_text.h"

namespace workbench {
namespace {

constexpr std::string_view AndroidPlatform = "Android";
constexpr std::string_view StagingDirectory = "package";

} // namespace

std::string TDestination::Text() const {
  if (!Profile)
    return Visible(Staging.string());
  return "profile " + Visible(Profile->Name) + " (" + ProfilePlace(*Profile) + ")";
}

// Programs of such a platform are packed here and go to no machine.
bool TDestinations::IsStaged(deployment::ICustomProject& project,
                             const std::string& platform) const {
  const TPlatform* facts = FPlatforms.FindPlatform(platform);
  const std::string personality = project.GetPersonality();
  return platform == AndroidPlatform || (facts && !facts->RequiresProfile(personality) &&
                                         !facts->PersonalityRequiresProfile(personality));
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

std::shared_ptr<IRemoteConnection> TDestinations::Connect(const TDestination& destination,
                                                          const std::atomic<int>* cancelled) const {
  if (destination.Profile)
    return FConnections.Open(*destination.Profile, cancelled);
  return std::make_shared<TFolderConnection>(destination.Staging, TMissingFolder::Make);
}

TPlaceRules TDestinations::RulesOf(const TDestination& destination,
                                   std::string_view platform) const {
  const TPlatform* facts = FPlatforms.FindPlatform(platform);
  return {.Names = NameRulesOf(platform, facts && facts->IgnoresCase()),
          .AllowOutside = destination.Profile && destination.Profile->AllowOutside};
}

} // namespace workbench
