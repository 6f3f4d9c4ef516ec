// The local side of a plan.
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <string>

namespace workbench {

/// Enters what stands here for a file of the list: size, time, rights and, where the options ask
/// for it, the hash; a file that is missing is entered as such. The reason why nothing may be
/// deployed when a required one is missing; empty when the plan may go on.
std::string ExamineLocalFile(TPlannedFile& file, const TPlanOptions& options);

} // namespace workbench
