// The rows of a list or a status as JSON.
#pragma once

#include "workbench/cli/context/target.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/cli/view/target_status.h"
#include "workbench/json/json.h"

#include <string>
#include <vector>

namespace workbench {

/// What was asked.
struct TListQuestion {
  std::string Project; ///< its file, as it was named
  TTarget Target;
  bool IsConnected = false;
  bool HasAge = false; ///< rows say when they were so
};

/// The document; `status` is null for rows that say nothing of a target.
TJson ListJson(const TListQuestion& question, const std::vector<TViewRow>& rows,
               const TTargetStatus* status);

} // namespace workbench
