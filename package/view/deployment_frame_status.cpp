// The status of files: what the cache is filled with, and the words for it.
#include "package/common/path_text.h"
#include "package/view/deployment_frame.h"
#include "package/view/platform_membership.h"
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

TDeploymentFrame::TStatusSource
TDeploymentFrame::StatusSource(IProjectDeployment& deployment) const {
  // A root is a name; as the base of paths it ends in a delimiter.
  const std::string root = deployment.GetRemoteBaseDir(FActivePlatform);
  return {deployment, TLocalNames(*FProject, FActivePlatform, FConfiguration, FServices),
          root.empty() ? root : WithTrailingDelimiter(root)};
}

void TDeploymentFrame::UpdateAllFiles(IProjectDeployment& deployment) {
  const TDeploymentFiles files = deployment.GetFiles();
  FFileCache.Reserve(files.size());
  const TStatusSource source = StatusSource(deployment);
  if (FConnected && !FConnecting)
    ExpectQueries(source, files);
  for (const auto& file : files)
    UpdateCacheEntry(source, *file);
}

void TDeploymentFrame::ExpectQueries(const TStatusSource& source,
                                     const TDeploymentFiles& files) const {
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  if (!services || !FProfile)
    return;
  std::vector<std::string> names;
  names.reserve(files.size());
  for (const auto& file : files) {
    if (IsInPlatform(FActivePlatform, *file))
      names.push_back(RemoteFileName(source, *file));
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
    UpdateCacheEntry(StatusSource(*deployment), file);
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

void TDeploymentFrame::UpdateCacheEntry(const TStatusSource& source,
                                        const IProjectDeploymentFile& file) {
  if (!IsInPlatform(FActivePlatform, file))
    return;
  const std::string localFile = source.LocalNames.FullName(file.GetLocalName());
  TFileState state{TRemoteState::NotQueried, FServices.GetFileUtils().FileExists(localFile)};
  if (FConnected && !FConnecting && !CompareWithRemote(source, file, localFile, state.RemoteState))
    return;
  FFileCache.Store(file.GetLocalName(), state);
}

// False when nothing can be said about the file.
bool TDeploymentFrame::CompareWithRemote(const TStatusSource& source,
                                         const IProjectDeploymentFile& file,
                                         std::string_view localFile, TRemoteState& state) const {
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  if (!services || !FProfile)
    return false;
  const auto remote = services->GetRemoteFileTime(*FProfile, RemoteFileName(source, file));
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

std::string TDeploymentFrame::RemoteFileName(const TStatusSource& source,
                                             const IProjectDeploymentFile& file) const {
  std::string name = file.GetRemoteName(FActivePlatform);
  if (name.empty())
    name = FileNamePart(file.GetLocalName());
  return FixPath(GetDeploymentRemoteDir(file, FActivePlatform, source.Deployment),
                 source.RemoteBase) +
         name;
}

std::string TDeploymentFrame::FixPath(std::string_view path, std::string_view basePath) {
  std::string fixed(path);
  if (path.empty() || (!IsAbsolutePath(path) && path.front() != '~'))
    fixed.insert(0, basePath);
  return WithTrailingDelimiter(fixed);
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
