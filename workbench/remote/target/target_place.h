// Where a stored remote path leads on a target. Status and deploy both ask here.
#pragma once

#include "workbench/remote/target/remote_connection.h"
#include "workbench/remote/target/remote_path.h"

#include <string>
#include <string_view>

namespace workbench {

/// What a target takes.
struct TPlaceRules {
  TNameRules Names = {};
  bool AllowOutside = false; ///< paths beyond the profile's path are allowed
};

/// A file's place before its directory is resolved.
struct TTargetPlace {
  /// The directory as IRemoteConnection::Resolve takes it, and the name; an empty name when the
  /// path leads nowhere.
  TRemoteName Name = {};
  /// What is wrong with the path, such as "its remote path "..\a" leaves the path of the profile";
  /// empty when nothing is.
  std::string Problem = {};
};

/// `storedPath` takes "\" and "/" alike. Nothing is asked of the target.
TTargetPlace FindTargetPlace(std::string_view storedPath, const TPlaceRules& rules);

/// Why a file cannot be in the directory that its place led to; empty when it can.
std::string DirectoryProblem(const TRemoteDirectory& directory, const TPlaceRules& rules);

} // namespace workbench
