// Host unit Platforms: the target platforms that the host knows.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/events.h"

#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// Stands for every platform, in project files and on the screen.
inline constexpr std::string_view sAllPlatforms = "All Platforms";

/// One platform. Implemented by the host's platform manager, which owns it.
class IPlatform {
public:
  virtual ~IPlatform() = default;
  virtual std::string GetName() const = 0;
  virtual bool IsMobile() const = 0;
  /// Directory on the target for files without one of their own; may be empty.
  virtual std::string GetDefaultRemoteDir() const = 0;
  /// What stands before and behind a base name in the name of an output of that kind
  /// ("Application", "Library", "Package"); empty for none and for an unknown kind.
  virtual std::string GetOutputPrefix(std::string_view outputKind) const = 0;
  virtual std::string GetOutputExtension(std::string_view outputKind) const = 0;
  /// Does a deployment of a project of the personality need a remote profile? Asked in turn: as a
  /// rule of the platform, then as a rule of the personality on it.
  virtual bool RequiresProfile(std::string_view personality) const = 0;
  virtual bool PersonalityRequiresProfile(std::string_view personality) const = 0;
};

/// The table of platforms. Implemented by the host, good as long as it runs.
class IPlatformManager {
public:
  virtual ~IPlatformManager() = default;
  /// The platform of that name, compared exactly; null when unknown.
  virtual const IPlatform* FindPlatform(std::string_view name) const = 0;
  /// Names of the platforms that projects of the personality can be built for, in order.
  virtual std::vector<std::string> AvailablePlatforms(std::string_view personality) const = 0;
  /// A platform was added to a project: project, platform name.
  virtual IHostEvent<ICustomProject&, std::string_view>& PlatformAdded() = 0;
  virtual IHostEvent<ICustomProject&, std::string_view>& PlatformRemoved() = 0;
};

} // namespace deployment
