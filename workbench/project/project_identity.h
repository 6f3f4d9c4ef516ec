// When two paths name one project.
#pragma once

#include <filesystem>

namespace workbench {

/// The path of a project as hosts and packages are told it: full, without "." and "..", links kept.
std::filesystem::path FullProjectPath(const std::filesystem::path& file);

/// True when both paths lead to one file, or when their full paths differ in the case of letters
/// alone: views are registered by names that ignore case, so two such projects cannot be shown side
/// by side.
bool IsSameProject(const std::filesystem::path& first, const std::filesystem::path& second);

} // namespace workbench
