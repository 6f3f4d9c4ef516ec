// A project in memory for tests: plain fields that a test fills, and what the package gave to it.
#pragma once

#include "package/host/api/platformapi.h"
#include "package/host/api/toolsapi.h"
#include "tests/support/memory_xml.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// A build configuration with its platforms.
class TMemoryConfiguration : public IOTABuildConfiguration {
public:
  TMemoryConfiguration(std::string name, const TMemoryConfiguration* parent)
      : Name(std::move(name)), Parent(parent) {}

  std::string GetName() const override { return Name; }
  const IOTABuildConfiguration* GetParent() const override { return Parent; }
  std::vector<std::string> GetPlatforms() const override { return Platforms; }

  std::string Name;
  const TMemoryConfiguration* Parent;
  std::vector<std::string> Platforms;
};

/// Options by "configuration|platform|option", base properties by name; "Base" and "Debug" exist.
class TMemoryOptions : public IOTAProjectOptionsConfigurations {
public:
  std::vector<const IOTABuildConfiguration*> GetConfigurations() const override;
  const IOTABuildConfiguration& GetBaseConfiguration() const override { return Base; }
  std::string GetOptionValue(std::string_view configuration, std::string_view platform,
                             std::string_view option) const override;
  std::string GetBaseProperty(std::string_view name) const override;
  void SetBaseProperty(std::string_view name, std::string_view value) override;

  TMemoryConfiguration Base{"Base", nullptr};
  TMemoryConfiguration Debug{"Debug", &Base};
  std::vector<const IOTABuildConfiguration*> Further; ///< behind these two; not owned
  std::map<std::string, std::string> Values;
  std::map<std::string, std::string> BaseProperties;
};

/// The platforms of a project.
class TMemoryProjectPlatforms : public IOTAProjectPlatforms {
public:
  std::string GetActivePlatform() const override { return Active; }
  bool CanSetActivePlatform() const override { return MayChange; }
  bool SetActivePlatform(std::string_view platform) override;
  std::vector<std::string> GetSupportedPlatforms() const override { return Supported; }
  std::string GetProfileName(std::string_view platform) const override;
  std::string GetSDKName(std::string_view platform) const override;

  std::string Active = "Win32";
  bool MayChange = true;
  std::vector<std::string> Supported{"Win32"};
  std::map<std::string, std::string, std::less<>> Profiles;
  std::map<std::string, std::string, std::less<>> SDKs;
};

/// What a project of an Apple or Android platform answers.
struct TMemoryPlatformOptions : IPlatformOptions {
  int GetOSXKind(std::string_view /*configuration*/, std::string_view /*platform*/) const override {
    return OSXKind;
  }
  int OSXKind = 1;
};

/// Remote debug symbols by "configuration|platform".
struct TMemoryBuildOptions : IBuildOptions {
  bool HasRemoteDebugSymbols(std::string_view configuration,
                             std::string_view platform) const override {
    return RemoteDebugSymbols.contains(std::string(configuration).append("|").append(platform));
  }
  std::set<std::string, std::less<>> RemoteDebugSymbols;
};

/// Builds that have words of their own.
struct TMemoryBuildNames : IProjectBuildNames {
  std::string GetPlatformProperty() const override { return PlatformProperty; }
  std::string GetConfigurationProperty() const override { return ConfigurationProperty; }
  std::string GetPlatformName(std::string_view platform) const override {
    return NameIn(Platforms, platform);
  }
  std::string GetConfigurationName(std::string_view configuration) const override {
    return NameIn(Configurations, configuration);
  }

  std::string PlatformProperty = "Platform";
  std::string ConfigurationProperty = "Configuration";
  std::map<std::string, std::string, std::less<>> Platforms;
  std::map<std::string, std::string, std::less<>> Configurations;

private:
  static std::string NameIn(const std::map<std::string, std::string, std::less<>>& names,
                            std::string_view name) {
    const auto found = names.find(name);
    return found == names.end() ? std::string(name) : found->second;
  }
};

struct TMemoryCompilerOptions : ICorvaneCompilerOptions {
  std::string GetOSXDirectory() const override { return OSXDirectory; }
  std::string OSXDirectory;
};

/// The project and its module. Sections stand for the nodes in its file.
class TMemoryProject : public IOTAProject {
public:
  TMemoryProject() = default;
  TMemoryProject(const TMemoryProject&) = delete;
  TMemoryProject& operator=(const TMemoryProject&) = delete;
  ~TMemoryProject() override;

  std::string GetFileName() const override { return FileName; }
  bool IsProjectModule() const override { return ProjectModule; }
  bool IsWithoutDeployment() const override { return WithoutDeployment; }
  ICustomProject* GetProject() override { return this; }
  int AddNotifier(std::shared_ptr<IOTAModuleNotifier> notifier) override;
  void RemoveNotifier(int index) override;
  void AttachHandler(std::shared_ptr<IModuleHandler> handler) override;

  IProjectDeployment* GetProjectDeployment() const override;
  std::string GetProjectFileName() const override { return FileName; }
  std::string GetModuleName() const override { return ModuleName; }
  std::string GetBaseName(std::string_view /*configuration*/,
                          std::string_view /*platform*/) const override {
    return BaseName.empty() ? ModuleName : BaseName;
  }
  std::string GetPersonality() const override { return Personality; }
  std::string GetApplicationType(std::string_view, std::string_view) const override {
    return ApplicationType;
  }
  std::string GetNothingToDeploy(std::string_view, std::string_view) const override {
    return NothingToDeploy;
  }
  std::string GetFrameworkType() const override { return FrameworkType; }
  std::string GetProjectOption(std::string_view name) const override;
  std::string GetCurrentPlatform() const override { return CurrentPlatform; }
  std::string GetCurrentConfiguration() const override { return CurrentConfiguration; }
  std::string GetOutputFileName(std::string_view configuration,
                                std::string_view platform) const override;
  std::string GetOutputKind(std::string_view /*configuration*/,
                            std::string_view /*platform*/) const override {
    return OutputKind.empty() ? ApplicationType : OutputKind;
  }
  std::vector<std::string> GetCompleteFileList(std::string_view, std::string_view) const override {
    return ProjectFiles;
  }
  bool GetModified() const override { return Modified; }
  void SetModified(bool modified) override { Modified = modified; }
  IOTAProjectOptionsConfigurations* GetOptionsConfigurations() override {
    return HasOptions ? &Options : nullptr;
  }
  IOTAProjectPlatforms* GetProjectPlatforms() override {
    return HasPlatforms ? &Platforms : nullptr;
  }
  IPlatformOptions* GetPlatformOptions() override {
    return HasPlatformOptions ? &PlatformOptions : nullptr;
  }
  IBuildOptions* GetBuildOptions() override { return HasBuildOptions ? &BuildOptions : nullptr; }
  ICorvaneCompilerOptions* GetCorvaneCompilerOptions() override { return &CompilerOptions; }
  IProjectBuildNames* GetBuildNames() override { return HasBuildNames ? &BuildNames : nullptr; }

  /// The section of that name, ignoring case; null when the project has none.
  TMemoryXMLNode* FindSection(std::string_view name);
  TMemoryXMLNode& AddSection(std::string_view name);
  /// Number of listeners that are registered.
  std::size_t NotifierCount() const;
  /// Plays an event of the module to its listeners.
  void RaiseAfterSave();
  void RaiseModuleRenamed(std::string_view oldName, std::string_view newName);
  void RaiseModuleRemoved(std::string_view name);
  /// Closes the module: listeners are told, handlers destroyed.
  void Close();

  std::string FileName = R"(C:\work\App\App.vproj)";
  std::string ModuleName = "App";
  std::string Personality = "Ardent.Personality";
  std::string ApplicationType = "Application";
  std::string NothingToDeploy;
  std::string FrameworkType = "Form";
  std::map<std::string, std::string, std::less<>> ProjectOptions;
  std::string CurrentPlatform = "Win32";
  std::string CurrentConfiguration = "Debug";
  std::vector<std::string> ProjectFiles;
  bool ProjectModule = true;
  bool WithoutDeployment = false;
  bool Modified = false;
  /// Names of outputs by "configuration|platform", full paths; others are made of the names.
  std::map<std::string, std::string> OutputFiles;
  std::string BaseName;   ///< empty: the module's name
  std::string OutputKind; ///< empty: the application type
  bool HasOptions = true;
  bool HasPlatforms = true;
  bool HasPlatformOptions = false;
  bool HasBuildOptions = false;
  bool HasBuildNames = false;
  TMemoryOptions Options;
  TMemoryPlatformOptions PlatformOptions;
  TMemoryBuildOptions BuildOptions;
  TMemoryCompilerOptions CompilerOptions;
  TMemoryBuildNames BuildNames;
  TMemoryProjectPlatforms Platforms;
  /// Answered by GetProjectDeployment when no handler offers a deployment; not owned.
  IProjectDeployment* GivenDeployment = nullptr;
  std::vector<std::unique_ptr<TMemoryXMLNode>> Sections;
  std::vector<std::shared_ptr<IOTAModuleNotifier>> Notifiers; ///< removed ones are null
  std::vector<std::shared_ptr<IModuleHandler>> Handlers;
};

} // namespace deployment
