// What stands in a directory tree at one time.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace faults {

/// Content of each file, or where a link leads, by the path below the directory. Directories are
/// not in it.
using TTreeState = std::map<std::string, std::string>;

TTreeState StateOf(const std::filesystem::path& directory);

/// Makes `directory` what `original` is, times of files included. What is equal stays.
void Restore(const std::filesystem::path& original, const std::filesystem::path& directory);

/// True for a name that a file has only until it is whole.
bool IsTemporaryName(const std::string& path);

} // namespace faults
