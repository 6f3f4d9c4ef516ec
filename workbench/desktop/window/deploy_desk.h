// Deploys that are started in the window.
#pragma once

#include "workbench/deploy/deploy_run.h"

#include <functional>
#include <optional>

class QWidget;

namespace workbench {

class TDeployPanel;

/// Shows each deploy on the panel and asks before commands run.
class TDeployDesk final : public IDeployDesk {
public:
  /// Answers whether these commands may run; called on the main thread.
  using TMayRun = std::function<bool(const std::vector<std::string>&)>;

  /// The panel must outlive the object.
  TDeployDesk(TDeployPanel& panel, TMayRun mayRun);

  TDeployRun& Begin() override;
  void End(TDeployRun& run) override;
  bool IsRunning() const { return FRun.has_value(); }

private:
  TDeployPanel& FPanel;
  TMayRun FMayRun;
  std::optional<TDeployRun> FRun;
};

} // namespace workbench
