// What a project module answers about its options and platforms, role by role.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/platformapi.h"

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

class TProjectModule;
class TSettings;

class TOptionsConfigurations final : public deployment::IOTAProjectOptionsConfigurations {
public:
  explicit TOptionsConfigurations(TProjectModule& module) : FModule(module) {}

  std::vector<const deployment::IOTABuildConfiguration*> GetConfigurations() const override;
  const deployment::IOTABuildConfiguration& GetBaseConfiguration() const override;
  std::string GetOptionValue(std::string_view configuration, std::string_view platform,
                             std::string_view option) const override;
  std::string GetBaseProperty(std::string_view name) const override;
  void SetBaseProperty(std::string_view name, std::string_view value) override;

private:
  TProjectModule& FModule;
};

class TProjectPlatforms final : public deployment::IOTAProjectPlatforms {
public:
  explicit TProjectPlatforms(TProjectModule& module) : FModule(module) {}

  std::string GetActivePlatform() const override;
  /// For this run only; the project file keeps its own.
  bool SetActivePlatform(std::string_view platform) override;
  std::vector<std::string> GetSupportedPlatforms() const override;
  std::string GetProfileName(std::string_view platform) const override;
  std::string GetSDKName(std::string_view platform) const override;

private:
  TProjectModule& FModule;
};

class TPlatformOptions final : public deployment::IPlatformOptions {
public:
  explicit TPlatformOptions(TProjectModule& module) : FModule(module) {}
  int GetOSXKind(std::string_view configuration, std::string_view platform) const override;

private:
  TProjectModule& FModule;
};

class TBuildOptions final : public deployment::IBuildOptions {
public:
  explicit TBuildOptions(TProjectModule& module) : FModule(module) {}
  bool HasRemoteDebugSymbols(std::string_view configuration,
                             std::string_view platform) const override;

private:
  TProjectModule& FModule;
};

/// What the project's builds call the target; the side file speaks to them.
class TBuildNames final : public deployment::IProjectBuildNames {
public:
  explicit TBuildNames(TProjectModule& module) : FModule(module) {}
  std::string GetPlatformProperty() const override { return "Platform"; }
  std::string GetConfigurationProperty() const override;
  std::string GetPlatformName(std::string_view platform) const override;
  std::string GetConfigurationName(std::string_view configuration) const override {
    return std::string(configuration);
  }

private:
  TProjectModule& FModule;
};

class TCorvaneCompilerOptions final : public deployment::ICorvaneCompilerOptions {
public:
  explicit TCorvaneCompilerOptions(const TSettings& settings) : FSettings(settings) {}
  std::string GetOSXDirectory() const override;

private:
  const TSettings& FSettings;
};

} // namespace workbench
