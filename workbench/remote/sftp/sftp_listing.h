// Reads directories of an SFTP server, several at a time.
#pragma once

#include "workbench/remote/sftp/sftp_channel.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Hears of an entry. Names that are no names, such as "." or with a "/", are left out.
using THearEntry = std::function<void(const std::string& directory, std::string_view name,
                                      const TSftpAttributes& attributes)>;

/// Reads all directories; what cannot be read is left out, and so is what a directory has beyond
/// 200,000 entries. Throws TConnectionError.
void ListDirectories(TSftpChannel& channel, const std::vector<std::string>& directories,
                     const THearEntry& hear);

} // namespace workbench
