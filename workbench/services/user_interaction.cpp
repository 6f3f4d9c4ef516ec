#include "workbench/services/user_interaction.h"

namespace workbench {
TDeployReport IUserInteraction::Deploy(const TDeployService& service,
                                       const TDeployRequest& request) {
  TSilentObserver observer;
  return service.Deploy(request, observer);
}

} // namespace workbench
