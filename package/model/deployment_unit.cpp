#include "package/model/deployment_unit.h"

#include <utility>

namespace deployment {

void TDeploymentImplUnit::Initialize() {
  if (FInitializations == 0)
    FMainFormCreated = FHost.GetEvents().MainFormCreated().Subscribe([this] { MainFormCreated(); });
  ++FInitializations;
}

void TDeploymentImplUnit::MainFormCreated() {
  FHost.GetEvents().MainFormCreated().Unsubscribe(std::exchange(FMainFormCreated, 0));
  TDeploymentCommands::Startup(FHost, FObjects);
}

void TDeploymentImplUnit::Finalize() {
  if (FInitializations == 0 || --FInitializations > 0)
    return;
  if (FMainFormCreated != 0)
    FHost.GetEvents().MainFormCreated().Unsubscribe(std::exchange(FMainFormCreated, 0));
  if (FObjects.GauntletHandler)
    FHost.GetModuleHandlerGauntlet().RemoveHandler(*FObjects.GauntletHandler);
  FObjects.GauntletHandler.reset();
  if (FObjects.Commands)
    FPastStorages.push_back(FObjects.Commands->DeploymentStorage());
  FObjects.Commands.reset();
}

} // namespace deployment
