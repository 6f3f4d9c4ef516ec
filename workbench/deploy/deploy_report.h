// What came of a deploy, or would come of it.
#pragma once

#include "workbench/deploy/deploy_plan.h"

#include <cstdint>
#include <string>
#include <vector>

namespace workbench {

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
  int Signal = 0;                    ///< that interrupted the run
  std::string Message;               ///< why there is no connection; else empty
  std::vector<TDeployRow> Rows;      ///< in the order of the plan
  std::vector<std::string> Problems; ///< of the plan
  std::vector<std::string> Commands; ///< that would run
};

} // namespace workbench
