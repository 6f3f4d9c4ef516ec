// The listeners of a deployment, told in the order in which they registered.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace deployment {

/// A listener may register and remove listeners, itself included, while it is called: one that is
/// removed is not called any more, one that is new is called from the next event on.
class TDeploymentNotifiers {
public:
  /// Returns the index under which the listener is removed; no index is given out twice.
  int Add(std::shared_ptr<IProjectDeploymentNotifier> notifier);
  /// An index that is not registered is ignored.
  void Remove(int index);

  template <class TAction>
  void ForEach(TAction action) const {
    const int end = FNextIndex;
    for (auto member = After(-1); member != FMembers.end() && member->Index < end;) {
      const TMember called = *member;
      action(*called.Notifier);
      member = After(called.Index);
    }
  }

private:
  struct TMember {
    int Index;
    std::shared_ptr<IProjectDeploymentNotifier> Notifier;
  };

  // The first member behind the index; members stand in order of their indexes.
  std::vector<TMember>::const_iterator After(int index) const {
    return std::find_if(FMembers.begin(), FMembers.end(),
                        [index](const TMember& member) { return member.Index > index; });
  }

  std::vector<TMember> FMembers;
  int FNextIndex = 0;
};

} // namespace deployment
