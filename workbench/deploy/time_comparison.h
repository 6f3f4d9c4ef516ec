// Files of this machine beside those of a target, by their times: what the columns of the view say
// of them.
#pragma once

#include "workbench/remote/target/remote_connection.h"
#include "workbench/remote/target/seen_files.h"
#include "workbench/remote/target/target_place.h"

#include <memory>
#include <string>
#include <vector>

namespace workbench {

/// A file and its place on a target.
struct TFilePair {
  std::string LocalName;  ///< of the entry, as stored
  std::string LocalFile;  ///< path on this machine, as stored
  std::string RemoteName; ///< stored path: base directory, directory and name
};

/// What the file here is to the one there.
enum class TTimeComparison { Unknown, Same, Older, Newer, NotFound };

/// Compares all of them, in their order; `seen` hears what the target answers. Throws
/// TConnectionError.
std::vector<TTimeComparison> CompareTimes(std::shared_ptr<IRemoteConnection> connection,
                                          const TPlaceRules& rules,
                                          const std::vector<TFilePair>& files, TSeenFiles& seen);

} // namespace workbench
