// Which files of a deployment are listed for a target.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deploymentapi.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace deployment {

/// Decides for one refresh of the rows; what depends on the project alone is asked for once.
class TRowFilter {
public:
  /// `activePlatform` may be "All Platforms". The project must outlive the filter.
  TRowFilter(ICustomProject& project, std::string_view activePlatform,
             std::string_view selectedConfiguration);

  bool Passes(const IProjectDeploymentFile& file);

private:
  using TConfigurations = std::vector<const IOTABuildConfiguration*>;

  bool PassesPlatform(const IProjectDeploymentFile& file) const;
  bool PassesConfiguration(const std::string& configuration);
  bool DecideConfiguration(std::string_view configuration) const;
  const IOTABuildConfiguration* FindConfiguration(std::string_view name) const;
  bool WalkPasses(const IOTABuildConfiguration* from, std::string_view name) const;

  std::string FActivePlatform;
  std::string FSelectedConfiguration;
  bool FAllPlatforms;
  std::vector<std::string> FSupportedPlatforms;
  TConfigurations FConfigurations;
  std::unordered_map<std::string, bool> FDecided; ///< by configuration name as files state it
};

} // namespace deployment
