#include "package/view/own_changes.h"

#include "package/host/api/deploymentapi.h"

#include <utility>

namespace deployment {

TDeploymentListening::TDeploymentListening(const TFrameTarget& target,
                                           std::shared_ptr<IProjectDeploymentNotifier> listener)
    : FTarget(target), FListener(std::move(listener)) {}

void TDeploymentListening::Join() {
  IProjectDeployment* deployment = FTarget.Deployment();
  if (deployment && FNotifyIndex == -1)
    FNotifyIndex = deployment->AddNotifier(FListener);
}

void TDeploymentListening::Leave() {
  if (IProjectDeployment* deployment = FNotifyIndex != -1 ? FTarget.Deployment() : nullptr)
    deployment->RemoveNotifier(FNotifyIndex);
  FNotifyIndex = -1;
}

void TDeploymentListening::BeginUpdateNotifier() {
  ++FUpdates;
  Leave();
}

void TDeploymentListening::EndUpdateNotifier() {
  if (FUpdates > 0)
    --FUpdates;
  if (FUpdates == 0)
    Join();
}

} // namespace deployment
