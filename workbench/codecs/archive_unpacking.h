// Archives read by the system's library of archives.
#pragma once

#include "workbench/archive/unpacked_archive.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace workbench {

/// As UnpackArchive.
std::vector<TArchiveMember> UnpackByLibrary(const std::filesystem::path& archive,
                                            const std::filesystem::path& directory,
                                            const std::function<bool()>& isCancelled,
                                            const TArchiveLimits& limits);

} // namespace workbench
