// The chain that every opened module passes.
#pragma once

#include "package/host/api/docmodul.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace workbench {

class TModuleHandlerGauntlet : public deployment::IModuleHandlerGauntlet {
public:
  void AddHandler(std::shared_ptr<deployment::IModuleGauntletHandler> handler,
                  int priority) override;
  void RemoveHandler(const deployment::IModuleGauntletHandler& handler) override;

  /// Sends an opened module through the chain. Members that come or go meanwhile count from the
  /// next module on.
  void AttachHandlers(deployment::IOTAModule& module) const;

  /// Number of members.
  std::size_t Count() const { return FMembers.size(); }

private:
  struct TMember {
    std::shared_ptr<deployment::IModuleGauntletHandler> Handler;
    int Priority = 0;
  };

  std::vector<TMember> FMembers;
};

} // namespace workbench
