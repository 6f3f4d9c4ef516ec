// Which state of a working copy is deployed.
#pragma once

#include <filesystem>
#include <string>

namespace workbench {

/// The commit of the working copy that the directory belongs to, followed by "-dirty" when tracked
/// files differ from it; empty where git knows none.
std::string RevisionOf(const std::filesystem::path& directory);

} // namespace workbench
