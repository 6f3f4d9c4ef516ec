// Compares files of this machine with those of an SFTP server byte by byte.
#pragma once

#include "workbench/remote/sftp/sftp_channel.h"
#include "workbench/remote/target/remote_connection.h"

#include <span>
#include <vector>

namespace workbench {

/// True where the content is the same; false also where one of both cannot be read. Throws
/// TConnectionError.
std::vector<bool> CompareContents(TSftpChannel& channel, std::span<const TSendRequest> files);

} // namespace workbench
