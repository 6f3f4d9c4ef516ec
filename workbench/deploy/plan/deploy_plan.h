// What a deploy will do, worked out and checked whole before anything is done.
#pragma once

#include "workbench/deploy/plan/after_steps.h"
#include "workbench/deploy/plan/deploy_files.h"
#include "workbench/deploy/plan/row_choices.h"
#include "workbench/deploy/record/file_state.h"
#include "workbench/deploy/record/target_record.h"
#include "workbench/remote/target/remote_connection.h"
#include "workbench/remote/target/seen_files.h"
#include "workbench/remote/target/target_place.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// What happens to one file.
enum class TDeployAction { Copied, Unchanged, Mode, Kept, Skipped, Removed, Refused, Failed };

/// How many there are.
inline constexpr std::size_t DeployActionCount = 8;

/// "copied", "unchanged" and so on: words that scripts read.
std::string_view DeployActionName(TDeployAction action);
/// Nothing for any other word.
std::optional<TDeployAction> DeployActionFromName(std::string_view name);

/// How a deploy decides.
struct TPlanOptions {
  bool Force = false;            ///< copy also what is the same
  bool Checksum = false;         ///< compare content instead of size and time
  bool SkipMissing = false;      ///< a missing file that is not required is no failure
  bool OverwriteChanged = false; ///< copy also over what others changed on the target
  bool Prune = false;            ///< remove what was deployed and is not in the list any more
  bool HashAll = false;          ///< tell the hash of every file here
  std::string AfterDeploy = {};  ///< command for the target when all files are in place
  TRowChoices Choices = {};      ///< about single files
  bool KeepLinks = false;        ///< links stay links where the target knows them
  /// Directories of this machine whose files need no consent; see TSourceRoots.
  std::vector<std::filesystem::path> SourceRoots = {};
  /// Directory of the project on the target, as stored: what files are removed below of. Empty: the
  /// whole target is the project's.
  std::string RootName = {};
  TPlaceRules Places = {};
  deployment::TDeploymentTarget Target = {};
  const std::atomic<int>* Cancelled = nullptr; ///< null: never
  TSeenFiles* Seen = nullptr; ///< what the target answered a moment ago; null: it is asked
};

/// One file of a plan.
struct TPlannedFile {
  TDeployFile File;
  TRemoteName Target = {};     ///< resolved
  std::string RecordPath = {}; ///< in the record; empty for a file beyond the profile's path
  TDeployAction Action = TDeployAction::Copied;   ///< that is to be taken
  std::string Reason = {};                        ///< why the action is Failed or Refused
  std::optional<TFileState> State = std::nullopt; ///< nothing for a file that is to be removed
  bool ByHash = false;                            ///< hashes told the state, not size and time
  std::uint64_t Bytes = 0;                        ///< to be sent
  TContent Local = {};                            ///< the file here; its hash when it was needed
  unsigned Mode = 0;                              ///< rights that it is to have on the target
  TRemoteStatus There = {};                       ///< what stands at its place now
  std::string HashThere = {};                     ///< of that, where it is known
  std::string Link = {};              ///< what is deployed as a link is to store; else empty
  bool TimeDiffers = false;           ///< Unchanged, but the time stamp is to be brought in line
  bool IsLinkHere = false;            ///< the name on this machine is a link
  std::vector<TAfterStep> Steps = {}; ///< to be done when the file is there

  std::string RemoteFile() const { return Target.Directory + "/" + Target.Name; }
};

/// What was deployed and is not in the list any more.
struct TLeftOver {
  std::string RecordPath;
  TRemoteName Target = {}; ///< resolved
  std::string LocalName;
  TFileState State = TFileState::LeftOver; ///< or LeftOverChanged
  TRemoteStatus There = {};
  std::string HashThere = {}; ///< where it is what was deployed

  std::string RemoteFile() const { return Target.Directory + "/" + Target.Name; }
};

struct TDeployPlan {
  std::vector<TPlannedFile> Files;
  std::vector<TLeftOver> LeftOvers;
  /// Recorded, and on the target no more; the record is to forget them.
  std::vector<std::string> Forgotten;
  /// Sentences that name a file each. With one of them nothing may be done.
  std::vector<std::string> Problems;
  std::vector<std::string> Warnings;
  /// Commands of the project, each with where it runs: what a user gives or refuses consent to.
  std::vector<std::string> Commands;
  /// Files of this machine from beyond the project's tree, full paths, each once: what a user gives
  /// or refuses consent to.
  std::vector<std::string> Outside = {};
  /// Runs on the target when all files are in place; empty when nothing runs then.
  std::string AfterDeploy;
};

/// The commands of the files, each with where it runs, and the one behind them all when there is
/// one: what a user gives or refuses consent to. Paths of the target are those below the path of
/// its profile.
std::vector<std::string> CommandsOf(const std::vector<TDeployFile>& files,
                                    const TPlaceRules& places, const std::string& afterDeploy);

/// What each file is to store that is deployed as a link; empty for the others.
std::vector<std::string> LinkTextsOf(const TDeployPlan& plan);

/// True when carrying the plan out changes files of the target.
bool ChangesFiles(const TDeployPlan& plan);

/// Makes the plan. Throws TConnectionError. `connect` is called when the files of this machine have
/// been looked at, which goes on meanwhile where it takes its time; `readRecord`, whose answer has
/// to live as long as this call, when the target was looked at.
TDeployPlan MakeDeployPlan(std::vector<TDeployFile> files, const TPlanOptions& options,
                           const std::function<IRemoteConnection&()>& connect,
                           const std::function<const TTargetRecord&()>& readRecord);

} // namespace workbench
