// The deployment service: how the host and other packages open the Deployment Manager.
#pragma once

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

private:
  std::shared_ptr<TViewContext> FContext;
};

} // namespace deployment
