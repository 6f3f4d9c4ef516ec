// Asks an SFTP server what stands under names, many at a time.
#pragma once

#include "workbench/remote/sftp/sftp_channel.h"
#include "workbench/remote/target/remote_connection.h"

#include <span>
#include <vector>

namespace workbench {

/// What stands under each name; links are not followed. Throws TConnectionError.
std::vector<TRemoteStatus> ExamineRemote(TSftpChannel& channel, std::span<const TRemoteName> names);

} // namespace workbench
