#include "workbench/cli/entries/entry_filter.h"

#include "package/common/case_fold.h"

#include <algorithm>

namespace workbench {

bool FitsOptions(const deployment::IProjectDeploymentFile& file, const TCommonOptions& options) {
  if (!options.Configuration.empty()) {
    const std::string_view own = file.GetConfiguration().empty()
                                     ? deployment::BaseConfiguration
                                     : std::string_view(file.GetConfiguration());
    if (!deployment::SameText(own, options.Configuration))
      return false;
  }
  if (options.Platform.empty() || options.Platform == AllPlatformsArgument)
    return true;
  const auto platforms = file.GetPlatforms();
  return std::any_of(platforms.begin(), platforms.end(), [&](const std::string& platform) {
    return platform == options.Platform || platform == deployment::FallbackPlatform;
  });
}

} // namespace workbench
