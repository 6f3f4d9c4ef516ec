// The user's own directories, by the rules of the XDG base directories.
#pragma once

#include <filesystem>

namespace workbench {

/// Where settings and profiles live. Like the others: a full path that need not exist; empty when
/// neither the environment nor the system's user list names a home directory.
std::filesystem::path UserConfigDirectory();
/// Where backups live.
std::filesystem::path UserStateDirectory();
/// Where things live that can be made again.
std::filesystem::path UserCacheDirectory();

} // namespace workbench
