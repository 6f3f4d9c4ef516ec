#include "package/view/row_filter.h"

#include "package/common/case_fold.h"
#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "package/view/platform_membership.h"

#include <algorithm>

namespace deployment {

TRowFilter::TRowFilter(ICustomProject& project, std::string_view activePlatform,
                       std::string_view selectedConfiguration)
    : FActivePlatform(activePlatform), FSelectedConfiguration(selectedConfiguration),
      FAllPlatforms(activePlatform == sAllPlatforms) {
  if (const IOTAProjectPlatforms* platforms = project.GetProjectPlatforms())
    FSupportedPlatforms = platforms->GetSupportedPlatforms();
  if (const IOTAProjectOptionsConfigurations* options = project.GetOptionsConfigurations())
    FConfigurations = options->GetConfigurations();
}

bool TRowFilter::Passes(const IProjectDeploymentFile& file) {
  return PassesPlatform(file) && PassesConfiguration(file.GetConfiguration());
}

bool TRowFilter::PassesPlatform(const IProjectDeploymentFile& file) const {
  if (!FAllPlatforms)
    return IsFileInPlatform(FActivePlatform, file);
  return std::any_of(FSupportedPlatforms.begin(), FSupportedPlatforms.end(),
                     [&](const std::string& platform) { return IsFileInPlatform(platform, file); });
}

bool TRowFilter::PassesConfiguration(const std::string& configuration) {
  const auto found = FDecided.find(configuration);
  if (found != FDecided.end())
    return found->second;
  const bool passes = DecideConfiguration(configuration.empty() ? BaseConfiguration
                                                                : std::string_view(configuration));
  FDecided.emplace(configuration, passes);
  return passes;
}

// Upwards from the file's configuration, so that what inherits from the selected one is listed;
// then upwards from the selected one, so that what it inherits is.
bool TRowFilter::DecideConfiguration(std::string_view configuration) const {
  return WalkPasses(FindConfiguration(configuration), FSelectedConfiguration) ||
         WalkPasses(FindConfiguration(FSelectedConfiguration), configuration);
}

const IOTABuildConfiguration* TRowFilter::FindConfiguration(std::string_view name) const {
  const auto found = std::find_if(FConfigurations.begin(), FConfigurations.end(),
                                  [&](const IOTABuildConfiguration* configuration) {
                                    return SameText(configuration->GetName(), name);
                                  });
  return found == FConfigurations.end() ? nullptr : *found;
}

// The first configuration of that name on the way to the root decides.
bool TRowFilter::WalkPasses(const IOTABuildConfiguration* from, std::string_view name) const {
  while (from && !SameText(from->GetName(), name))
    from = from->GetParent();
  if (!from)
    return false;
  const std::vector<std::string> platforms = from->GetPlatforms();
  return std::any_of(platforms.begin(), platforms.end(), [this](const std::string& platform) {
    return FAllPlatforms || SameText(platform, FActivePlatform);
  });
}

} // namespace deployment
