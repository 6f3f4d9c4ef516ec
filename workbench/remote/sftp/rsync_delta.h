// Large files of which little changed, brought in line by the user's own rsync.
#pragma once

#include "workbench/process/process_run.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// How another program reaches a machine through the connection that is open.
struct TRemoteWay {
  TRemoteExec Exec = {};
  /// The words of a program that runs a command there, the machine's name being the last one; empty
  /// when there is none.
  std::vector<std::string> Shell = {};
};

/// True when both this machine and the other one have rsync. Takes a round trip.
bool KnowsRsync(const TRemoteWay& way);

/// Makes a new file there whose content is that of the local one, of what the old file there has
/// already and what differs. False when that failed; the new file is not there then.
bool SendDelta(const TRemoteWay& way, const std::filesystem::path& local,
               const std::string& oldFile, const std::string& newFile,
               const TIsCancelled& isCancelled);

} // namespace workbench
