#include "workbench/services/user_interaction.h"

namespace workbench {
namespace {

class TNoObserver final : public IDeployObserver {
public:
  void Planned(const std::vector<TDeployRow>& /*rows*/) override {}
  void BytesSent(std::uint64_t /*count*/) override {}
  void RowDone(std::size_t /*index*/, const TDeployRow& /*row*/) override {}
};

} // namespace

TDeployReport IUserInteraction::Deploy(const TDeployService& service,
                                       const TDeployRequest& request) {
  TNoObserver observer;
  return service.Deploy(request, observer);
}

} // namespace workbench
