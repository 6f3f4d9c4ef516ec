// Finds out the status of the files of a frame's target: whether they are here, and how they
// compare with those on the remote machine.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/entry_paths.h"
#include "package/view/connection.h"
#include "package/view/file_status_cache.h"
#include "package/view/frame_target.h"

#include <string>
#include <string_view>

namespace deployment {

class TStatusGatherer {
public:
  /// All must outlive the object.
  TStatusGatherer(VelmorIDEServices& services, const TFrameTarget& target, TConnection& connection)
      : FServices(services), FTarget(target), FConnection(connection) {}

  TFileStatusCache& Cache() { return FFileCache; }

  /// Fills the cache anew without the remote machine. False without a deployment; the cache is
  /// empty then.
  bool GatherInformation();
  /// The same with the machine behind the profile of the project's active platform. False without
  /// such a profile, and the cache stays as it is, and without a deployment.
  bool GatherRemoteFileInfo();
  /// Finds out the status of one file, which belongs to the target, and keeps it.
  void InternalUpdateFileCache(const IProjectDeploymentFile& file);
  /// The same, with the profile of the project's active platform as it is now; false without one.
  bool UpdateFileCache(const IProjectDeploymentFile& file);

  /// The words for the file here and there.
  std::string LocalStatusText(const IProjectDeploymentFile& file) const;
  std::string RemoteStatusText(const IProjectDeploymentFile& file) const;
  /// True when the file is known to be here.
  bool LocalFileExists(const IProjectDeploymentFile& file) const;

private:
  TEntryPaths EntryPaths(const IProjectDeployment& deployment) const;
  bool FindProfile();
  void UpdateAllFiles(IProjectDeployment& deployment);
  void ExpectQueries(const TEntryPaths& paths, const TDeploymentFiles& files) const;
  void UpdateCacheEntry(const TEntryPaths& paths, const IProjectDeploymentFile& file);
  bool CompareWithRemote(const TEntryPaths& paths, const IProjectDeploymentFile& file,
                         std::string_view localFile, TRemoteState& state) const;
  std::string StatusText(const IProjectDeploymentFile& file, bool local) const;

  VelmorIDEServices& FServices;
  const TFrameTarget& FTarget;
  TConnection& FConnection;
  TFileStatusCache FFileCache;
};

} // namespace deployment
