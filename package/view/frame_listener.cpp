#include "package/view/frame_listener.h"

#include "package/view/deployment_frame.h"

namespace deployment {

void TFrameListener::ItemChanged(IProjectDeploymentItem& item, TDeploymentItemAction action) {
  if (FFrame)
    FFrame->ItemChanged(item, action);
}

void TFrameListener::Destroyed() {
  if (FFrame)
    FFrame->Destroyed();
}

void TFrameListener::RemoteProfileChanged(const IOTARemoteProfile& profile) {
  if (FFrame)
    FFrame->RemoteProfileChanged(profile);
}

void TFrameListener::RemoteProfileRemoved(const IOTARemoteProfile& profile) {
  if (FFrame)
    FFrame->RemoteProfileRemoved(profile);
}

// These change nothing that a frame shows.
void TFrameListener::Loaded(std::string_view) {}
void TFrameListener::RemoteProfileAdded(const IOTARemoteProfile&) {}
void TFrameListener::RemoteProfileRenamed(const IOTARemoteProfile&, std::string_view) {}
void TFrameListener::AfterDeploy(bool, const IOTARemoteProfile*) {}
void TFrameListener::AfterRun(bool, const IOTARemoteProfile*) {}

} // namespace deployment
