#include "package/model/deployment_commands.h"

namespace deployment {
namespace {

// Place of deployments in the host's chain of module handlers; higher ones come first.
constexpr int GauntletPriority = 1000;

} // namespace

TDeploymentCommands::TDeploymentCommands(VelmorIDEServices& host)
    : FHost(host), FStorage(std::make_shared<TDeploymentStorageManager>(host)),
      FNotifierIndex(FHost.GetProjectFileStorage().AddNotifier(FStorage)) {}

TDeploymentCommands::~TDeploymentCommands() {
  FHost.GetProjectFileStorage().RemoveNotifier(FNotifierIndex);
}

void TDeploymentCommands::Startup(VelmorIDEServices& host, TDeploymentUnitObjects& objects) {
  const auto findStorage = [&objects]() -> IDeploymentStorage* {
    return objects.Commands ? objects.Commands->DeploymentStorage().get() : nullptr;
  };
  objects.GauntletHandler = std::make_shared<TDeploymentGauntletHandler>(host, findStorage);
  host.GetModuleHandlerGauntlet().AddHandler(objects.GauntletHandler, GauntletPriority);
  objects.Commands = std::make_unique<TDeploymentCommands>(host);
}

} // namespace deployment
