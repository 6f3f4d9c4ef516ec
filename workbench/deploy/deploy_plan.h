// What a deploy will do, worked out and checked whole before anything is done.
#pragma once

#include "workbench/deploy/deploy_files.h"
#include "workbench/remote/target/remote_connection.h"
#include "workbench/remote/target/target_place.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace workbench {

/// What happens to one file.
enum class TDeployAction { Copied, Unchanged, Kept, Skipped, Removed, Failed };

/// "copied", "unchanged" and so on: words that scripts read.
std::string_view DeployActionName(TDeployAction action);

/// How a deploy decides.
struct TPlanOptions {
  bool Force = false;       ///< copy also what is the same
  bool Checksum = false;    ///< compare content instead of size and time
  bool SkipMissing = false; ///< a missing file that is not required is no failure
  TPlaceRules Places = {};
};

/// One file of a plan.
struct TPlannedFile {
  TDeployFile File;
  TRemoteName Target = {};                      ///< resolved
  TDeployAction Action = TDeployAction::Copied; ///< that is to be taken
  std::string Reason = {};                      ///< why the action is Failed
  std::uint64_t Bytes = 0;                      ///< to be sent
  deployment::TFileTime LocalTime = {};
  bool TimeDiffers = false; ///< Unchanged, but the time stamp is to be brought in line

  std::string RemoteFile() const { return Target.Directory + "/" + Target.Name; }
};

struct TDeployPlan {
  std::vector<TPlannedFile> Files;
  /// Sentences that name a file each. With one of them nothing may be done.
  std::vector<std::string> Problems;
  /// Commands of the project that would run, each with where it runs.
  std::vector<std::string> Commands;
};

/// Makes the plan. Throws TConnectionError. `connect` is called when the files of this machine have
/// been looked at, which goes on meanwhile where it takes its time.
TDeployPlan MakeDeployPlan(std::vector<TDeployFile> files, const TPlanOptions& options,
                           const std::function<IRemoteConnection&()>& connect);

} // namespace workbench
