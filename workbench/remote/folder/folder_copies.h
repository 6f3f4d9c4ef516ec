// Second names, other names and empty directories in a folder of this machine.
#pragma once

#include "workbench/files/directory_handles.h"
#include "workbench/remote/target/remote_connection.h"

#include <span>
#include <string>
#include <vector>

namespace workbench {

/// As the functions of IRemoteConnection with these purposes.
std::vector<std::string> KeepFiles(TDirectoryHandles& directories,
                                   std::span<const TRemoteCopy> copies);
std::vector<std::string> MoveFiles(TDirectoryHandles& directories,
                                   std::span<const TRemoteCopy> moves);
void RemoveEmptyFolders(TDirectoryHandles& directories, std::span<const std::string> paths);

} // namespace workbench
