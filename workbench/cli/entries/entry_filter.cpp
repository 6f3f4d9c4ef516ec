#include "workbench/cli/entries/entry_filter.h"

#include "package/common/case_fold.h"
#include "package/host/api/target_entries.h"
#include "workbench/cli/context/target.h"

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

void CheckFilterOptions(TCommandContext& context, TOpenProject& project) {
  const TCommonOptions& options = context.Options;
  bool hasConfiguration = false;
  bool hasPlatform = false;
  for (const auto& file : project.Deployment().GetFiles()) {
    hasConfiguration =
        hasConfiguration || deployment::SameText(file->GetConfiguration(), options.Configuration);
    hasPlatform = hasPlatform || deployment::HoldsPlatform(*file, options.Platform);
  }
  if (!hasPlatform)
    CheckPlatformOption(context, &project);
  if (!hasConfiguration)
    CheckConfigurationOption(context, project);
}

} // namespace workbench
