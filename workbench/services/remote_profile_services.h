// The user's remote profiles as the package meets them: the profiles, status queries, and the way
// to a deploy.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/platformapi.h"
#include "workbench/deploy/deploy_service.h"
#include "workbench/deploy/destination.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/remote/profile/connections.h"
#include "workbench/remote/profile/profile_store.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

class IUserInteraction;
class TRemoteQueries;
class TSeenFiles;
struct TFileAnswer;

/// One profile as the package holds it: what it said when it was looked up.
class TRemoteProfile final : public deployment::IOTARemoteProfile {
public:
  TRemoteProfile(TProfile profile, const deployment::IAndroidSDK* sdk)
      : FProfile(std::move(profile)), FSDK(sdk) {}

  std::string GetName() const override { return FProfile.Name; }
  std::string GetPlatform() const override { return FProfile.Platform; }
  const deployment::IAndroidSDK* GetAndroidSDK() const override { return FSDK; }
  const TProfile& Profile() const { return FProfile; }

private:
  TProfile FProfile;
  const deployment::IAndroidSDK* FSDK;
};

/// What the services ask of the rest of the host. Everything must outlive them.
struct TRemoteHost {
  const deployment::IMacroUtils& Macros;
  const deployment::IFileUtils& Files;
  const deployment::IPlatformSDKServices& SDKs;
  const TPlatformTable& Platforms;
  /// The directories that the user named in settings, and that of the installation.
  std::function<std::vector<std::filesystem::path>()> UserDirectories;
};

/// Used on the main thread but for Connect and Reach, which any thread may call.
class TRemoteProfileServices final : public deployment::IOTARemoteProfileServices {
public:
  TRemoteProfileServices(const std::filesystem::path& profilesFile, const TRemoteHost& host);
  ~TRemoteProfileServices() override;

  const TProfileStore& Profiles() const { return FProfiles; }
  /// Adds, replaces and removes as the store does, and tells the listeners.
  void AddProfile(const TProfile& profile);
  void ChangeProfile(std::string_view name, const TProfile& profile);
  bool RemoveProfile(std::string_view name);
  /// Changes groups as the store does.
  bool AddToGroup(const std::string& name, const std::vector<std::string>& profiles) {
    return FProfiles.AddToGroup(name, profiles);
  }
  void RemoveFromGroup(const std::string& name, const std::vector<std::string>& profiles) {
    FProfiles.RemoveFromGroup(name, profiles);
  }
  bool RemoveGroup(std::string_view name) { return FProfiles.RemoveGroup(name); }
  /// Takes over what other programs did to the profiles, and tells the listeners. Throws
  /// TInputError when the file is damaged.
  void ReadProfilesAnew();
  const TDestinations& Destinations() const { return FDestinations; }
  /// From now on what the view asks machines about is kept there, too; it must live until the next
  /// call. Null: nowhere.
  void ShareAnswers(TSeenFiles* seen) { FSeen = seen; }
  /// What the view's button does, for callers that have a request of their own.
  const TDeployService& Deploys() const { return FDeploys; }
  /// The face that a user sits before the workbench; null, as at the start: nobody. Set before the
  /// first connection.
  void SetInteraction(std::shared_ptr<IUserInteraction> interaction);

  std::shared_ptr<deployment::IOTARemoteProfile> FindProfile(std::string_view name) const override;
  std::string GetDefaultProfileName(std::string_view platform) const override;
  bool CreateAndAssignProfile(deployment::ICustomProject& project,
                              std::string_view platform) override;
  void BeginRemoteQueries(const deployment::IOTARemoteProfile& profile) override;
  void EndRemoteQueries(const deployment::IOTARemoteProfile& profile) override;
  void ExpectRemoteQueries(const deployment::IOTARemoteProfile& profile,
                           const std::vector<std::string>& remoteNames) override;
  std::optional<deployment::TFileTime>
  GetRemoteFileTime(const deployment::IOTARemoteProfile& profile,
                    std::string_view remoteName) override;
  bool IsRemoteFileKnown(const deployment::IOTARemoteProfile& profile,
                         std::string_view remoteName) override;
  std::optional<deployment::TFileTime>
  GetLocalFileTime(const deployment::IOTARemoteProfile& profile,
                   std::string_view localName) override;
  /// The message names the profile and its machine, and says what to do next.
  bool Connect(const deployment::IOTARemoteProfile& profile, std::string& message) override;
  /// Ends the attempts to connect to the profile of that name; they fail and say nothing.
  void CancelConnect(const std::string& profile);
  /// The same for callers that name the profile themselves: the message is the reason alone.
  bool Reach(const deployment::IOTARemoteProfile& profile, std::string& reason);
  /// Deploys with the usual options, through the interaction. `final` deploys that were not only
  /// planned are told to the listeners.
  void Deploy(deployment::ICustomProject& project, std::string_view platform,
              std::string_view configuration, bool final) override;
  int AddNotifier(std::shared_ptr<deployment::IOTARemoteProfileNotifier> notifier) override;
  void RemoveNotifier(int index) override;

private:
  const deployment::IAndroidSDK* AndroidSDK(const std::string& platform) const;
  TRemoteQueries* QueriesOf(const deployment::IOTARemoteProfile& profile) const;
  TFileAnswer AnswerOf(const deployment::IOTARemoteProfile& profile, std::string_view remoteName);
  template <class TAsk>
  void Ask(const deployment::IOTARemoteProfile& profile, TAsk ask);
  template <class TTell>
  void Tell(TTell tell) const;

  class TAttempt;

  TProfileStore FProfiles;
  TRemoteHost FHost;
  TConnections FConnections;
  TDestinations FDestinations;
  TDeployService FDeploys;
  std::shared_ptr<IUserInteraction> FInteraction; // never null
  std::unordered_map<std::string, std::unique_ptr<TRemoteQueries>>
      FQueries;                // by profile, while they run
  TSeenFiles* FSeen = nullptr; // shares their answers
  std::vector<std::shared_ptr<deployment::IOTARemoteProfileNotifier>> FNotifiers;
  std::mutex FAttemptsMutex;
  std::vector<TAttempt*> FAttempts; // to connect, that run
};

} // namespace workbench
