// The program that this code belongs to. What was installed with it stands around it.
#pragma once

#include <filesystem>

namespace workbench {

/// The program that runs, links resolved. For a plug-in of a foreign program it is `deploymgr` in
/// the tree that the plug-in was installed in; the file need not exist.
std::filesystem::path OwnProgram();

/// The program in the tree that a plug-in stands in: the nearest directory above it that holds the
/// shared files of an installation, or a build of the module; where there is none, the directory
/// that all was built to be installed in.
std::filesystem::path ProgramAround(const std::filesystem::path& plugin);

} // namespace workbench
