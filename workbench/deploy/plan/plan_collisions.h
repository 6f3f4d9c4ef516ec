// Files of a plan that cannot all have the places that they are to have.
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <span>
#include <string>
#include <vector>

namespace workbench {

/// A sentence for each file that lands where another one does, or where another one needs a
/// directory. Files without a name on the target are left out.
std::vector<std::string> FindCollisions(std::span<const TPlannedFile> files, bool ignoresCase);

} // namespace workbench
