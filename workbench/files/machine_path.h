// Stored paths (Windows-style text) and paths of this machine: the one place that turns one into
// the other.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace workbench {

/// As ToMachinePath, as the text that the system takes: for who looks at many files.
std::string ToMachineText(std::string_view storedPath);

/// The file of this machine that a stored path names: each "\" is a "/". A path with a drive
/// letter stays as it is, and so names nothing here.
std::filesystem::path ToMachinePath(std::string_view storedPath);

/// The stored form of a path of this machine: each "/" is a "\". Nothing is made absolute.
std::string ToStoredPath(const std::filesystem::path& path);

/// The program that runs, links resolved; when the system does not tell, a program in the place
/// that it was built to be installed in.
std::filesystem::path RunningProgram();

} // namespace workbench
