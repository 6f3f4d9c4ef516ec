// Host unit Platformapi: the platforms of a project, and the remote machines behind them.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class ICustomProject;

/// The platforms of one project. Implemented by the host and owned by the project.
class IOTAProjectPlatforms {
public:
  virtual ~IOTAProjectPlatforms() = default;
  virtual std::string GetActivePlatform() const = 0;
  /// True when the project lets its active platform be changed.
  virtual bool CanSetActivePlatform() const { return true; }
  /// False when the project does not let its active platform be changed.
  virtual bool SetActivePlatform(std::string_view platform) = 0;
  /// Names in the project's order.
  virtual std::vector<std::string> GetSupportedPlatforms() const = 0;
  /// Name of the remote profile that the project assigns to the platform; empty when none.
  virtual std::string GetProfileName(std::string_view platform) const = 0;
  /// Name of the SDK that the project assigns to the platform; empty when none.
  virtual std::string GetSDKName(std::string_view platform) const = 0;
};

/// A software development kit of one platform. Owned by the SDK services.
class IPlatformSDK {
public:
  virtual ~IPlatformSDK() = default;
  virtual std::string GetName() const = 0;
  virtual std::string GetPlatform() const = 0;
};

/// The kit of the Android platform.
class IAndroidSDK : public IPlatformSDK {
public:
  /// May hold the IDE root macro.
  virtual std::string GetNDKBasePath() const = 0;
  /// May hold "$(NDKBasePath)".
  virtual std::string GetDebuggerServerPath() const = 0;
};

/// Implemented by the host. Null when there is no such kit.
class IPlatformSDKServices {
public:
  virtual ~IPlatformSDKServices() = default;
  virtual const IPlatformSDK* FindSDK(std::string_view name) const = 0;
  virtual const IPlatformSDK* GetDefaultSDK(std::string_view platform) const = 0;
  /// The same kit as an Android one; null when it is of another platform.
  virtual const IAndroidSDK* AsAndroidSDK(const IPlatformSDK& sdk) const = 0;
};

/// The tools of the Android platform. A host that has them can build Android programs.
class IAndroidToolServices {
public:
  virtual ~IAndroidToolServices() = default;
};

/// A way to one remote machine. Implemented by the host.
class IOTARemoteProfile {
public:
  virtual ~IOTARemoteProfile() = default;
  virtual std::string GetName() const = 0;
  virtual std::string GetPlatform() const = 0;
  /// The Android kit that belongs to the profile; null when it has none.
  virtual const IAndroidSDK* GetAndroidSDK() const = 0;
};

/// When a file was last changed, at the resolution of the side it stands on.
using TFileTime = std::chrono::sys_time<std::chrono::nanoseconds>;

/// Events of profiles. Implemented by the package; the services share ownership meanwhile.
class IOTARemoteProfileNotifier {
public:
  virtual ~IOTARemoteProfileNotifier() = default;
  virtual void RemoteProfileAdded(const IOTARemoteProfile& profile) = 0;
  virtual void RemoteProfileChanged(const IOTARemoteProfile& profile) = 0;
  virtual void RemoteProfileRemoved(const IOTARemoteProfile& profile) = 0;
  virtual void RemoteProfileRenamed(const IOTARemoteProfile& profile, std::string_view oldName) = 0;
  virtual void AfterDeploy(bool success, const IOTARemoteProfile* profile) = 0;
  virtual void AfterRun(bool success, const IOTARemoteProfile* profile) = 0;
};

/// The remote profiles and what can be done through them. Implemented by the host. Names of remote
/// files are relative to the profile's path.
class IOTARemoteProfileServices {
public:
  virtual ~IOTARemoteProfileServices() = default;
  /// Null when there is no profile of that name.
  virtual std::shared_ptr<IOTARemoteProfile> FindProfile(std::string_view name) const = 0;
  /// Name of the platform's default profile; empty when it has none.
  virtual std::string GetDefaultProfileName(std::string_view platform) const = 0;
  /// Lets the user make a profile and assign it to the platform of the project; false when the
  /// user did not.
  virtual bool CreateAndAssignProfile(ICustomProject& project, std::string_view platform) = 0;

  /// Bracket of a run of questions to one profile.
  virtual void BeginRemoteQueries(const IOTARemoteProfile& profile) = 0;
  virtual void EndRemoteQueries(const IOTARemoteProfile& profile) = 0;
  /// Says which remote names will be asked about in the run of questions that has begun, so that a
  /// far machine can be asked about all of them at once.
  virtual void ExpectRemoteQueries(const IOTARemoteProfile& /*profile*/,
                                   const std::vector<std::string>& /*remoteNames*/) {}
  /// Time stamp of a file; nothing when it does not exist or cannot be examined.
  virtual std::optional<TFileTime> GetRemoteFileTime(const IOTARemoteProfile& profile,
                                                     std::string_view remoteName) = 0;
  /// False when nothing can be said about a file in the run of questions that has begun: it may not
  /// be examined, or the connection was lost.
  virtual bool IsRemoteFileKnown(const IOTARemoteProfile& /*profile*/,
                                 std::string_view /*remoteName*/) {
    return true;
  }
  virtual std::optional<TFileTime> GetLocalFileTime(const IOTARemoteProfile& profile,
                                                    std::string_view localName) = 0;

  /// Connects to the machine; may be called on any thread. On failure `message` gets a text for
  /// the user, or stays empty.
  virtual bool Connect(const IOTARemoteProfile& profile, std::string& message) = 0;
  /// Deploys the project to the target.
  virtual void Deploy(ICustomProject& project, std::string_view platform,
                      std::string_view configuration, bool final) = 0;

  virtual int AddNotifier(std::shared_ptr<IOTARemoteProfileNotifier> notifier) = 0;
  virtual void RemoveNotifier(int index) = 0;
};

} // namespace deployment
