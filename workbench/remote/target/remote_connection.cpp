#include "workbench/remote/target/remote_connection.h"

#include <string_view>
#include <unordered_set>

namespace workbench {

unsigned RightsFor(unsigned localMode, bool makeExecutable) {
  const unsigned rights = localMode & 0777U;
  // Whoever may read the program may run it.
  return makeExecutable ? rights | ((rights & 0444U) >> 2U) : rights;
}

std::vector<std::string> DirectoriesOf(std::span<const TSendRequest> files) {
  std::unordered_set<std::string_view> known;
  std::vector<std::string> directories;
  for (const TSendRequest& file : files) {
    if (known.insert(file.Target.Directory).second)
      directories.push_back(file.Target.Directory);
  }
  return directories;
}

std::string IRemoteConnection::SetTime(const TRemoteName& name, deployment::TFileTime time) {
  const TRemoteStamp stamp{.Name = name, .Time = time};
  return Stamp({&stamp, 1}).front();
}

std::string IRemoteConnection::SetMode(const TRemoteName& name, unsigned mode) {
  const TRemoteStamp stamp{.Name = name, .Mode = mode};
  return Stamp({&stamp, 1}).front();
}

} // namespace workbench
