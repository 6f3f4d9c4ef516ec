#include "workbench/services/module_handler_gauntlet.h"

#include <algorithm>
#include <utility>

namespace workbench {

void TModuleHandlerGauntlet::AddHandler(std::shared_ptr<deployment::IModuleGauntletHandler> handler,
                                        int priority) {
  const auto place =
      std::find_if(FMembers.begin(), FMembers.end(),
                   [priority](const TMember& member) { return member.Priority < priority; });
  FMembers.insert(place, TMember{std::move(handler), priority});
}

void TModuleHandlerGauntlet::RemoveHandler(const deployment::IModuleGauntletHandler& handler) {
  std::erase_if(FMembers,
                [&handler](const TMember& member) { return member.Handler.get() == &handler; });
}

void TModuleHandlerGauntlet::AttachHandlers(deployment::IOTAModule& module) const {
  const std::vector<TMember> members = FMembers;
  for (const TMember& member : members)
    member.Handler->AttachHandler(module);
}

} // namespace workbench
