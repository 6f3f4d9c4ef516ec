// The files that a deploy brings to a target, as plain values.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/macroutils.h"
#include "package/host/api/uiutils.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// One entry of the deployment with the values that hold for the target.
struct TDeployFile {
  std::string LocalName;           ///< as stored
  std::filesystem::path LocalFile; ///< full path on this machine
  std::string RemoteName;          ///< stored path: base directory, directory and name
  deployment::TDeployOperation Operation = deployment::TDeployOperation::Copy;
  bool Required = false;
  bool Overwrite = true;
  bool Executable = false;
  deployment::TCommandList LocalCommands = {};
  deployment::TCommandList RemoteCommands = {};
};

/// For whom files are collected.
struct TDeployTarget {
  std::string_view Platform;
  std::string_view Configuration;
  std::string BaseDirectory;  ///< stored path; empty for none
  std::string MoreParameters; ///< macro parameters besides those of the target; may be empty
};

/// What turns stored names into files of this machine.
struct TPathServices {
  const deployment::IMacroUtils& Macros;
  const deployment::IFileUtils& Files;
};

/// The entries that are enabled for the target and whose configuration is the target's or one
/// that it inherits from, in order.
std::vector<TDeployFile> CollectDeployFiles(deployment::ICustomProject& project,
                                            deployment::IProjectDeployment& deployment,
                                            const TDeployTarget& target,
                                            const TPathServices& services);

} // namespace workbench
