// Earlier contents of the user's files, kept under the user's state directory.
#pragma once

#include "workbench/files/file_descriptor.h"

#include <cstddef>
#include <filesystem>
#include <optional>

namespace workbench {

/// How many earlier contents of one file are kept.
inline constexpr std::size_t BackupsKept = 5;

/// Directory of the backups of one file; empty when the user has no state directory.
std::filesystem::path BackupDirectory(const std::filesystem::path& file);

/// Keeps the present content of the file, which is open under `opened`, and returns where; its name
/// sorts behind those of all earlier ones, whatever the clock says. Takes a second name of the file
/// itself when the system allows it, else a copy. Throws std::system_error, and then has left
/// nothing behind.
std::filesystem::path KeepBackup(const std::filesystem::path& file, const TFileDescriptor& opened);

/// Takes away backups that are the file itself under a second name: a save that was killed between
/// keeping the old content and replacing it left them.
void RemoveUnfinishedBackups(const std::filesystem::path& file, const TFileDescriptor& opened);

/// Removes the oldest backups of the file beyond those that are kept. What cannot be removed stays.
void RemoveOldBackups(const std::filesystem::path& file);

/// The last content of the file that was replaced; nothing when there is none.
std::optional<std::filesystem::path> NewestBackup(const std::filesystem::path& file);

} // namespace workbench
