// What the frame's operations put around their work and take off again whatever happens.
#pragma once

#include "package/view/deployment_frame.h"

namespace deployment {

/// The view does not hear of changes meanwhile.
class TDeploymentFrame::TNotifierBracket {
public:
  explicit TNotifierBracket(TDeploymentFrame& frame) : FFrame(frame) {
    FFrame.BeginUpdateNotifier();
  }
  TNotifierBracket(const TNotifierBracket&) = delete;
  TNotifierBracket& operator=(const TNotifierBracket&) = delete;
  ~TNotifierBracket() { FFrame.EndUpdateNotifier(); }

private:
  TDeploymentFrame& FFrame;
};

/// The tree shows the outcome only.
class TDeploymentFrame::TTreeUpdate {
public:
  explicit TTreeUpdate(IVirtualStringTree& tree) : FTree(tree) { FTree.BeginUpdate(); }
  TTreeUpdate(const TTreeUpdate&) = delete;
  TTreeUpdate& operator=(const TTreeUpdate&) = delete;
  ~TTreeUpdate() { FTree.EndUpdate(); }

private:
  IVirtualStringTree& FTree;
};

} // namespace deployment
