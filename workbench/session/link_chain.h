// A versioned library is one thing under several names: a file and the links that lead to it.
#pragma once

#include <filesystem>
#include <vector>

namespace workbench {

/// The names in the file's directory that belong together with it: what it leads to link by link,
/// and the links with a shorter version that lead there ("libx.so", "libx.so.1" for
/// "libx.so.1.2.3", "libx.dylib" for "libx.1.dylib"). The file that is no link comes first, then
/// its links, the longest name first. The file alone when there is nothing of the kind, or a link
/// leaves the directory, leads nowhere or to another name.
std::vector<std::filesystem::path> LinkChain(const std::filesystem::path& file);

} // namespace workbench
