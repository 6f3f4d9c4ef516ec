// The user's remote profiles as the package meets them: status queries, connection, deploy.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/platformapi.h"
#include "workbench/deploy/deploy_files.h"
#include "workbench/deploy/deploy_run.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/remote/profile/connections.h"
#include "workbench/remote/profile/profile_store.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

class TRemoteQueries;

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
};

/// Used on the main thread but for Connect, which any thread may call.
class TRemoteProfileServices final : public deployment::IOTARemoteProfileServices {
public:
  using TCreateProfile = std::function<bool(deployment::ICustomProject&, std::string_view)>;
  using TWork = std::function<void()>;
  using TRunAside = std::function<void(const TWork&)>;

  TRemoteProfileServices(const std::filesystem::path& profilesFile, const TRemoteHost& host);
  ~TRemoteProfileServices() override;

  const TProfileStore& Profiles() const { return FProfiles; }
  /// Adds, replaces and removes as the store does, and tells the listeners.
  void AddProfile(const TProfile& profile);
  void ChangeProfile(std::string_view name, const TProfile& profile);
  bool RemoveProfile(std::string_view name);
  /// Takes over what other programs did to the profiles, and tells the listeners. Throws
  /// TInputError when the file is damaged.
  void ReadProfilesAnew();
  /// Begins to connect to where the project goes on the platform, for who is going to ask or deploy
  /// soon. Says nothing about what is wrong: who needs the connection hears it.
  void PrepareConnection(deployment::ICustomProject& project, std::string_view platform);
  /// Who lets the user make a profile; without one nobody can be asked.
  void SetCreateProfile(TCreateProfile create) { FCreateProfile = std::move(create); }
  /// Who does work that takes long while the caller waits: runs it once and returns when it is
  /// done, passing on what it throws. A window does it on a thread and goes on painting. Without
  /// one the work runs on the caller's thread.
  void SetRunAside(TRunAside runAside) { FRunAside = std::move(runAside); }
  /// Where deploys are started; null, as at the start: they run with the usual options, and nobody
  /// hears of them. Not owned.
  void SetDeployDesk(IDeployDesk* desk) { FDesk = desk; }
  /// Who is asked while a connection is made: for host keys that are not known, and for what the
  /// SSH client needs to log in. Without them such keys are refused, and only keys and the agent
  /// log in. Set before the first connection.
  void SetHostKeyQuestion(THostKeyQuestion ask) { FConnections.SetHostKeyQuestion(std::move(ask)); }
  void SetSecretQuestion(TSecretQuestion ask) { FConnections.SetSecretQuestion(std::move(ask)); }

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
  std::optional<deployment::TFileTime>
  GetLocalFileTime(const deployment::IOTARemoteProfile& profile,
                   std::string_view localName) override;
  bool Connect(const deployment::IOTARemoteProfile& profile, std::string& message) override;
  /// Uses the profile that the project assigns to the platform, else the platform's default one.
  /// A platform that needs none gets its files in "package" beside the program. Failures stand in
  /// the run. `final` deploys are told to the listeners.
  void Deploy(deployment::ICustomProject& project, std::string_view platform,
              std::string_view configuration, bool final) override;
  int AddNotifier(std::shared_ptr<deployment::IOTARemoteProfileNotifier> notifier) override;
  void RemoveNotifier(int index) override;

private:
  struct TPlace;

  const deployment::IAndroidSDK* AndroidSDK(const std::string& platform) const;
  std::string NDKParameter(deployment::ICustomProject& project, std::string_view platform) const;
  TRemoteQueries* QueriesOf(const deployment::IOTARemoteProfile& profile) const;
  std::shared_ptr<TRemoteProfile> ProfileFor(deployment::ICustomProject& project,
                                             std::string_view platform) const;
  bool IsStaged(deployment::ICustomProject& project, std::string_view platform) const;
  TPlace FindPlace(deployment::ICustomProject& project, std::string_view platform,
                   std::string_view configuration);
  void Deploy(deployment::ICustomProject& project, const TPlace& place, std::string_view platform,
              std::string_view configuration, TDeployRun& run);
  void RunAside(const TWork& work) const { FRunAside ? FRunAside(work) : work(); }
  bool IgnoresCase(std::string_view platform) const;
  void Deploy(deployment::ICustomProject& project, std::string_view platform,
              std::string_view configuration, bool final, TDeployRun& run);
  template <class TTell>
  void Tell(TTell tell) const;

  TProfileStore FProfiles;
  TRemoteHost FHost;
  TConnections FConnections;
  TCreateProfile FCreateProfile;
  TRunAside FRunAside;
  IDeployDesk* FDesk = nullptr;
  std::unordered_map<std::string, std::unique_ptr<TRemoteQueries>>
      FQueries; // by profile, while they run
  std::vector<std::shared_ptr<deployment::IOTARemoteProfileNotifier>> FNotifiers;
};

} // namespace workbench
