#include "package/reconcile/deploy_module_reconciler.h"

#include <array>

namespace deployment {
namespace {

using TReconcileStep = TReconcileResult (*)(TDeployModuleReconciler& reconciler);

// The chain, in the order in which its steps run.
constexpr std::array<TReconcileStep, 0> Steps{};

} // namespace

TDeployModuleReconciler::TDeployModuleReconciler(ICustomProject& project, std::string_view platform,
                                                 std::string_view configuration,
                                                 bool reconcileInternally,
                                                 VelmorIDEServices& services)
    : FProject(project), FPlatform(platform.empty() ? project.GetCurrentPlatform() : platform),
      FConfiguration(configuration.empty() ? project.GetCurrentConfiguration() : configuration),
      FReconcileInternally(reconcileInternally), FServices(services) {}

TReconcileResult TDeployModuleReconciler::Reconcile() {
  for (const TReconcileStep step : Steps) {
    const TReconcileResult result = step(*this);
    if (result != TReconcileResult::Reconciled)
      return result;
  }
  return TReconcileResult::Reconciled;
}

} // namespace deployment
