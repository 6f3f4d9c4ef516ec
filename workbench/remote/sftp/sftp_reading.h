// Reads files of an SFTP server, many at a time.
#pragma once

#include "workbench/remote/sftp/sftp_channel.h"
#include "workbench/remote/target/remote_connection.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace workbench {

/// SHA-256 of the files of these full paths, hexadecimal; empty for one that cannot be read. Throws
/// TConnectionError.
std::vector<std::string> HashFiles(TSftpChannel& channel, std::span<const std::string> paths);

/// The content of a file of at most that many bytes. Throws TConnectionError.
TRemoteContent ReadWholeFile(TSftpChannel& channel, const std::string& path, std::uint64_t limit);

} // namespace workbench
