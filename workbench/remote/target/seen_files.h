// What a target answered within one look at it, for others that ask the same.
#pragma once

#include "workbench/remote/target/remote_connection.h"

#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace workbench {

/// Asks one target about directories and files, each once, over whichever connections lead to it.
/// The answers are those of the moment of asking: for questions that belong together, such as the
/// rows and the plan of one status.
class TSeenFiles {
public:
  /// As those of the connection. What was answered for another path of a profile is forgotten.
  /// Throw TConnectionError.
  std::vector<TRemoteDirectory> Resolve(IRemoteConnection& connection,
                                        std::span<const std::string> directories);
  std::vector<TRemoteStatus> Examine(IRemoteConnection& connection,
                                     std::span<const TRemoteName> names);

private:
  void Meet(IRemoteConnection& connection);

  std::string FRoot;                                              // of the target that answered
  std::unordered_map<std::string, TRemoteDirectory> FDirectories; // by the name asked about
  std::unordered_map<std::string, TRemoteStatus> FFiles;          // by path
};

} // namespace workbench
