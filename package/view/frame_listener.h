// The listener of a frame: what the deployment and the remote profiles tell goes on to the frame as
// long as there is one.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/platformapi.h"

#include <string_view>

namespace deployment {

class TDeploymentFrame;

/// Shared with those that it listens to, so it may outlive the frame; then it hears nothing.
class TFrameListener final : public IProjectDeploymentNotifier, public IOTARemoteProfileNotifier {
public:
  explicit TFrameListener(TDeploymentFrame& frame) : FFrame(&frame) {}

  /// The frame goes away.
  void Detach() { FFrame = nullptr; }
  /// Null when it went away.
  TDeploymentFrame* Frame() const { return FFrame; }

  void ItemChanged(IProjectDeploymentItem& item, TDeploymentItemAction action) override;
  void Loaded(std::string_view projectName) override;
  void Destroyed() override;

  void RemoteProfileAdded(const IOTARemoteProfile& profile) override;
  void RemoteProfileChanged(const IOTARemoteProfile& profile) override;
  void RemoteProfileRemoved(const IOTARemoteProfile& profile) override;
  void RemoteProfileRenamed(const IOTARemoteProfile& profile, std::string_view oldName) override;
  void AfterDeploy(bool success, const IOTARemoteProfile* profile) override;
  void AfterRun(bool success, const IOTARemoteProfile* profile) override;

private:
  TDeploymentFrame* FFrame;
};

} // namespace deployment
