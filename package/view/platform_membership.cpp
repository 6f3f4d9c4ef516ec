#include "package/view/platform_membership.h"

#include "package/common/case_fold.h"
#include "package/host/api/platforms.h"

#include <algorithm>
#include <string>
#include <vector>

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

} // namespace deployment
