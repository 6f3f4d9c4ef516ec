#include "workbench/services/remote_profile_services.h"

#include "package/common/errors.h"
#include "package/common/path_text.h"
#include "workbench/deploy/deploy_executor.h"
#include "workbench/deploy/remote_queries.h"
#include "workbench/files/machine_path.h"
#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace workbench {
namespace {

using deployment::IOTARemoteProfile;
using deployment::TFileTime;

constexpr std::string_view AndroidPlatform = "Android";
constexpr std::string_view StagingDirectory = "package";

// Every profile that the package holds was given out here.
const TProfile& ProfileOf(const IOTARemoteProfile& profile) {
  const auto* own = dynamic_cast<const TRemoteProfile*>(&profile);
  if (!own)
    throw TConnectionError("the profile \"" + profile.GetName() + "\" is of another host");
  return own->Profile();
}

TDeployEnd EndOf(const TDeployRun& run) {
  if (run.Cancelled != 0)
    return TDeployEnd::Interrupted;
  return std::ranges::any_of(
             run.Report.Rows,
             [](const TDeployRow& row) { return row.Action == TDeployAction::Failed; })
             ? TDeployEnd::Failed
             : TDeployEnd::Done;
}

} // namespace

// Where a deploy goes.
struct TRemoteProfileServices::TPlace {
  std::filesystem::path Staging = {}; // a folder of this machine; empty: the profile's machine
  std::shared_ptr<IOTARemoteProfile> Profile = nullptr;
  bool AllowOutside = false;
};

TRemoteProfileServices::TRemoteProfileServices(const std::filesystem::path& profilesFile,
                                               const TRemoteHost& host)
    : FProfiles(profilesFile), FHost(host), FConnections([](const std::string& platform) {
        return NameRulesOf(platform, /*ignoresCase=*/false).WindowsNames;
      }) {}

TRemoteProfileServices::~TRemoteProfileServices() = default;

template <class TTell>
void TRemoteProfileServices::Tell(TTell tell) const {
  for (std::size_t i = 0; i < FNotifiers.size(); ++i) {
    if (const auto notifier = FNotifiers[i])
      tell(*notifier);
  }
}

bool TRemoteProfileServices::IgnoresCase(std::string_view platform) const {
  const TPlatform* facts = FHost.Platforms.FindPlatform(platform);
  return facts && facts->IgnoresCase();
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
  for (const auto& [name, removed] : known) {
    FConnections.Close(name);
    Tell([&](auto& notifier) { notifier.RemoteProfileRemoved(*removed); });
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
  return FCreateProfile && FCreateProfile(project, platform);
}

void TRemoteProfileServices::BeginRemoteQueries(const IOTARemoteProfile& profile) {
  std::unique_ptr<TRemoteQueries> queries;
  try {
    RunAside([&] {
      const TProfile& asked = ProfileOf(profile);
      queries = std::make_unique<TRemoteQueries>(FConnections.Open(asked), asked.AllowOutside);
    });
  } catch (const TConnectionError&) {
    queries = nullptr; // every file counts as not found
  }
  FQueries.insert_or_assign(profile.GetName(), std::move(queries));
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
    RunAside([&] { queries->Ask(remoteNames); });
}

std::optional<TFileTime> TRemoteProfileServices::GetRemoteFileTime(const IOTARemoteProfile& profile,
                                                                   std::string_view remoteName) {
  if (!FQueries.contains(profile.GetName())) {
    BeginRemoteQueries(profile);
    const auto time = GetRemoteFileTime(profile, remoteName);
    EndRemoteQueries(profile);
    return time;
  }
  TRemoteQueries* queries = QueriesOf(profile);
  return queries ? queries->TimeOf(remoteName) : std::nullopt;
}

std::optional<TFileTime> TRemoteProfileServices::GetLocalFileTime(const IOTARemoteProfile& profile,
                                                                  std::string_view localName) {
  const auto time = LocalFileTime(ToMachineText(localName));
  const TRemoteQueries* queries = QueriesOf(profile);
  return time && queries ? Truncated(*time, queries->TimeResolution()) : time;
}

bool TRemoteProfileServices::Connect(const IOTARemoteProfile& profile, std::string& message) {
  try {
    FConnections.Open(ProfileOf(profile));
    return true;
  } catch (const TConnectionError& error) {
    message = error.what();
    return false;
  }
}

std::string TRemoteProfileServices::NDKParameter(deployment::ICustomProject& project,
                                                 std::string_view platform) const {
  if (platform != AndroidPlatform)
    return {};
  const auto* platforms = project.GetProjectPlatforms();
  const std::string name = platforms ? platforms->GetSDKName(platform) : std::string();
  const auto* sdk = name.empty() ? FHost.SDKs.GetDefaultSDK(platform) : FHost.SDKs.FindSDK(name);
  const auto* android = sdk ? FHost.SDKs.AsAndroidSDK(*sdk) : nullptr;
  return android ? ";NDKBasePath=" + FHost.Macros.ExpandRootMacro(android->GetNDKBasePath(), "")
                 : std::string();
}

// The profile that the project assigns to the platform, else the platform's default one.
std::shared_ptr<TRemoteProfile>
TRemoteProfileServices::ProfileFor(deployment::ICustomProject& project,
                                   std::string_view platform) const {
  const auto* platforms = project.GetProjectPlatforms();
  std::string name = platforms ? platforms->GetProfileName(platform) : std::string();
  if (name.empty())
    name = GetDefaultProfileName(platform);
  if (name.empty())
    throw TConnectionError("the project assigns no profile to the platform \"" +
                           std::string(platform) + "\", and the platform has no default one");
  const TProfile* profile = FProfiles.Find(name);
  if (!profile)
    throw TConnectionError("there is no profile \"" + name + "\"");
  if (profile->Platform != platform)
    throw TConnectionError("the profile \"" + name + "\" is one of the platform \"" +
                           profile->Platform + "\", not of \"" + std::string(platform) + "\"");
  return std::make_shared<TRemoteProfile>(*profile, AndroidSDK(profile->Platform));
}

void TRemoteProfileServices::PrepareConnection(deployment::ICustomProject& project,
                                               std::string_view platform) {
  if (IsStaged(project, platform))
    return;
  try {
    FConnections.Prepare(ProfileFor(project, platform)->Profile());
  } catch (const TConnectionError&) {
    return;
  } catch (const deployment::TInputError&) {
    return; // damaged profiles
  }
}

// Programs of such a platform are packed here and go to no machine.
bool TRemoteProfileServices::IsStaged(deployment::ICustomProject& project,
                                      std::string_view platform) const {
  const TPlatform* facts = FHost.Platforms.FindPlatform(platform);
  const std::string personality = project.GetPersonality();
  return platform == AndroidPlatform || (facts && !facts->RequiresProfile(personality) &&
                                         !facts->PersonalityRequiresProfile(personality));
}

TRemoteProfileServices::TPlace
TRemoteProfileServices::FindPlace(deployment::ICustomProject& project, std::string_view platform,
                                  std::string_view configuration) {
  if (IsStaged(project, platform)) {
    const auto output = ToMachinePath(project.GetOutputFileName(configuration, platform));
    return {.Staging = output.parent_path() / StagingDirectory};
  }
  const auto profile = ProfileFor(project, platform);
  return {.Profile = profile, .AllowOutside = profile->Profile().AllowOutside};
}

void TRemoteProfileServices::Deploy(deployment::ICustomProject& project, std::string_view platform,
                                    std::string_view configuration, bool final) {
  if (!FDesk) {
    TDeployRun usual;
    return Deploy(project, platform, configuration, final, usual);
  }
  struct TEnd {
    IDeployDesk& Desk;
    TDeployRun& Run;
    ~TEnd() { Desk.End(Run); }
  };
  const TEnd end{*FDesk, FDesk->Begin()};
  Deploy(project, platform, configuration, final, end.Run);
}

void TRemoteProfileServices::Deploy(deployment::ICustomProject& project, std::string_view platform,
                                    std::string_view configuration, bool final, TDeployRun& run) {
  std::shared_ptr<IOTARemoteProfile> profile;
  try {
    const TPlace place = FindPlace(project, platform, configuration);
    profile = place.Profile;
    Deploy(project, place, platform, configuration, run);
  } catch (const TConnectionError& error) {
    run.Report.End = run.Cancelled != 0 ? TDeployEnd::Interrupted : TDeployEnd::NoConnection;
    run.Report.Message = error.what();
  }
  if (final && !run.Options.DryRun)
    Tell([&](auto& notifier) {
      notifier.AfterDeploy(run.Report.End == TDeployEnd::Done, profile.get());
    });
}

void TRemoteProfileServices::Deploy(deployment::ICustomProject& project, const TPlace& place,
                                    std::string_view platform, std::string_view configuration,
                                    TDeployRun& run) {
  auto* deployment = project.GetProjectDeployment();
  if (!deployment) {
    run.Report.End = TDeployEnd::Done;
    return;
  }
  TDeployTarget target{platform, configuration, {}, NDKParameter(project, platform)};
  if (place.Staging.empty())
    target.BaseDirectory = deployment->GetRemoteBaseDir(platform);
  const TConnect connect = [&]() -> std::shared_ptr<IRemoteConnection> {
    if (place.Staging.empty())
      return FConnections.Open(ProfileOf(*place.Profile), &run.Cancelled);
    return std::make_shared<TFolderConnection>(place.Staging, TMissingFolder::Make);
  };
  std::shared_ptr<IRemoteConnection> connection;
  const TPlanOptions options{
      .Force = run.Options.Force,
      .Checksum = run.Options.Checksum,
      .SkipMissing = run.Options.SkipMissing,
      .AllowOutside = place.AllowOutside,
      .Names = NameRulesOf(platform, IgnoresCase(platform)),
  };
  TDeployPlan plan;
  auto files = CollectDeployFiles(project, *deployment, target, {FHost.Macros, FHost.Files});
  RunAside([&] {
    plan = MakeDeployPlan(std::move(files), options, [&]() -> IRemoteConnection& {
      connection = connect();
      return *connection;
    });
  });
  TDeployReport& report = run.Report;
  report.Rows = RowsOf(plan);
  report.Problems = std::move(plan.Problems);
  report.Commands = plan.Commands;
  if (!report.Problems.empty()) {
    report.End = TDeployEnd::Refused;
    return;
  }
  if (run.Options.DryRun) {
    report.End = EndOf(run);
    return;
  }
  if (!plan.Commands.empty() && !(run.MayRun && run.MayRun(plan.Commands))) {
    report.End = TDeployEnd::NoConsent;
    return;
  }
  if (run.Progress)
    run.Progress->Planned(report.Rows);
  const auto projectFile = ToMachinePath(project.GetProjectFileName());
  RunAside([&] {
    ExecuteDeployPlan(plan, *connection, connect, projectFile.parent_path(), run);
    connection.reset();
  });
  report.End = EndOf(run);
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
