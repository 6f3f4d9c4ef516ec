// What `set` does to an entry: values that are given, and nothing else.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// The values that were given on the command line.
struct TEntryEdit {
  std::optional<bool> Enabled;
  std::optional<bool> Overwrite;
  std::optional<bool> Required;
  std::optional<std::string> RemoteDir;
  std::optional<std::string> RemoteName;
  std::optional<deployment::TDeployOperation> Operation;
  std::optional<std::string> LocalCommand;  ///< empty: none
  std::optional<std::string> RemoteCommand; ///< the same
  std::optional<std::string> Condition;
  std::vector<std::string> AddPlatforms;
  std::vector<std::string> RemovePlatforms;

  /// True when nothing was given.
  bool IsEmpty() const;
  /// True when a value of one platform's record was given.
  bool HasPlatformValues() const;
};

/// Changes the entry: values of records on each of `platforms`, then the platforms themselves.
/// Throws TWorkError when the entry would lose its last platform; it is unchanged then.
void ApplyEdit(const TEntryEdit& edit, deployment::IProjectDeploymentFile& file,
               const std::vector<std::string>& platforms);

} // namespace workbench
