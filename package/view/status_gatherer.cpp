#include "package/view/status_gatherer.h"

#include "package/host/api/ideservices.h"
#include "package/host/api/target_entries.h"
#include "package/view/view_strings.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace deployment {
namespace {

// A run of questions to one profile; without services or profile there is nobody to tell.
class TRemoteQueries {
public:
  TRemoteQueries(IOTARemoteProfileServices* services, const IOTARemoteProfile* profile)
      : FServices(profile ? services : nullptr), FProfile(profile) {
    if (FServices)
      FServices->BeginRemoteQueries(*FProfile);
  }
  TRemoteQueries(const TRemoteQueries&) = delete;
  TRemoteQueries& operator=(const TRemoteQueries&) = delete;
  ~TRemoteQueries() {
    if (FServices)
      FServices->EndRemoteQueries(*FProfile);
  }

private:
  IOTARemoteProfileServices* FServices;
  const IOTARemoteProfile* FProfile;
};

struct TStatusWords {
  TRemoteState State;
  TViewString Local;
  TViewString Remote;
};

constexpr std::array<TStatusWords, 4> StatusWords{{
    {TRemoteState::Same, TViewString::Same, TViewString::Same},
    {TRemoteState::LocalOlder, TViewString::Older, TViewString::Newer},
    {TRemoteState::LocalNewer, TViewString::Newer, TViewString::Older},
    {TRemoteState::NotFound, TViewString::NotFound, TViewString::NotFound},
}};

} // namespace

TEntryPaths TStatusGatherer::EntryPaths(const IProjectDeployment& deployment) const {
  return {*FTarget.Project, deployment, FTarget.AsTarget(), TEntryPathServices::Of(FServices)};
}

bool TStatusGatherer::GatherInformation() {
  FFileCache.Clear();
  IProjectDeployment* deployment = FTarget.Deployment();
  if (deployment)
    UpdateAllFiles(*deployment);
  return deployment != nullptr;
}

bool TStatusGatherer::GatherRemoteFileInfo() {
  if (!FindProfile())
    return false;
  FFileCache.Clear();
  IProjectDeployment* deployment = FTarget.Deployment();
  if (deployment) {
    const TRemoteQueries queries(FServices.GetRemoteProfileServices(), FConnection.Profile().get());
    UpdateAllFiles(*deployment);
  }
  return deployment != nullptr;
}

// False, and nothing changes, where the project assigns no profile to its active platform.
bool TStatusGatherer::FindProfile() {
  const IOTAProjectPlatforms* platforms = FTarget.Platforms();
  const IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  if (!platforms || !services)
    return false;
  const std::string name = platforms->GetProfileName(platforms->GetActivePlatform());
  if (name.empty())
    return false;
  FConnection.SetProfile(services->FindProfile(name));
  return true;
}

void TStatusGatherer::UpdateAllFiles(IProjectDeployment& deployment) {
  const TDeploymentFiles files = deployment.GetFiles();
  FFileCache.Reserve(files.size());
  const TEntryPaths paths = EntryPaths(deployment);
  if (FConnection.IsConnected())
    ExpectQueries(paths, files);
  for (const auto& file : files)
    UpdateCacheEntry(paths, *file);
}

void TStatusGatherer::ExpectQueries(const TEntryPaths& paths, const TDeploymentFiles& files) const {
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  if (!services || !FConnection.Profile())
    return;
  std::vector<std::string> names;
  names.reserve(files.size());
  for (const auto& file : files) {
    if (IsFileInPlatform(FTarget.ActivePlatform, *file))
      names.push_back(paths.RemoteFile(*file));
  }
  services->ExpectRemoteQueries(*FConnection.Profile(), names);
}

void TStatusGatherer::InternalUpdateFileCache(const IProjectDeploymentFile& file) {
  if (const IProjectDeployment* deployment = FTarget.Deployment())
    UpdateCacheEntry(EntryPaths(*deployment), file);
}

bool TStatusGatherer::UpdateFileCache(const IProjectDeploymentFile& file) {
  if (!FindProfile())
    return false;
  InternalUpdateFileCache(file);
  return true;
}

void TStatusGatherer::UpdateCacheEntry(const TEntryPaths& paths,
                                       const IProjectDeploymentFile& file) {
  if (!IsFileInPlatform(FTarget.ActivePlatform, file))
    return;
  const std::string localFile = paths.LocalFile(file);
  TFileState state{TRemoteState::NotQueried, FServices.GetFileUtils().FileExists(localFile)};
  if (FConnection.IsConnected() && !CompareWithRemote(paths, file, localFile, state.RemoteState))
    return;
  FFileCache.Store(file.GetLocalName(), state);
}

// False when nothing can be said about the file.
bool TStatusGatherer::CompareWithRemote(const TEntryPaths& paths,
                                        const IProjectDeploymentFile& file,
                                        std::string_view localFile, TRemoteState& state) const {
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  const IOTARemoteProfile* profile = FConnection.Profile().get();
  if (!services || !profile)
    return false;
  const std::string remoteFile = paths.RemoteFile(file);
  const auto remote = services->GetRemoteFileTime(*profile, remoteFile);
  if (!remote && !services->IsRemoteFileKnown(*profile, remoteFile))
    return false;
  if (!remote) {
    state = TRemoteState::NotFound;
    return true;
  }
  const auto local = services->GetLocalFileTime(*profile, localFile);
  if (!local)
    return false;
  if (*local == *remote)
    state = TRemoteState::Same;
  else
    state = *local < *remote ? TRemoteState::LocalOlder : TRemoteState::LocalNewer;
  return true;
}

std::string TStatusGatherer::StatusText(const IProjectDeploymentFile& file, bool local) const {
  if (!FConnection.IsConnected())
    return std::string(LoadText(TViewString::NotConnected));
  const TFileState* state = FFileCache.Find(file.GetLocalName());
  if (!state)
    return std::string(LoadText(TViewString::Unknown));
  for (const TStatusWords& words : StatusWords) {
    if (words.State == state->RemoteState)
      return std::string(LoadText(local ? words.Local : words.Remote));
  }
  return {};
}

std::string TStatusGatherer::LocalStatusText(const IProjectDeploymentFile& file) const {
  return StatusText(file, /*local=*/true);
}

std::string TStatusGatherer::RemoteStatusText(const IProjectDeploymentFile& file) const {
  return StatusText(file, /*local=*/false);
}

bool TStatusGatherer::LocalFileExists(const IProjectDeploymentFile& file) const {
  const TFileState* state = FFileCache.Find(file.GetLocalName());
  return state && state->LocalFileExists;
}

} // namespace deployment
