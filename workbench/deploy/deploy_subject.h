// What of a project goes to a target, as plain values: whichever place the target is.
#pragma once

#include "package/host/api/deployment_target.h"
#include "workbench/deploy/plan/deploy_files.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// Made once on the main thread, and read by any number of threads then.
struct TDeploySubject {
  bool HasDeployment = false; ///< false: the project has nothing to deploy at all
  deployment::TDeploymentTarget Target = {};
  std::vector<TDeployFile> Files = {};
  std::string RootName = {}; ///< of the project on the platform, as stored
  std::filesystem::path ProjectFile = {};
  std::vector<std::filesystem::path> SourceRoots = {}; ///< whose files are sent without a question
};

} // namespace workbench
