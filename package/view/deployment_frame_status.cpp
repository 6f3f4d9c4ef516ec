// The status of files: what the cache is filled with, and the words for it.
#include "package/host/api/target_entries.h"
#include "package/view/deployment_frame.h"
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

TEntryPaths TDeploymentFrame::EntryPaths(const IProjectDeployment& deployment) const {
  return {
      *FProject, deployment, {FConfiguration, FActivePlatform}, TEntryPathServices::Of(FServices)};
}

void TDeploymentFrame::UpdateAllFiles(IProjectDeployment& deployment) {
  const TDeploymentFiles files = deployment.GetFiles();
  FFileCache.Reserve(files.size());
  const TEntryPaths paths = EntryPaths(deployment);
  if (FConnected && !FConnecting)
    ExpectQueries(paths, files);
  for (const auto& file : files)
    UpdateCacheEntry(paths, *file);
}

void TDeploymentFrame::ExpectQueries(const TEntryPaths& paths,
                                     const TDeploymentFiles& files) const {
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  if (!services || !FProfile)
    return;
  std::vector<std::string> names;
  names.reserve(files.size());
  for (const auto& file : files) {
    if (IsInPlatform(FActivePlatform, *file))
      names.push_back(paths.RemoteFile(*file));
  }
  services->ExpectRemoteQueries(*FProfile, names);
}

void TDeploymentFrame::GatherInformation() {
  FFileCache.Clear();
  if (IProjectDeployment* deployment = Deployment()) {
    UpdateAllFiles(*deployment);
    UpdateDeployButton();
  }
}

void TDeploymentFrame::GatherRemoteFileInfo() {
  const IOTAProjectPlatforms* platforms = Platforms();
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  if (!platforms || !services)
    return;
  const std::string profileName = platforms->GetProfileName(platforms->GetActivePlatform());
  if (profileName.empty())
    return;
  FProfile = services->FindProfile(profileName);
  FFileCache.Clear();
  if (IProjectDeployment* deployment = Deployment()) {
    {
      const TRemoteQueries queries(services, FProfile.get());
      UpdateAllFiles(*deployment);
    }
    UpdateDeployButton();
  }
}

void TDeploymentFrame::InternalUpdateFileCache(const IProjectDeploymentFile& file) {
  if (IProjectDeployment* deployment = Deployment())
    UpdateCacheEntry(EntryPaths(*deployment), file);
}

void TDeploymentFrame::UpdateFileCache(const IProjectDeploymentFile& file) {
  const IOTAProjectPlatforms* platforms = Platforms();
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  if (!platforms || !services)
    return;
  const std::string profileName = platforms->GetProfileName(platforms->GetActivePlatform());
  if (profileName.empty())
    return;
  FProfile = services->FindProfile(profileName);
  InternalUpdateFileCache(file);
  UpdateDeployButton();
}

void TDeploymentFrame::UpdateCacheEntry(const TEntryPaths& paths,
                                        const IProjectDeploymentFile& file) {
  if (!IsInPlatform(FActivePlatform, file))
    return;
  const std::string localFile = paths.LocalFile(file);
  TFileState state{TRemoteState::NotQueried, FServices.GetFileUtils().FileExists(localFile)};
  if (FConnected && !FConnecting && !CompareWithRemote(paths, file, localFile, state.RemoteState))
    return;
  FFileCache.Store(file.GetLocalName(), state);
}

// False when nothing can be said about the file.
bool TDeploymentFrame::CompareWithRemote(const TEntryPaths& paths,
                                         const IProjectDeploymentFile& file,
                                         std::string_view localFile, TRemoteState& state) const {
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  if (!services || !FProfile)
    return false;
  const std::string remoteFile = paths.RemoteFile(file);
  const auto remote = services->GetRemoteFileTime(*FProfile, remoteFile);
  if (!remote && !services->IsRemoteFileKnown(*FProfile, remoteFile))
    return false;
  if (!remote) {
    state = TRemoteState::NotFound;
    return true;
  }
  const auto local = services->GetLocalFileTime(*FProfile, localFile);
  if (!local)
    return false;
  if (*local == *remote)
    state = TRemoteState::Same;
  else
    state = *local < *remote ? TRemoteState::LocalOlder : TRemoteState::LocalNewer;
  return true;
}

std::string TDeploymentFrame::FixPath(std::string_view path, std::string_view basePath) {
  return deployment::FixPath(path, basePath);
}

bool TDeploymentFrame::IsInPlatform(std::string_view platform, const IProjectDeploymentFile& file) {
  return IsFileInPlatform(platform, file);
}

std::string TDeploymentFrame::StatusText(const TFileData& data, bool local) const {
  if (!FConnected || FConnecting)
    return std::string(LoadText(TViewString::NotConnected));
  const TFileState* state = FFileCache.Find(data.ProjectDeploymentFile->GetLocalName());
  if (!state)
    return std::string(LoadText(TViewString::Unknown));
  for (const TStatusWords& words : StatusWords) {
    if (words.State == state->RemoteState)
      return std::string(LoadText(local ? words.Local : words.Remote));
  }
  return {};
}

std::string TDeploymentFrame::GetLocalStatusText(const TFileData& data) const {
  return StatusText(data, /*local=*/true);
}

std::string TDeploymentFrame::GetRemoteStatusText(const TFileData& data) const {
  return StatusText(data, /*local=*/false);
}

} // namespace deployment
