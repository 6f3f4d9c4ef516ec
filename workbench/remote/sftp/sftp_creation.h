// Makes small files of a machine, each of which one alone of all who try can make.
#pragma once

#include "workbench/remote/sftp/sftp_channel.h"
#include "workbench/remote/target/remote_connection.h"

#include <string>
#include <string_view>

namespace workbench {

/// Makes a file with that text and time. Where the server gives a file a second name, the file
/// appears with all of its text, after it was written as `unfinished` in the same directory; so a
/// line that breaks leaves none without. Throws TConnectionError.
TRemoteCreation CreateRemoteFile(TSftpChannel& channel, const TRemoteName& name,
                                 const std::string& unfinished, std::string_view text,
                                 deployment::TFileTime time);

} // namespace workbench
