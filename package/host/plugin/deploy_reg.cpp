#include "package/host/plugin/deploy_reg.h"

#include "package/host/plugin/deploy_service.h"

#include <utility>

namespace deployment {

TProductStartup::TProductStartup(std::shared_ptr<TViewContext> context,
                                 TDeployDataModule& dataModule)
    : FContext(std::move(context)), FDataModule(dataModule),
      FMainFormCreated(FContext->Services.GetEvents().MainFormCreated().Subscribe(
          [this] { MainFormCreated(); })) {}

void TProductStartup::MainFormCreated() {
  FContext->Services.GetEvents().MainFormCreated().Unsubscribe(std::exchange(FMainFormCreated, 0));
  FDataModule.DMDeploy = std::make_unique<TDMDeploy>();
  if (IOTAExtensions* extensions = FContext->Services.GetExtensions())
    FExtensionIndex = extensions->AddOTAExtension(std::make_shared<TDeploymentService>(FContext));
}

TProductStartup::~TProductStartup() {
  if (FMainFormCreated != 0)
    FContext->Services.GetEvents().MainFormCreated().Unsubscribe(FMainFormCreated);
  IOTAExtensions* extensions = FContext->Services.GetExtensions();
  if (extensions && FExtensionIndex != -1)
    extensions->RemoveOTAExtension(FExtensionIndex);
}

} // namespace deployment
