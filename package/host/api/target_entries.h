// Which entries of a deployment belong to a target. The rows of the view, plan, deploy and
// explanation all ask here.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deployment_target.h"
#include "package/host/api/deploymentapi.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace deployment {

/// True for no platform and for "All Platforms"; else when the file has a record of the platform,
/// ignoring case.
bool IsFileInPlatform(std::string_view platform, const IProjectDeploymentFile& file);

/// True when the file has a record of the platform, compared exactly.
bool HoldsPlatform(const IProjectDeploymentFile& file, std::string_view platform);

/// Answers for one target and many entries; what depends on the project alone is asked for once, so
/// the object is good until the project's configurations or platforms change.
class TTargetEntries {
public:
  /// The project must outlive the object.
  TTargetEntries(ICustomProject& project, const TDeploymentTarget& target);

  /// Is the entry shown for the target? It is when the target has its platform, and its
  /// configuration is the target's, one that the target's inherits from, or one that inherits from
  /// the target's. The configuration where both meet must be set up for the platform.
  bool IsListed(const IProjectDeploymentFile& file);
  /// Does a deploy to the target take the entry? It does when the entry is listed and enabled for
  /// the platform, unless its configuration only inherits from the target's: such a row is shown,
  /// and its box speaks for the targets of its own configuration. Nothing is deployed to "All
  /// Platforms".
  bool IsDeployed(const IProjectDeploymentFile& file);

private:
  using TConfigurations = std::vector<const IOTABuildConfiguration*>;
  /// What is decided about a configuration that entries name.
  struct TDecision {
    bool IsOfTarget = false;     ///< the target's own, or one that it inherits from
    bool InheritsTarget = false; ///< one that inherits from the target's
  };

  bool PassesPlatform(const IProjectDeploymentFile& file) const;
  const TDecision& Decide(const std::string& configuration);
  const IOTABuildConfiguration* FindConfiguration(std::string_view name) const;
  bool WalkPasses(const IOTABuildConfiguration* from, std::string_view name) const;

  TDeploymentTarget FTarget;
  bool FAllPlatforms;
  std::vector<std::string> FSupportedPlatforms;
  TConfigurations FConfigurations;
  std::unordered_map<std::string, TDecision> FDecided; ///< by configuration as entries state it
};

} // namespace deployment
