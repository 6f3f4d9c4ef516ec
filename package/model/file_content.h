// Everything that a file entry says, as a value.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <string>
#include <vector>

namespace deployment {

/// The settings of one platform.
struct TFileRecord {
  std::string Platform;
  TCommandList LocalCommands;
  TDeployOperation Operation = TDeployOperation::Default;
  TCommandList RemoteCommands;
  std::string RemoteDir;
  std::string RemoteName;
  bool Enabled = true;
  bool Overwrite = true;

  bool operator==(const TFileRecord&) const = default;
};

/// A copy that the entry does not change any more.
struct TFileContent {
  std::string Configuration;
  std::string Platform;
  std::string LocalName;
  std::string ClassName;
  std::string Condition;
  bool Required = false;
  std::vector<TFileRecord> Records; ///< in order

  bool operator==(const TFileContent&) const = default;
};

TFileContent ContentOf(IProjectDeploymentFile& file);

/// Makes the entry say what the content says. It tells its owner of every value that changes.
void SetContent(IProjectDeploymentFile& file, const TFileContent& content);

} // namespace deployment
