// Zip archives written by the system's library of archives.
#pragma once

#include "workbench/archive/content_archive.h"

#include <filesystem>
#include <memory>

namespace workbench {

/// As NewContentArchive.
std::unique_ptr<IContentArchive> NewZipArchive(const std::filesystem::path& file);

} // namespace workbench
