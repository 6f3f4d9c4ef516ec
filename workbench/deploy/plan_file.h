// A plan as a document: what a deploy would do, to be looked at now and carried out later.
#pragma once

#include "package/host/api/deployment_target.h"
#include "workbench/deploy/deploy_report.h"
#include "workbench/deploy/destination.h"
#include "workbench/json/json.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// A plan and what it is bound to.
struct TPlanFile {
  TBinding Bound = {};
  std::filesystem::path ProjectFile = {};
  std::string RootName = {}; ///< of the project on the platform, as stored
  deployment::TDeploymentTarget Target = {};
  TDeployPlan Plan = {};
  /// How it is to be carried out, as TDeployOptions has it.
  bool BreakLock = false;
  bool NoUndo = false;
  bool Compress = false;
  unsigned Jobs = 0;
};

/// Commands that a plan runs, in their order.
std::vector<TPlannedCommand> PlannedCommandsOf(const TDeployPlan& plan);

/// The document, with a digest over all of it.
TJson PlanJson(const TPlanFile& file);

/// A document that was read.
struct TPlanReading {
  bool IsWhole = false; ///< false: it is not what it was when it was written
  TPlanFile File = {};  ///< of a whole one
};

/// Takes the text of a document apart. Throws TInputError for a text that is no plan.
TPlanReading ParsePlan(std::string_view text);

} // namespace workbench
