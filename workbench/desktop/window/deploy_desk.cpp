#include "workbench/desktop/window/deploy_desk.h"

#include "workbench/desktop/dialogs/deploy/deploy_panel.h"

#include <utility>

namespace workbench {

TDeployDesk::TDeployDesk(TDeployPanel& panel, TMayRun mayRun)
    : FPanel(panel), FMayRun(std::move(mayRun)) {}

TDeployRun& TDeployDesk::Begin() {
  TDeployRun& run = FRun.emplace();
  run.MayRun = FMayRun;
  FPanel.Begin(run);
  return run;
}

void TDeployDesk::End(TDeployRun& /*run*/) {
  FPanel.End();
  FRun.reset();
}

} // namespace workbench
