// Paths as a project names them, made full.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace workbench {

/// True for a path that names nothing on this machine: one with a drive letter, of a network share
/// ("\\server\...") or a URL. Nothing may be looked up under such a name.
bool IsForeignPath(std::string_view storedPath);

/// The machine's path of a stored one, made absolute against `directory` and without "." and
/// "..". Not for foreign paths.
std::filesystem::path ResolvePath(std::string_view storedPath,
                                  const std::filesystem::path& directory);

/// The full path as text: a machine path, or a foreign path as it is.
std::string FullPathText(std::string_view storedPath, const std::filesystem::path& directory);

} // namespace workbench
