// The files that a deploy brings to a target, as plain values.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/entry_paths.h"

#include <filesystem>
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

/// The entries that a deploy to the target takes, in order. `base` is what remote paths begin with.
std::vector<TDeployFile> CollectDeployFiles(deployment::ICustomProject& project,
                                            deployment::IProjectDeployment& deployment,
                                            const deployment::TDeploymentTarget& target,
                                            const deployment::TEntryPathServices& services,
                                            deployment::TRemoteBase base);

} // namespace workbench
