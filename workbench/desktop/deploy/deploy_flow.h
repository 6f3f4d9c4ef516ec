// From the Deploy button to the end of a deploy: plans it, waits for a yes, carries it out.
#pragma once

#include "workbench/deploy/deploy_service.h"

#include <functional>
#include <utility>

namespace workbench {

class TDeployPanel;

/// What a deploy of the window is given besides the user's choices.
struct TDeployTerms {
  TMayRun MayRun;
  TMaySend MaySend;
  std::function<TUndoLimits()> UndoLimits; ///< as the settings say
  /// True when a deploy in which nothing conflicts needs no yes.
  std::function<bool()> GoesUnasked;
};

/// Plans and deploys, whichever is due, are the same request to the service.
class TDeployFlow {
public:
  /// The panel must outlive the object.
  TDeployFlow(TDeployPanel& panel, TDeployTerms terms) : FPanel(panel), FTerms(std::move(terms)) {}

  /// Deploys are only planned, whatever was confirmed and whatever the settings say.
  void SetPlansOnly(bool on) { FPlansOnly = on; }
  /// Carries out the plan that the panel shows of this project and target; without one it makes one
  /// and shows it. What is returned says how it ended; its rows are in the panel.
  TDeployReport Deploy(const TDeployService& service, const TDeployRequest& request);

private:
  TDeployPanel& FPanel;
  TDeployTerms FTerms;
  bool FPlansOnly = false;
};

} // namespace workbench
