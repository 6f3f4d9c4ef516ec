// The files that a deploy brings to a target, as plain values.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/entry_paths.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace workbench {

/// One entry of the deployment with the values that hold for the target.
struct TDeployFile {
  std::string LocalName;           ///< as stored
  std::string Class = {};          ///< of the entry
  std::filesystem::path LocalFile; ///< full path on this machine
  std::string RemoteName;          ///< stored path: base directory, directory and name
  deployment::TDeployOperation Operation = deployment::TDeployOperation::Copy;
  bool Required = false;
  bool Overwrite = true;
  bool Executable = false;
  deployment::TCommandList LocalCommands = {};
  deployment::TCommandList RemoteCommands = {};
};

/// Gives the calling thread to what waits there, such as the events of a window. What it throws
/// ends the work.
using TPause = std::function<void()>;

/// The entries that a deploy to the target takes, in order. `base` is what remote paths begin with.
/// The project may be asked on its own thread alone, so `pause` is called every few hundred
/// entries; the list must stay as it is meanwhile.
std::vector<TDeployFile> CollectDeployFiles(deployment::ICustomProject& project,
                                            deployment::IProjectDeployment& deployment,
                                            const deployment::TDeploymentTarget& target,
                                            const deployment::TEntryPathServices& services,
                                            deployment::TRemoteBase base,
                                            const TPause& pause = nullptr);

} // namespace workbench
