#include "package/model/deployment_gauntlet_handler.h"

#include "package/model/deployment_module_handler.h"

namespace deployment {

void TDeploymentGauntletHandler::AttachHandler(IOTAModule& module) {
  IDeploymentStorage* storage = FFindStorage();
  if (storage && TDeploymentModuleHandler::CanHandleModule(module))
    TDeploymentModuleHandler::Attach(module, FHost, *storage);
}

} // namespace deployment
