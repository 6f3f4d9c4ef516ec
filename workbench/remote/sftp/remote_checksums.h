// Checksums of files on a machine, computed there.
#pragma once

#include "workbench/process/process_run.h"

#include <functional>
#include <span>
#include <string>
#include <unordered_map>

namespace workbench {

/// SHA-256 of files by their full path, as hexadecimal text, in one round trip. What the machine
/// cannot compute, or not before it is cancelled, is missing.
std::unordered_map<std::string, std::string> RemoteSHA256(const TRemoteExec& exec,
                                                          std::span<const std::string> files,
                                                          const TIsCancelled& isCancelled);

} // namespace workbench
