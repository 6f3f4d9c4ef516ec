// The classes of files that users put on the list themselves, and may take off again.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <string_view>

namespace deployment {

/// Class of a file that is added in the view.
inline constexpr std::string_view AddedFileClass = "File";
inline constexpr std::string_view ServiceOutputClass = "AndroidServiceOutput";

/// Entries of any other class are made by reconciling, which would bring them back.
inline bool IsUserFile(const IProjectDeploymentFile& file) {
  const std::string& className = file.GetDeploymentClass();
  return className == AddedFileClass || className == ServiceOutputClass;
}

} // namespace deployment
