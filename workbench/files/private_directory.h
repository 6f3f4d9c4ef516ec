// Places below the user's state directory that nobody else may read, and names of files there.
#pragma once

#include <filesystem>
#include <string>

namespace workbench {

/// Makes the directory and those above it that are missing, for the user alone. Throws
/// std::system_error.
void MakePrivateDirectories(const std::filesystem::path& directory);

/// A name for what is kept about a file: its own, and a hash of its full path, links resolved, so
/// that files of one name in two directories do not share it.
std::string NameForFile(const std::filesystem::path& file);

} // namespace workbench
