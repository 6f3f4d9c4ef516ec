// Files of a plan that stand beyond the project's tree on this machine.
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace workbench {

/// Which of the files, that were looked at on this machine, are to be read there and stand below
/// none of the roots.
std::vector<std::size_t> FindOutsideFiles(std::span<const TPlannedFile> files,
                                          const std::vector<std::filesystem::path>& roots);

/// Full local paths of those of the outside files that are read, each once. A link that stays one
/// is not.
std::vector<std::string> PathsToRead(std::span<const TPlannedFile> files,
                                     std::span<const std::size_t> outside);

/// Those of the files, full paths, that stand beyond the roots, links to such ones among them: what
/// is sent with consent only, where the target does not keep a link as one.
std::vector<std::string> OutsideOf(const std::vector<TDeployFile>& files,
                                   const std::vector<std::filesystem::path>& roots);

} // namespace workbench
