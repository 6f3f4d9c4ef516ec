// Symbolic links on a machine behind an SFTP server.
#pragma once

#include "workbench/remote/sftp/sftp_channel.h"

#include <span>
#include <string>
#include <vector>

namespace workbench {

/// True when the server is known to take the two paths of the request that makes a link in the
/// order that is used here, and puts a link in the place of a file at once. The protocol's text and
/// its most common server differ in that order, so a server that is not of that family is asked for
/// no links.
bool CanMakeLinks(const TSftpLimits& limits);

/// What the links store; all are asked for at once. Throws TConnectionError.
std::vector<TRemoteLink> ReadRemoteLinks(TSftpChannel& channel, std::span<const TRemoteName> names);

/// Makes the link under the name `unfinished` and puts it in place under `name`; the reason when
/// that failed. The server must be one that CanMakeLinks says yes to. Throws TConnectionError.
std::string MakeRemoteLink(TSftpChannel& channel, const TRemoteName& name,
                           const TRemoteName& unfinished, const std::string& text);

} // namespace workbench
