#include "workbench/services/project_answers.h"

#include "workbench/project/project_settings.h"
#include "workbench/services/project_module.h"
#include "workbench/settings/settings_store.h"

namespace workbench {

std::vector<const deployment::IOTABuildConfiguration*>
TOptionsConfigurations::GetConfigurations() const {
  std::vector<const deployment::IOTABuildConfiguration*> result;
  for (const auto& configuration : FModule.Settings().Configurations())
    result.push_back(configuration.get());
  return result;
}

const deployment::IOTABuildConfiguration& TOptionsConfigurations::GetBaseConfiguration() const {
  return FModule.Settings().BaseConfiguration();
}

std::string TOptionsConfigurations::GetOptionValue(std::string_view configuration,
                                                   std::string_view platform,
                                                   std::string_view option) const {
  return FModule.Settings().Option(configuration, platform, option);
}

std::string TOptionsConfigurations::GetBaseProperty(std::string_view name) const {
  return FModule.Settings().BaseProperty(name);
}

void TOptionsConfigurations::SetBaseProperty(std::string_view name, std::string_view value) {
  FModule.Document().SetBaseProperty(name, value);
  FModule.Settings().Refresh();
}

std::string TProjectPlatforms::GetActivePlatform() const {
  return FModule.GetCurrentPlatform();
}

bool TProjectPlatforms::SetActivePlatform(std::string_view platform) {
  FModule.SetCurrentPlatform(platform);
  return true;
}

std::vector<std::string> TProjectPlatforms::GetSupportedPlatforms() const {
  std::vector<std::string> names;
  for (const TProjectPlatform& platform : FModule.Settings().Platforms())
    names.push_back(platform.Name);
  return names;
}

std::string TProjectPlatforms::GetProfileName(std::string_view platform) const {
  return FModule.ProfileName(platform);
}

std::string TProjectPlatforms::GetSDKName(std::string_view platform) const {
  const TProjectPlatform* found = FModule.Settings().FindPlatform(platform);
  return found ? found->SDK : std::string();
}

int TPlatformOptions::GetOSXKind(std::string_view configuration, std::string_view platform) const {
  return FModule.Settings().OSXKind(configuration, platform);
}

bool TBuildOptions::HasRemoteDebugSymbols(std::string_view configuration,
                                          std::string_view platform) const {
  return FModule.Settings().HasRemoteDebugSymbols(configuration, platform);
}

std::string TBuildNames::GetConfigurationProperty() const {
  return std::string(FModule.Settings().ConfigurationProperty());
}

std::string TBuildNames::GetPlatformName(std::string_view platform) const {
  return FModule.Settings().BuildPlatformName(platform);
}

std::string TCorvaneCompilerOptions::GetOSXDirectory() const {
  return FSettings.Get("toolchain-osx-directory").value_or("");
}

} // namespace workbench
