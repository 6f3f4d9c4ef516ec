// The deployment service: how the host and other packages open the Deployment Manager.
#pragma once

#include "package/featured/modify_featured_files.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/plugin/deployment_window.h"

#include <memory>
#include <optional>
#include <utility>

namespace deployment {

class TDeploymentService final : public IOTADeploymentService {
public:
  explicit TDeploymentService(std::shared_ptr<TViewContext> context)
      : FContext(std::move(context)) {}

  void DeployManagerProject(const std::shared_ptr<IOTAProject>& project) override {
    deployment::ShowDeployment(FContext, project);
  }
  std::optional<TInputError> ShowDeployment(const std::shared_ptr<IOTAProject>& project,
                                            const TShowRequest& request) override {
    return deployment::ShowDeployment(FContext, project, request);
  }
  std::shared_ptr<const IFeatureFileForm> GetFeaturedFiles(ICustomProject& project,
                                                           std::string_view extension) override {
    return LookAtFeaturedFiles(project, extension, FContext->Services);
  }
  void ModifyFeaturedFiles(ICustomProject& project) override {
    AskForFeaturedFiles(project, {}, FContext->Services);
  }

private:
  std::shared_ptr<TViewContext> FContext;
};

} // namespace deployment
