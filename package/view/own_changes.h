// How a frame hears of its deployment, and how it does not hear of the changes that it makes.
#pragma once

#include "package/view/frame_target.h"

#include <memory>

namespace deployment {

class IProjectDeploymentNotifier;

/// The frame's place on the listener list of the deployment.
class TDeploymentListening {
public:
  /// Target and listener are those of the frame; the target must outlive the object.
  TDeploymentListening(const TFrameTarget& target,
                       std::shared_ptr<IProjectDeploymentNotifier> listener);
  TDeploymentListening(const TDeploymentListening&) = delete;
  TDeploymentListening& operator=(const TDeploymentListening&) = delete;
  ~TDeploymentListening() { Leave(); }

  /// Puts the frame on the list, unless it is there.
  void Join();
  /// Takes it off the list, unless it is not there.
  void Leave();
  /// The deployment goes away, and its list with it.
  void Forget() { FNotifyIndex = -1; }

  /// Off the list, and on it again when as many calls have ended it.
  void BeginUpdateNotifier();
  void EndUpdateNotifier();

private:
  const TFrameTarget& FTarget;
  std::shared_ptr<IProjectDeploymentNotifier> FListener;
  int FNotifyIndex = -1; ///< at the deployment; -1 for none
  int FUpdates = 0;      ///< brackets that are open
};

/// The frame does not hear of what changes as long as this lives.
class TOwnChanges {
public:
  explicit TOwnChanges(TDeploymentListening& listening) : FListening(listening) {
    FListening.BeginUpdateNotifier();
  }
  TOwnChanges(const TOwnChanges&) = delete;
  TOwnChanges& operator=(const TOwnChanges&) = delete;
  ~TOwnChanges() { FListening.EndUpdateNotifier(); }

private:
  TDeploymentListening& FListening;
};

} // namespace deployment
