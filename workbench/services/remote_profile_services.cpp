#include "workbench/services/remote_profile_services.h"

#include "workbench/deploy/remote_queries.h"
#include "workbench/files/machine_path.h"
#include "workbench/remote/target/file_times.h"
#include "workbench/services/user_interaction.h"

#include <atomic>
#include <utility>

namespace workbench {
namespace {

using deployment::IOTARemoteProfile;
using deployment::TFileTime;

constexpr std::string_view AndroidPlatform = "Android";

// Every profile that the package holds was given out here.
const TProfile& ProfileOf(const IOTARemoteProfile& profile) {
  const auto* own = dynamic_cast<const TRemoteProfile*>(&profile);
  if (!own)
    throw TConnectionError("the profile \"" + profile.GetName() + "\" is of another host");
  return own->Profile();
}

} // namespace

TRemoteProfileServices::TRemoteProfileServices(const std::filesystem::path& profilesFile,
                                               const TRemoteHost& host)
    : FProfiles(profilesFile), FHost(host), FDestinations(host.Platforms, FProfiles, FConnections),
      FDeploys(FDestinations, {host.Macros, host.Files, this, &host.SDKs}, host.UserDirectories),
      FInteraction(std::make_shared<IUserInteraction>()) {}

TRemoteProfileServices::~TRemoteProfileServices() = default;

template <class TTell>
void TRemoteProfileServices::Tell(TTell tell) const {
  for (std::size_t i = 0; i < FNotifiers.size(); ++i) {
    if (const auto notifier = FNotifiers[i])
      tell(*notifier);
  }
}

void TRemoteProfileServices::SetInteraction(std::shared_ptr<IUserInteraction> interaction) {
  FInteraction = interaction ? std::move(interaction) : std::make_shared<IUserInteraction>();
  FConnections.SetPrompts(FInteraction->Prompts());
}

void TRemoteProfileServices::AddProfile(const TProfile& profile) {
  FProfiles.Add(profile);
  const auto added = FindProfile(profile.Name);
  Tell([&](auto& notifier) { notifier.RemoteProfileAdded(*added); });
}

void TRemoteProfileServices::ChangeProfile(std::string_view name, const TProfile& profile) {
  FProfiles.Replace(name, profile);
  FConnections.Close(std::string(name));
  const auto changed = FindProfile(profile.Name);
  Tell([&](auto& notifier) {
    if (profile.Name != name)
      notifier.RemoteProfileRenamed(*changed, name);
    notifier.RemoteProfileChanged(*changed);
  });
}

bool TRemoteProfileServices::RemoveProfile(std::string_view name) {
  const auto removed = FindProfile(name);
  if (!removed || !FProfiles.Remove(name))
    return false;
  FConnections.Close(std::string(name));
  Tell([&](auto& notifier) { notifier.RemoteProfileRemoved(*removed); });
  return true;
}

void TRemoteProfileServices::ReadProfilesAnew() {
  const std::vector<TProfile> before = FProfiles.List();
  std::unordered_map<std::string, std::shared_ptr<deployment::IOTARemoteProfile>> known;
  for (const TProfile& profile : before)
    known.emplace(profile.Name, FindProfile(profile.Name));
  FProfiles.Forget();
  for (const TProfile& profile : std::vector(FProfiles.List())) {
    const auto was = std::ranges::find(before, profile.Name, &TProfile::Name);
    known.erase(profile.Name);
    if (was != before.end() && *was == profile)
      continue;
    FConnections.Close(profile.Name);
    const auto changed = FindProfile(profile.Name);
    if (was == before.end())
      Tell([&](auto& notifier) { notifier.RemoteProfileAdded(*changed); });
    else
      Tell([&](auto& notifier) { notifier.RemoteProfileChanged(*changed); });
  }
  for (const auto& entry : known) {
    FConnections.Close(entry.first);
    Tell([&](auto& notifier) { notifier.RemoteProfileRemoved(*entry.second); });
  }
}

const deployment::IAndroidSDK*
TRemoteProfileServices::AndroidSDK(const std::string& platform) const {
  const auto* sdk = platform == AndroidPlatform ? FHost.SDKs.GetDefaultSDK(platform) : nullptr;
  return sdk ? FHost.SDKs.AsAndroidSDK(*sdk) : nullptr;
}

std::shared_ptr<IOTARemoteProfile>
TRemoteProfileServices::FindProfile(std::string_view name) const {
  const TProfile* profile = FProfiles.Find(name);
  return profile ? std::make_shared<TRemoteProfile>(*profile, AndroidSDK(profile->Platform))
                 : nullptr;
}

std::string TRemoteProfileServices::GetDefaultProfileName(std::string_view platform) const {
  const TProfile* profile = FProfiles.FindDefault(platform);
  return profile ? profile->Name : std::string();
}

bool TRemoteProfileServices::CreateAndAssignProfile(deployment::ICustomProject& project,
                                                    std::string_view platform) {
  return FInteraction->CreateProfile(project, platform);
}

// Asks the machine of a profile; what is not answered stays unknown.
template <class TAsk>
void TRemoteProfileServices::Ask(const IOTARemoteProfile& profile, TAsk ask) {
  try {
    FInteraction->RunInBackground(ask);
  } catch (const TConnectionError& error) {
    FInteraction->ConnectionLost(profile.GetName(), error.what());
  }
}

void TRemoteProfileServices::BeginRemoteQueries(const IOTARemoteProfile& profile) {
  std::unique_ptr<TRemoteQueries>& queries = FQueries[profile.GetName()];
  queries = nullptr;
  Ask(profile, [&] {
    const TProfile& asked = ProfileOf(profile);
    queries = std::make_unique<TRemoteQueries>(
        FConnections.Open(asked), FDestinations.RulesOf({.Profile = asked}, asked.Platform), FSeen);
  });
}

void TRemoteProfileServices::EndRemoteQueries(const IOTARemoteProfile& profile) {
  FQueries.erase(profile.GetName());
}

TRemoteQueries* TRemoteProfileServices::QueriesOf(const IOTARemoteProfile& profile) const {
  const auto open = FQueries.find(profile.GetName());
  return open == FQueries.end() ? nullptr : open->second.get();
}

void TRemoteProfileServices::ExpectRemoteQueries(const IOTARemoteProfile& profile,
                                                 const std::vector<std::string>& remoteNames) {
  if (TRemoteQueries* queries = QueriesOf(profile))
    Ask(profile, [&] { queries->Ask(remoteNames); });
}

TFileAnswer TRemoteProfileServices::AnswerOf(const IOTARemoteProfile& profile,
                                             std::string_view remoteName) {
  TRemoteQueries* queries = QueriesOf(profile);
  if (!queries)
    return {};
  if (!queries->IsAsked(remoteName))
    Ask(profile, [&] { queries->Ask({std::string(remoteName)}); });
  return queries->AnswerOf(remoteName);
}

std::optional<TFileTime> TRemoteProfileServices::GetRemoteFileTime(const IOTARemoteProfile& profile,
                                                                   std::string_view remoteName) {
  if (FQueries.contains(profile.GetName()))
    return AnswerOf(profile, remoteName).Time;
  BeginRemoteQueries(profile);
  const auto time = AnswerOf(profile, remoteName).Time;
  EndRemoteQueries(profile);
  return time;
}

bool TRemoteProfileServices::IsRemoteFileKnown(const IOTARemoteProfile& profile,
                                               std::string_view remoteName) {
  return AnswerOf(profile, remoteName).IsKnown;
}

std::optional<TFileTime> TRemoteProfileServices::GetLocalFileTime(const IOTARemoteProfile& profile,
                                                                  std::string_view localName) {
  const auto time = LocalFileTime(ToMachineText(localName));
  const TRemoteQueries* queries = QueriesOf(profile);
  return time && queries ? Truncated(*time, queries->TimeResolution()) : time;
}

// Known to the services as long as it runs.
class TRemoteProfileServices::TAttempt {
public:
  TAttempt(TRemoteProfileServices& services, std::string profile)
      : FServices(services), FProfile(std::move(profile)) {
    const std::lock_guard lock(FServices.FAttemptsMutex);
    FServices.FAttempts.push_back(this);
  }
  ~TAttempt() {
    const std::lock_guard lock(FServices.FAttemptsMutex);
    std::erase(FServices.FAttempts, this);
  }
  TAttempt(const TAttempt&) = delete;
  TAttempt& operator=(const TAttempt&) = delete;

  const std::string& Profile() const { return FProfile; }
  void Cancel() { FCancelled = 1; }
  const std::atomic<int>& Cancelled() const { return FCancelled; }

private:
  TRemoteProfileServices& FServices;
  const std::string FProfile;
  std::atomic<int> FCancelled = 0;
};

bool TRemoteProfileServices::Reach(const IOTARemoteProfile& profile, std::string& reason) {
  const TAttempt attempt(*this, profile.GetName());
  try {
    FConnections.Open(ProfileOf(profile), &attempt.Cancelled());
    return true;
  } catch (const TConnectionError& error) {
    reason = attempt.Cancelled() != 0 ? std::string() : error.what();
    return false;
  }
}

void TRemoteProfileServices::CancelConnect(const std::string& profile) {
  const std::lock_guard lock(FAttemptsMutex);
  for (TAttempt* attempt : FAttempts) {
    if (attempt->Profile() == profile)
      attempt->Cancel();
  }
}

bool TRemoteProfileServices::Connect(const IOTARemoteProfile& profile, std::string& message) {
  std::string reason;
  if (Reach(profile, reason))
    return true;
  message.clear();
  if (reason.empty())
    return false; // somebody gave it up
  message = "There is no connection to " + TDestination{.Profile = ProfileOf(profile)}.Text() +
            ": " + reason +
            ".\n\nSee that the machine runs and can be reached from here, and that the profile is "
            "right: Tools, Remote Profiles shows and tests it. Then connect again.";
  return false;
}

void TRemoteProfileServices::Deploy(deployment::ICustomProject& project, std::string_view platform,
                                    std::string_view configuration, bool final) {
  const TDeployRequest request{
      .Project = project,
      .Target = {std::string(configuration), std::string(platform)},
      .Background = [this](const auto& work) { FInteraction->RunInBackground(work); },
      .Pause = [this] { FInteraction->Pause(); }};
  const TDeployReport report = FInteraction->Deploy(FDeploys, request);
  if (!final || report.End == TDeployEnd::NotStarted)
    return;
  const auto profile = FindProfile(GetTargetProfileName(project, platform, *this));
  Tell(
      [&](auto& notifier) { notifier.AfterDeploy(report.End == TDeployEnd::Done, profile.get()); });
}

int TRemoteProfileServices::AddNotifier(
    std::shared_ptr<deployment::IOTARemoteProfileNotifier> notifier) {
  FNotifiers.push_back(std::move(notifier));
  return static_cast<int>(FNotifiers.size()) - 1;
}

void TRemoteProfileServices::RemoveNotifier(int index) {
  if (index >= 0 && static_cast<std::size_t>(index) < FNotifiers.size())
    FNotifiers[static_cast<std::size_t>(index)].reset();
}

} // namespace workbench
