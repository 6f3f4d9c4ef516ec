// What a target is to remember of the files that a deploy brought or found there.
#pragma once

#include "workbench/deploy/deploy_executor.h"

namespace workbench {

/// A file that was copied, or a link that was made.
void RememberSent(const TDeployExecution& execution, const TPlannedFile& file,
                  const TSendOutcome& outcome);

/// A file found to be the same, as if it had been copied. True when the record did not know it.
bool RememberFound(const TDeployExecution& execution, const TPlannedFile& file);

} // namespace workbench
