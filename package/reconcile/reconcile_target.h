// The target of a reconcile: what the steps ask about the project, its platform and its files.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/ideservices.h"

#include <optional>
#include <string>
#include <string_view>

namespace deployment {

inline constexpr std::string_view ArdentPersonality = "Ardent.Personality";
inline constexpr std::string_view CorvanePersonality = "Corvane.Personality";

/// One project, platform and configuration. Names of files are local names as entries store them;
/// whether a file exists is asked with its macros expanded.
class TReconcileTarget {
public:
  /// Empty names mean the project's current ones. Project and services must outlive the object.
  TReconcileTarget(ICustomProject& project, std::string_view platform,
                   std::string_view configuration, VelmorIDEServices& services);

  ICustomProject& Project() const { return FProject; }
  VelmorIDEServices& Services() const { return FServices; }
  const std::string& Platform() const { return FPlatform; }
  const std::string& Configuration() const { return FConfiguration; }
  const std::string& Personality() const { return FPersonality; }
  /// "Application", "Console", "Library", "Package", or what the project calls itself.
  const std::string& ApplicationKind() const { return FApplicationKind; }
  bool IsPackage() const { return FApplicationKind == "Package"; }

  bool isApplePlatform() const;
  bool isMobilePlatform(std::string_view platform) const;
  /// Directory on the target for files without one of their own; ".\" for an unknown platform.
  std::string GetDefaultPlatformRemoteDir(std::string_view platform) const;
  /// Name that the project's output has on the target.
  std::string GetValidRemoteName() const;
  /// The file name with another extension. A program of an Apple platform has no extension: one
  /// with a dot in its name keeps it and gets `extension` appended.
  std::string ChangeFileExtension(std::string_view fileName, std::string_view extension) const;
  bool NeedsRemoteDebugSymbolsFile() const;

  /// Null when the host or the personality has no such service.
  ISymbolService* SymbolService() const;
  IPackageService* PackageService() const;
  IEnvironmentService* EnvironmentService(std::string_view personality) const;

  bool HasOptions() const { return FProject.GetOptionsConfigurations() != nullptr; }
  /// An option as a build of the target sees it; empty without option configurations.
  std::string Option(std::string_view name) const;
  /// The same as a Boolean, an empty one as false. Throws TInputError for any other text.
  bool BooleanOption(std::string_view name) const;

  /// Local name of what a build of this configuration makes for the platform.
  std::string OutputOf(std::string_view platform) const;
  /// The macros that name the target, as "NAME=value" items.
  std::string Macros() const;
  bool Exists(std::string_view localName) const;

private:
  ICustomProject& FProject;
  VelmorIDEServices& FServices;
  const std::string FPlatform;
  const std::string FConfiguration;
  const std::string FPersonality;
  const std::string FApplicationKind;
};

} // namespace deployment
