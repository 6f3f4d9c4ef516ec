// Files of a plan that stand beyond the project's tree on this machine.
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace workbench {

/// Full paths of the local files that would be read and stand below none of the roots, each once. A
/// link that stays one is not read.
std::vector<std::string> FindOutsideSources(std::span<const TPlannedFile> files,
                                            const std::vector<std::filesystem::path>& roots);

/// Those of the files, full paths, that stand beyond the roots, links to such ones among them: what
/// is sent with consent only, where the target does not keep a link as one.
std::vector<std::string> OutsideOf(const std::vector<TDeployFile>& files,
                                   const std::vector<std::filesystem::path>& roots);

} // namespace workbench
