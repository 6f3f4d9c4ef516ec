// Host unit Codemgr: a project as its settings describe it, for one configuration and platform.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class IOTAProjectPlatforms;
class IProjectDeployment;

/// A build configuration. Implemented by the host and owned by the project.
class IOTABuildConfiguration {
public:
  virtual ~IOTABuildConfiguration() = default;
  virtual std::string GetName() const = 0;
  /// The configuration that this one inherits from; null for the root.
  virtual const IOTABuildConfiguration* GetParent() const = 0;
  /// Names of the platforms that the configuration is set up for, in order.
  virtual std::vector<std::string> GetPlatforms() const = 0;
};

/// The option values of a project. Implemented by the host and owned by the project.
class IOTAProjectOptionsConfigurations {
public:
  virtual ~IOTAProjectOptionsConfigurations() = default;
  /// All configurations in order, the base one first. Never empty.
  virtual std::vector<const IOTABuildConfiguration*> GetConfigurations() const = 0;
  virtual const IOTABuildConfiguration& GetBaseConfiguration() const = 0;
  /// The value of an option as a build of (configuration, platform) sees it; empty when unset.
  virtual std::string GetOptionValue(std::string_view configuration, std::string_view platform,
                                     std::string_view option) const = 0;
  /// A property of the base configuration; empty when unset.
  virtual std::string GetBaseProperty(std::string_view name) const = 0;
  /// Writes a property of the base configuration; made when absent.
  virtual void SetBaseProperty(std::string_view name, std::string_view value) = 0;
};

/// What a project of an Apple or Android platform can be asked. Owned by the project.
class IPlatformOptions {
public:
  virtual ~IPlatformOptions() = default;
  /// The kind of OS X program that a build of the target makes; 1 is an application bundle.
  virtual int GetOSXKind(std::string_view configuration, std::string_view platform) const = 0;
};

/// What a project that is built here can be asked. Owned by the project.
class IBuildOptions {
public:
  virtual ~IBuildOptions() = default;
  /// True when the target is built with debug symbols that a remote debugger reads.
  virtual bool HasRemoteDebugSymbols(std::string_view configuration,
                                     std::string_view platform) const = 0;
};

/// What the compiler options of a Corvane project can be asked. Owned by the project.
class ICorvaneCompilerOptions {
public:
  virtual ~ICorvaneCompilerOptions() = default;
  /// Directory of the runtime modules for OS X; empty when there is none.
  virtual std::string GetOSXDirectory() const = 0;
};

/// What the builds of a project call a target, where that differs from the IDE's own words. Owned
/// by the project.
class IProjectBuildNames {
public:
  virtual ~IProjectBuildNames() = default;
  /// Names of the two properties that hold the target in a build, such as "Configuration".
  virtual std::string GetPlatformProperty() const = 0;
  virtual std::string GetConfigurationProperty() const = 0;
  /// What these properties hold in a build of the platform ("x64" for "Win64") and of the
  /// configuration; the name itself where builds use it, too.
  virtual std::string GetPlatformName(std::string_view platform) const = 0;
  virtual std::string GetConfigurationName(std::string_view configuration) const = 0;
};

/// A project and its settings. Implemented by the host. A pointer that a project returns is its
/// own; null means that the project does not offer such a thing.
class ICustomProject {
public:
  virtual ~ICustomProject() = default;

  /// The project's deployment; null when none is attached.
  virtual IProjectDeployment* GetProjectDeployment() const = 0;

  /// Full path of the project file on this machine.
  virtual std::string GetProjectFileName() const = 0;
  /// Name of the project without directory and extension.
  virtual std::string GetModuleName() const = 0;
  /// Name of what a build of the target makes, without path, prefix and extension.
  virtual std::string GetBaseName(std::string_view configuration,
                                  std::string_view platform) const = 0;
  /// "Ardent.Personality", "Corvane.Personality" or another id.
  virtual std::string GetPersonality() const = 0;
  /// Kind of program that a build of the target makes, as the project names it; may be empty.
  /// Empty names mean the project's current ones.
  virtual std::string GetApplicationType(std::string_view configuration,
                                         std::string_view platform) const = 0;
  /// Framework of the user interface as the project names it; may be empty.
  virtual std::string GetFrameworkType() const = 0;
  /// Option of the project as a whole, such as "AppType"; empty when unset.
  virtual std::string GetProjectOption(std::string_view name) const = 0;

  virtual std::string GetCurrentPlatform() const = 0;
  virtual std::string GetCurrentConfiguration() const = 0;
  /// Full path of the file that a build of the target makes; empty when there is nothing to deploy.
  virtual std::string GetOutputFileName(std::string_view configuration,
                                        std::string_view platform) const = 0;
  /// Kind of output that the options of a Corvane project name for the target.
  virtual std::string GetOutputKind(std::string_view configuration,
                                    std::string_view platform) const = 0;
  /// Why a build of the target makes nothing that could be deployed, or nothing that is known, as
  /// a sentence without its full stop; empty when it makes something.
  virtual std::string GetNothingToDeploy(std::string_view configuration,
                                         std::string_view platform) const = 0;
  /// Full paths of the files that belong to the project in a build of the target, in the
  /// project's order.
  virtual std::vector<std::string> GetCompleteFileList(std::string_view configuration,
                                                       std::string_view platform) const = 0;

  virtual bool GetModified() const = 0;
  virtual void SetModified(bool modified) = 0;

  virtual IOTAProjectOptionsConfigurations* GetOptionsConfigurations() = 0;
  virtual IOTAProjectPlatforms* GetProjectPlatforms() = 0;
  virtual IPlatformOptions* GetPlatformOptions() = 0;
  virtual IBuildOptions* GetBuildOptions() = 0;
  virtual ICorvaneCompilerOptions* GetCorvaneCompilerOptions() = 0;
  /// Null when builds hold the target in "Platform" and "Config", under the IDE's own names.
  virtual IProjectBuildNames* GetBuildNames() = 0;
};

} // namespace deployment
