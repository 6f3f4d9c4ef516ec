// Second names, other names, rights, times and empty directories on an SFTP server, many in one go.
#pragma once

#include "workbench/process/process_run.h"
#include "workbench/remote/sftp/sftp_channel.h"

#include <span>
#include <string>
#include <vector>

namespace workbench {

/// As the functions of IRemoteConnection with these purposes. A server without hard links copies
/// where the machine runs commands (`exec` may be empty).
std::vector<std::string> KeepRemoteFiles(TSftpChannel& channel, const TRemoteExec& exec,
                                         std::span<const TRemoteCopy> copies);
std::vector<std::string> MoveRemoteFiles(TSftpChannel& channel, std::span<const TRemoteCopy> moves);
std::vector<std::string> StampRemoteFiles(TSftpChannel& channel,
                                          std::span<const TRemoteStamp> stamps);
std::vector<std::string> RemoveRemoteFiles(TSftpChannel& channel,
                                           std::span<const TRemoteName> names);
void RemoveEmptyRemoteDirectories(TSftpChannel& channel, std::span<const std::string> directories);

} // namespace workbench
