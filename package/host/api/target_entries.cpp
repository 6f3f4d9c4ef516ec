#include "package/host/api/target_entries.h"

#include "package/common/case_fold.h"
#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"

#include <algorithm>

namespace deployment {

bool IsFileInPlatform(std::string_view platform, const IProjectDeploymentFile& file) {
  if (platform.empty() || platform == sAllPlatforms)
    return true;
  const std::vector<std::string> platforms = file.GetPlatforms();
  return std::any_of(platforms.begin(), platforms.end(), [&](const std::string& own) {
    return own == platform || SameText(own, platform);
  });
}

bool HoldsPlatform(const IProjectDeploymentFile& file, std::string_view platform) {
  const std::vector<std::string> platforms = file.GetPlatforms();
  return std::find(platforms.begin(), platforms.end(), platform) != platforms.end();
}

TTargetEntries::TTargetEntries(ICustomProject& project, const TDeploymentTarget& target)
    : FTarget(target), FAllPlatforms(target.Platform == sAllPlatforms) {
  if (const IOTAProjectPlatforms* platforms = project.GetProjectPlatforms())
    FSupportedPlatforms = platforms->GetSupportedPlatforms();
  if (const IOTAProjectOptionsConfigurations* options = project.GetOptionsConfigurations())
    FConfigurations = options->GetConfigurations();
}

bool TTargetEntries::IsListed(const IProjectDeploymentFile& file) {
  if (!PassesPlatform(file))
    return false;
  const TDecision& decision = Decide(file.GetConfiguration());
  return decision.IsOfTarget || decision.InheritsTarget;
}

bool TTargetEntries::IsDeployed(const IProjectDeploymentFile& file) {
  return !FAllPlatforms && file.GetEnabled(FTarget.Platform) && PassesPlatform(file) &&
         Decide(file.GetConfiguration()).IsOfTarget;
}

bool TTargetEntries::PassesPlatform(const IProjectDeploymentFile& file) const {
  if (!FAllPlatforms)
    return IsFileInPlatform(FTarget.Platform, file);
  return std::any_of(FSupportedPlatforms.begin(), FSupportedPlatforms.end(),
                     [&](const std::string& platform) { return IsFileInPlatform(platform, file); });
}

// Upwards from the target's configuration, so that what it inherits is found; then upwards from the
// entry's, so that what inherits from the target's is.
const TTargetEntries::TDecision& TTargetEntries::Decide(const std::string& configuration) {
  const auto found = FDecided.find(configuration);
  if (found != FDecided.end())
    return found->second;
  const std::string_view name =
      configuration.empty() ? BaseConfiguration : std::string_view(configuration);
  TDecision decision;
  decision.IsOfTarget = WalkPasses(FindConfiguration(FTarget.Configuration), name);
  decision.InheritsTarget = WalkPasses(FindConfiguration(name), FTarget.Configuration);
  return FDecided.emplace(configuration, decision).first->second;
}

const IOTABuildConfiguration* TTargetEntries::FindConfiguration(std::string_view name) const {
  const auto found = std::find_if(FConfigurations.begin(), FConfigurations.end(),
                                  [&](const IOTABuildConfiguration* configuration) {
                                    return SameText(configuration->GetName(), name);
                                  });
  return found == FConfigurations.end() ? nullptr : *found;
}

// The first configuration of that name on the way to the root decides.
bool TTargetEntries::WalkPasses(const IOTABuildConfiguration* from, std::string_view name) const {
  while (from && !SameText(from->GetName(), name))
    from = from->GetParent();
  if (!from)
    return false;
  const std::vector<std::string> platforms = from->GetPlatforms();
  return std::any_of(platforms.begin(), platforms.end(), [this](const std::string& platform) {
    return FAllPlatforms || SameText(platform, FTarget.Platform);
  });
}

} // namespace deployment
