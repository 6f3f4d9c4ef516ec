#include "package/host/plugin/deployment_package.h"

namespace deployment {

TDeploymentPackage::~TDeploymentPackage() {
  Stop();
}

void TDeploymentPackage::Start() {
  try {
    while (FStarted < FTable.size()) {
      FTable[FStarted].Initialize(FUnits);
      ++FStarted;
    }
  } catch (...) {
    Stop();
    throw;
  }
}

void TDeploymentPackage::Stop() {
  while (FStarted > 0) {
    --FStarted;
    FTable[FStarted].Finalize(FUnits);
  }
}

} // namespace deployment
