// Where an entry of a deployment is on this machine and where it lands on a target. The status, the
// plan, the deploy and the explanation ask here, and the side file composes its directories from
// the same rules.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deployment_target.h"
#include "package/host/api/deploymentapi.h"

#include <string>
#include <string_view>

namespace deployment {

class IFileUtils;
class IMacroUtils;
class IOTARemoteProfileServices;
class IPlatformSDKServices;
class VelmorIDEServices;

/// The directory that the remote directories of a platform's entries are seen from, relative to the
/// path of a profile: the project's root there. Ends in a delimiter; empty when there is none.
std::string GetRemoteBase(const IDeploymentRoots& roots, std::string_view platform);

/// True when a remote directory stands for itself, whatever the base is: an absolute one, and one
/// of the user's home directory ("~").
bool StandsForItself(std::string_view remoteDirectory);

/// A remote directory as seen from a base that ends in a delimiter: one that stands for itself
/// stays, any other stands in the base. Ends in a delimiter.
std::string FixPath(std::string_view remoteDirectory, std::string_view base);

/// Name of the profile that the project assigns to the platform, else of the platform's default
/// one; empty when there is neither.
std::string GetTargetProfileName(ICustomProject& project, std::string_view platform,
                                 const IOTARemoteProfileServices& profiles);

/// What paths are worked out with. All must outlive who uses them.
struct TEntryPathServices {
  const IMacroUtils& Macros;
  const IFileUtils& Files;
  const IOTARemoteProfileServices* Profiles = nullptr; ///< null: the host has none
  const IPlatformSDKServices* SDKs = nullptr;          ///< null: the host has none

  static TEntryPathServices Of(VelmorIDEServices& services);
};

/// What remote paths begin with.
enum class TRemoteBase {
  ProjectRoot, ///< the project's root on the target
  None,        ///< nothing: the target is a directory of this project alone
};

/// The paths of the entries for one target. What is the same for all of them (macros, base) is
/// asked for once, so the object is good until profiles, kits or the project's root change. In
/// local names, remote directories and remote names alike the macros "Platform", "Configuration",
/// "Config" and "NDKBasePath" (of the profile's kit, else the project's) and the IDE root macro are
/// expanded; unknown ones stay.
class TEntryPaths {
public:
  /// Project and deployment must outlive the object.
  TEntryPaths(ICustomProject& project, const IProjectDeployment& deployment,
              const TDeploymentTarget& target, const TEntryPathServices& services,
              TRemoteBase base = TRemoteBase::ProjectRoot);

  /// Full path of the entry's file on this machine, as stored paths are written.
  std::string LocalFile(const IProjectDeploymentFile& file) const;
  /// Stored path of the entry's file on the target: absolute, of the home directory ("~"), or
  /// relative to the path of the profile. Directory and name in one.
  std::string RemoteFile(const IProjectDeploymentFile& file) const;
  /// The directory alone, with a delimiter at its end; empty for the profile's path itself.
  std::string RemoteDirectory(const IProjectDeploymentFile& file) const;
  /// The name alone.
  std::string RemoteName(const IProjectDeploymentFile& file) const;
  /// Expands the macros of the target in any text of an entry, such as a command.
  std::string Expand(std::string_view text) const;

private:
  const IDeploymentClassList& FClasses;
  TEntryPathServices FServices;
  std::string FPlatform;
  std::string FProjectFile;
  std::string FMacroParameters;
  std::string FBase;
};

} // namespace deployment
