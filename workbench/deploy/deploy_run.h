// One run of a deploy as its caller sees it: what is wanted, and what came of it. Who starts a
// deploy in a roundabout way, through a window's button, hands this object over beforehand.
#pragma once

#include "workbench/deploy/deploy_plan.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace workbench {

struct TDeployOptions {
  bool DryRun = false; ///< make the plan only
  bool Force = false;
  bool Checksum = false;
  bool SkipMissing = false;
  unsigned Jobs = 0; ///< connections; 0: as many as suit the machine
};

/// How a run ended.
enum class TDeployEnd {
  NotStarted,
  Done,         ///< no file failed
  Failed,       ///< some did
  Refused,      ///< the plan has problems; nothing was done
  NoConnection, ///< nothing was done, or the connection was lost on the way
  NoConsent,    ///< commands may not run; nothing was done
  Interrupted,
};

/// What happened to one file, or would happen.
struct TDeployRow {
  std::string LocalName;
  std::string RemoteFile; ///< the whole path on the target
  TDeployAction Action = TDeployAction::Copied;
  std::uint64_t Bytes = 0; ///< sent, or to be sent
  std::string Error = {};
};

struct TDeployReport {
  TDeployEnd End = TDeployEnd::NotStarted;
  std::string Message;               ///< why there is no connection; else empty
  std::vector<TDeployRow> Rows;      ///< in the order of the plan
  std::vector<std::string> Problems; ///< of the plan
  std::vector<std::string> Commands; ///< that would run
};

/// Hears how a run goes on. Calls come from several threads, one at a time.
class IDeployProgress {
public:
  virtual ~IDeployProgress() = default;
  virtual void Planned(const std::vector<TDeployRow>& rows) = 0;
  virtual void BytesSent(std::uint64_t count) = 0;
  /// Called once for each row.
  virtual void RowDone(std::size_t index, const TDeployRow& row) = 0;
  /// A command of the project printed a line.
  virtual void CommandSaid(const std::string& /*line*/) {}
};

/// Lives as long as the deploy runs.
struct TDeployRun {
  TDeployOptions Options;
  /// May these commands run? Nobody to ask means no.
  std::function<bool(const std::vector<std::string>&)> MayRun;
  IDeployProgress* Progress = nullptr; ///< null: nobody listens
  std::atomic<int> Cancelled = 0;      ///< set to something else to interrupt the run
  TDeployReport Report;
};

/// Where deploys are started: knows how each is wanted, and shows what becomes of it.
class IDeployDesk {
public:
  virtual ~IDeployDesk() = default;
  /// A deploy begins; the run must live until the call of End that follows.
  virtual TDeployRun& Begin() = 0;
  /// The deploy is over; its report is complete.
  virtual void End(TDeployRun& run) = 0;
};

} // namespace workbench
