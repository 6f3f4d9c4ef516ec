// The project that a frame is bound to and the target that is chosen in it.
#pragma once

#include "package/host/api/deployment_target.h"
#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "package/host/api/toolsapi.h"

#include <memory>
#include <string>

namespace deployment {

/// Shared by the parts of one frame; the frame alone changes it. Empty until the frame is bound.
struct TFrameTarget {
  std::shared_ptr<IOTAProject> Project;
  std::string ActivePlatform; ///< or "All Platforms"
  std::string Configuration;

  /// Null without a project, or without a deployment of the project.
  IProjectDeployment* Deployment() const {
    return Project ? Project->GetProjectDeployment() : nullptr;
  }
  /// Null without a project, or without platforms of the project.
  IOTAProjectPlatforms* Platforms() const {
    return Project ? Project->GetProjectPlatforms() : nullptr;
  }
  bool HasSinglePlatform() const {
    return !ActivePlatform.empty() && ActivePlatform != sAllPlatforms;
  }
  /// The chosen platform; that of the project while all are shown.
  std::string SinglePlatform() const {
    const IOTAProjectPlatforms* platforms = Platforms();
    return HasSinglePlatform() || !platforms ? ActivePlatform : platforms->GetActivePlatform();
  }
  TDeploymentTarget AsTarget() const { return {Configuration, ActivePlatform}; }
};

} // namespace deployment
