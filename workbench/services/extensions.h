// What packages offer to this host.
#pragma once

#include "package/host/api/ideintf.h"

#include <memory>
#include <utility>
#include <vector>

namespace workbench {

class TExtensions final : public deployment::IOTAExtensions {
public:
  int AddOTAExtension(std::shared_ptr<deployment::IOTADeploymentService> extension) override {
    FExtensions.push_back(std::move(extension));
    return static_cast<int>(FExtensions.size()) - 1;
  }
  void RemoveOTAExtension(int index) override {
    if (index >= 0 && static_cast<std::size_t>(index) < FExtensions.size())
      FExtensions[static_cast<std::size_t>(index)].reset();
  }

  /// The service that opens Deployment Managers; null while no package offers one.
  deployment::IOTADeploymentService* DeploymentService() const {
    for (const auto& extension : FExtensions) {
      if (extension)
        return extension.get();
    }
    return nullptr;
  }

private:
  std::vector<std::shared_ptr<deployment::IOTADeploymentService>> FExtensions; // removed: null
};

} // namespace workbench
