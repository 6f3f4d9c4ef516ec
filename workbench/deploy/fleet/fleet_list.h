// The list of the files, as the machines of a fleet read it.
#pragma once

#include "package/host/api/deployment_target.h"
#include "workbench/archive/unpacked_archive.h"
#include "workbench/deploy/plan/deploy_plan.h"
#include "workbench/json/json.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace workbench {

/// What holds for all files of a list.
struct TFleetFacts {
  std::string Project;
  deployment::TDeploymentTarget Target;
  std::string RootName; ///< of the project on the platform, as stored
  std::string Root;     ///< of a machine that says none
  std::string Revision;
  std::string Tool;
  std::string AfterDeploy;
  bool Stateless = false;
  bool IgnoresCase = false;
};

/// The members of an archive of the list, with their hashes.
struct TFleetMember {
  TArchiveMember Member;
  std::string Hash = {}; ///< of a file
  unsigned Mode = 0;
  deployment::TFileTime Time = {};
};

/// Members by the index of their archive in the plan.
using TFleetMembers = std::map<std::size_t, std::vector<TFleetMember>>;

/// The document. The plan is one for a machine that was never deployed to, with every hash.
TJson FleetListJson(const TFleetFacts& facts, const TDeployPlan& plan,
                    const TFleetMembers& members);

} // namespace workbench
