#include "workbench/services/ide_services.h"

#include "workbench/services/text_filter.h"
#include "workbench/services/user_directories.h"

namespace workbench {

TIDEServices::TIDEServices(const std::filesystem::path& root, const TPlatformTable& platforms,
                           const std::filesystem::path& settingsFile)
    : FPlatforms(platforms), FMacroUtils(root),
      FSettings(settingsFile, [this](const TWarning& warning) { FMessages.Add(warning); }),
      FPersonalities(platforms, FSettings), FSDKs(FSettings),
      FRemoteProfiles(ProfilesFileBeside(settingsFile),
                      {FMacroUtils, FFileUtils, FSDKs, platforms,
                       [this, root] { return UserDirectories(FSettings, root); }}),
      FAppStrings(root, FSettings) {}

std::unique_ptr<deployment::ICoExpertFilter> TIDEServices::CreateTextFilter() {
  return std::make_unique<TTextFilter>();
}

} // namespace workbench
