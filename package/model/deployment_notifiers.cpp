#include "package/model/deployment_notifiers.h"

#include <utility>

namespace deployment {

int TDeploymentNotifiers::Add(std::shared_ptr<IProjectDeploymentNotifier> notifier) {
  const int index = FNextIndex++;
  FMembers.push_back(TMember{index, std::move(notifier)});
  return index;
}

void TDeploymentNotifiers::Remove(int index) {
  std::erase_if(FMembers, [index](const TMember& member) { return member.Index == index; });
}

} // namespace deployment
