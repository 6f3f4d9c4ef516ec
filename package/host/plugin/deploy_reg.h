// Registration of the package: what the host calls, and what waits for the host's main form.
#pragma once

#include "package/host/api/ideservices.h"
#include "package/host/plugin/deploy_data_module.h"
#include "package/host/plugin/deployment_window.h"

#include <memory>

namespace deployment {

/// Registers the deployment service when the host is ready, and takes it back at its end.
class TProductStartup {
public:
  /// All must outlive the object.
  TProductStartup(std::shared_ptr<TViewContext> context, TDeployDataModule& dataModule);
  TProductStartup(const TProductStartup&) = delete;
  TProductStartup& operator=(const TProductStartup&) = delete;
  ~TProductStartup();

private:
  void MainFormCreated();

  std::shared_ptr<TViewContext> FContext;
  TDeployDataModule& FDataModule;
  TEventHandle FMainFormCreated = 0;
  int FExtensionIndex = -1; ///< of the service, at the host; -1 for none
};

/// The unit-level object of the unit "DeployReg".
struct TDeployReg {
  std::unique_ptr<TProductStartup> ProductStartup; ///< null before registration
};

} // namespace deployment
