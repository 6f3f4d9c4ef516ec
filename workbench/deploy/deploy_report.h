// What came of a deploy, or would come of it.
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// How a run ended.
enum class TDeployEnd {
  NotStarted,      ///< nothing was done, since nobody said that it may begin
  Done,            ///< no file failed
  Unexpected,      ///< others changed the target: rows were refused, or all of it was
  Failed,          ///< some did
  Refused,         ///< the plan has problems; nothing was done
  NoConnection,    ///< nothing was done, or the connection was lost on the way
  NoConsent,       ///< commands may not run; nothing was done
  NoSourceConsent, ///< files from beyond the project's tree may not be sent; nothing was done
  Interrupted,
};

/// Why a file failed that an interrupted run left undone.
inline constexpr std::string_view InterruptedReason = "the run was interrupted";

/// What happened to one file, or would happen.
struct TDeployRow {
  std::string LocalName;
  std::string RemoteFile; ///< the whole path on the target
  TDeployAction Action = TDeployAction::Copied;
  std::uint64_t Bytes = 0; ///< sent, or to be sent
  std::string Error = {};  ///< why it failed
  std::optional<TFileState> State = std::nullopt;
  bool ByHash = false;     ///< hashes told the state
  std::string Reason = {}; ///< why it was refused
  std::string Link = {};   ///< what it stores as a symbolic link; empty for what is none
  std::filesystem::path LocalFile = {}; ///< full path on this machine; empty for what is removed
  std::uint64_t SizeHere = 0;           ///< of the file on this machine
  std::uint64_t SizeThere = 0;          ///< of what stood on the target when it was looked at
  deployment::TFileTime TimeThere = {}; ///< of that

  /// True for a file that the run had not come to, or was at, when it was interrupted.
  bool IsInterrupted() const {
    return Action == TDeployAction::Failed && Error == InterruptedReason;
  }
};

/// A command that still has to succeed on the target.
struct TOwedCommand {
  std::string RemoteFile; ///< that it belongs to, relative to the profile's path; empty: to none
  std::string Command;
};

/// A command that a deploy runs.
struct TPlannedCommand {
  bool IsLocal = false;
  std::string Command;
  std::string RemoteFile; ///< that it belongs to; empty for one that belongs to none
};

struct TDeployReport {
  TDeployEnd End = TDeployEnd::NotStarted;
  int Signal = 0;                    ///< that interrupted the run
  std::string Message;               ///< why there is no connection; else empty
  std::vector<TDeployRow> Rows;      ///< in the order of the plan
  std::vector<std::string> Problems; ///< of the plan
  std::vector<std::string> Commands; ///< of the project, with where each runs
  std::vector<std::string> Outside;  ///< files from beyond the project's tree, full paths
  std::vector<std::string> Warnings;
  std::string AfterDeploy;              ///< command that runs when all files are in place, if any
  std::string AfterDeployProblem;       ///< why the command after the deploy failed or did not run
  std::vector<TPlannedCommand> Planned; ///< commands that run, in their order
  std::vector<TLeftOver> LeftOvers;
  std::vector<TOwedCommand> Owed;           ///< after the deploy
  std::optional<TRecordedRun> LastRun = {}; ///< that the record tells of
  bool WasCarriedOut = false;               ///< false: the rows say what would be done
};

} // namespace workbench
