// Where the files of a project go for a target: to the machine of a profile, or to a folder beside
// the program.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deployment_target.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/remote/profile/connections.h"
#include "workbench/remote/profile/profile_store.h"
#include "workbench/remote/target/target_place.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// One of the two is set.
struct TDestination {
  std::optional<TProfile> Profile = std::nullopt;
  std::filesystem::path Staging = {}; ///< a folder of this machine, made when it is not there

  /// "profile NAME (PLACE)", or the folder; fit for a person's eyes.
  std::string Text() const;
};

/// What tells one destination from another, so that a plan for one is not carried out on another.
struct TBinding {
  std::string Profile = {}; ///< its name; empty for a folder beside the program
  std::string Place = {};   ///< where that leads
  std::string Machine = {}; ///< that the place is on; empty where the place says it
  std::string HostKey = {}; ///< "TYPE FINGERPRINT" of the machine; empty for a folder

  bool operator==(const TBinding&) const = default;
};

/// A sentence for each part in which the destination is another one.
std::vector<std::string> DifferencesOf(const TBinding& then, const TBinding& now);

/// Finds destinations and connects to them. What it is made with must outlive it.
class TDestinations {
public:
  TDestinations(const TPlatformTable& platforms, const TProfileStore& profiles,
                TConnections& connections)
      : FPlatforms(platforms), FProfiles(profiles), FConnections(connections) {}

  /// The profile that the project assigns to the platform, else the platform's default one; the
  /// folder "package" beside the program for a platform that needs none. Throws TConnectionError
  /// when there is no profile.
  TDestination Find(deployment::ICustomProject& project,
                    const deployment::TDeploymentTarget& target) const;
  /// The destination that was bound; nothing when the profile is gone or is one of another
  /// platform. Throws TInputError for damaged profiles.
  std::optional<TDestination> Find(const TBinding& bound, const std::string& platform) const;
  /// Asks another machine for its key. Throws TConnectionError.
  TBinding BindingOf(const TDestination& destination, const std::atomic<int>& cancelled) const;
  /// Begins to connect, asking nobody. Nothing is said of what is wrong.
  void Prepare(deployment::ICustomProject& project, const std::string& platform) const;
  void Prepare(const TProfile& profile) const;
  /// Closes what is open to the place of the profile and not in use.
  void Leave(const TProfile& profile) const { FConnections.Close(profile.Name); }
  /// Throws TConnectionError. `cancelled` as for TConnections.
  std::shared_ptr<IRemoteConnection> Connect(const TDestination& destination,
                                             const std::atomic<int>* cancelled) const;
  /// Why nothing can be put below the path of a profile; empty when something can. Throws
  /// TConnectionError.
  std::string WriteProblem(const TProfile& profile) const;
  /// What the destination of a platform takes.
  TPlaceRules RulesOf(const TDestination& destination, std::string_view platform) const;

  /// True when the files of the platform go to a folder beside the program.
  bool IsStaged(deployment::ICustomProject& project, const std::string& platform) const;

private:
  const TProfile& ProfileOf(deployment::ICustomProject& project, const std::string& platform) const;

  const TPlatformTable& FPlatforms;
  const TProfileStore& FProfiles;
  TConnections& FConnections;
};

} // namespace workbench
