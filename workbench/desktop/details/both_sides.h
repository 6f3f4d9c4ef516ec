// One file here, on the target, and as it was deployed last: size, time, hash.
#pragma once

#include "package/host/api/deployment_target.h"

#include <cstdint>
#include <optional>
#include <string>

namespace workbench {

class TOpenProject;
class TSession;

struct TSideFacts {
  std::uint64_t Size = 0;
  std::int64_t Time = 0; ///< whole seconds since 1970
  std::string Hash = {}; ///< SHA-256, hexadecimal; empty where it could not be read
};

/// Nothing where there is no such file.
struct TBothSides {
  std::optional<TSideFacts> Here = std::nullopt;
  std::optional<TSideFacts> There = std::nullopt;
  std::optional<TSideFacts> Deployed = std::nullopt; ///< as the record of the target has it
  std::string Problem = {};                          ///< why the target could not be asked
};

/// Which file, in stored paths.
struct TSidesQuestion {
  deployment::TDeploymentTarget Target;
  std::string LocalFile;  ///< full
  std::string RemoteFile; ///< as seen from the path of the profile
};

/// Reads and asks, which takes its time. Any one thread may do it while the project and the
/// profiles stay as they are. What goes wrong is in the answer.
TBothSides LookAtBothSides(TSession& session, TOpenProject& project,
                           const TSidesQuestion& question);

} // namespace workbench
