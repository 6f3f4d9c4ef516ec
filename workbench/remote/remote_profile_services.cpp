#include "workbench/remote/remote_profile_services.h"

#include "package/common/path_text.h"
#include "workbench/files/machine_path.h"
#include "workbench/remote/deploy_executor.h"

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

// What is open to one profile while questions are asked.
struct TRemoteProfileServices::TQueries {
  explicit TQueries(const TProfile& profile)
      : Connection(profile.Path), AllowOutside(profile.AllowOutside) {}

  const TRemoteDirectory& Directory(const std::string& name) {
    const auto [entry, isNew] = Directories.try_emplace(name);
    if (isNew)
      entry->second = Connection.Resolve({&name, 1}).front();
    return entry->second;
  }

  TFolderConnection Connection;
  bool AllowOutside;
  std::unordered_map<std::string, TRemoteDirectory> Directories;
};

// Where a deploy goes.
struct TRemoteProfileServices::TPlace {
  std::filesystem::path Path;
  TMissingFolder Missing = TMissingFolder::Refuse;
  bool AllowOutside = false;
  bool IsStaging = false;
  std::shared_ptr<IOTARemoteProfile> Profile = nullptr;
};

TRemoteProfileServices::TRemoteProfileServices(const std::filesystem::path& profilesFile,
                                               const TRemoteHost& host)
    : FProfiles(profilesFile), FHost(host) {}

TRemoteProfileServices::~TRemoteProfileServices() = default;

template <class TTell>
void TRemoteProfileServices::Tell(TTell tell) const {
  for (std::size_t i = 0; i < FNotifiers.size(); ++i) {
    if (const auto notifier = FNotifiers[i])
      tell(*notifier);
  }
}

void TRemoteProfileServices::AddProfile(const TProfile& profile) {
  FProfiles.Add(profile);
  const auto added = FindProfile(profile.Name);
  Tell([&](auto& notifier) { notifier.RemoteProfileAdded(*added); });
}

bool TRemoteProfileServices::RemoveProfile(std::string_view name) {
  const auto removed = FindProfile(name);
  if (!removed || !FProfiles.Remove(name))
    return false;
  Tell([&](auto& notifier) { notifier.RemoteProfileRemoved(*removed); });
  return true;
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
  try {
    FQueries.insert_or_assign(profile.GetName(), std::make_unique<TQueries>(ProfileOf(profile)));
  } catch (const TConnectionError&) {
    FQueries.insert_or_assign(profile.GetName(), nullptr); // every file counts as not found
  }
}

void TRemoteProfileServices::EndRemoteQueries(const IOTARemoteProfile& profile) {
  FQueries.erase(profile.GetName());
}

std::optional<TFileTime> TRemoteProfileServices::GetRemoteFileTime(const IOTARemoteProfile& profile,
                                                                   std::string_view remoteName) {
  const auto open = FQueries.find(profile.GetName());
  if (open == FQueries.end()) {
    BeginRemoteQueries(profile);
    const auto time = GetRemoteFileTime(profile, remoteName);
    EndRemoteQueries(profile);
    return time;
  }
  TRemotePath path = ParseRemotePath(remoteName);
  if (!open->second || path.Climbs || path.Parts.empty() ||
      path.Start == TRemotePath::TStart::Drive)
    return std::nullopt;
  TQueries& queries = *open->second;
  const std::string name(path.Parts.back());
  path.Parts.pop_back();
  std::string text = path.Joined();
  if (path.Start == TRemotePath::TStart::FileSystemRoot)
    text.insert(text.begin(), '/');
  const TRemoteDirectory& directory = queries.Directory(text);
  if (!directory.Exists || !(directory.IsInside || queries.AllowOutside))
    return std::nullopt;
  const TRemoteName asked{directory.Path, name};
  const TRemoteStatus status = queries.Connection.Examine({&asked, 1}).front();
  if (status.Kind != TRemoteKind::File)
    return std::nullopt;
  return Truncated(status.Modified, queries.Connection.TimeResolution());
}

std::optional<TFileTime> TRemoteProfileServices::GetLocalFileTime(const IOTARemoteProfile& profile,
                                                                  std::string_view localName) {
  const auto time = LocalFileTime(ToMachinePath(localName));
  const auto open = FQueries.find(profile.GetName());
  if (!time || open == FQueries.end() || !open->second)
    return time;
  return Truncated(*time, open->second->Connection.TimeResolution());
}

bool TRemoteProfileServices::Connect(const IOTARemoteProfile& profile, std::string& message) {
  try {
    const TProfile& asked = ProfileOf(profile);
    const TFolderConnection connection(asked.Path);
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

TRemoteProfileServices::TPlace
TRemoteProfileServices::FindPlace(deployment::ICustomProject& project, std::string_view platform,
                                  std::string_view configuration) {
  const TPlatform* facts = FHost.Platforms.FindPlatform(platform);
  const std::string personality = project.GetPersonality();
  if (platform == AndroidPlatform || (facts && !facts->RequiresProfile(personality) &&
                                      !facts->PersonalityRequiresProfile(personality))) {
    const auto output = ToMachinePath(project.GetOutputFileName(configuration, platform));
    return {.Path = output.parent_path() / StagingDirectory,
            .Missing = TMissingFolder::Make,
            .IsStaging = true};
  }
  const auto* platforms = project.GetProjectPlatforms();
  std::string name = platforms ? platforms->GetProfileName(platform) : std::string();
  if (name.empty())
    name = GetDefaultProfileName(platform);
  if (name.empty())
    throw TConnectionError("the project assigns no profile to the platform \"" +
                           std::string(platform) + "\", and the platform has no default one");
  const auto profile = FindProfile(name);
  if (!profile)
    throw TConnectionError("there is no profile \"" + name + "\"");
  if (profile->GetPlatform() != platform)
    throw TConnectionError("the profile \"" + name + "\" is one of the platform \"" +
                           profile->GetPlatform() + "\", not of \"" + std::string(platform) + "\"");
  return {.Path = ProfileOf(*profile).Path,
          .AllowOutside = ProfileOf(*profile).AllowOutside,
          .Profile = profile};
}

void TRemoteProfileServices::Deploy(deployment::ICustomProject& project, std::string_view platform,
                                    std::string_view configuration, bool final) {
  TDeployRun usual;
  TDeployRun& run = FRun ? *FRun : usual;
  std::shared_ptr<IOTARemoteProfile> profile;
  try {
    const TPlace place = FindPlace(project, platform, configuration);
    profile = place.Profile;
    Deploy(project, place, platform, configuration, run);
  } catch (const TConnectionError& error) {
    run.Report.End = TDeployEnd::NoConnection;
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
  if (!place.IsStaging)
    target.BaseDirectory = deployment->GetRemoteBaseDir(platform);
  const TConnect connect = [&]() -> std::unique_ptr<IRemoteConnection> {
    return std::make_unique<TFolderConnection>(place.Path, place.Missing);
  };
  std::unique_ptr<IRemoteConnection> connection;
  const TPlatform* facts = FHost.Platforms.FindPlatform(platform);
  const TPlanOptions options{
      .Force = run.Options.Force,
      .Checksum = run.Options.Checksum,
      .SkipMissing = run.Options.SkipMissing,
      .AllowOutside = place.AllowOutside,
      .Names = NameRulesOf(platform, facts && facts->IgnoresCase()),
  };
  TDeployPlan plan;
  auto files = CollectDeployFiles(project, *deployment, target, {FHost.Macros, FHost.Files});
  RunAside([&] {
    connection = connect();
    plan = MakeDeployPlan(std::move(files), options, *connection);
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
