// The commands that reach for the remote machine.
#pragma once

#include "package/view/connection.h"
#include "package/view/frame_context.h"

#include <functional>
#include <string_view>

namespace deployment {

/// True when deploying a project to the platform takes a remote profile. False for no platform, for
/// "All Platforms" and for one that the host does not know.
bool RequiresProfile(VelmorIDEServices& services, const TFrameTarget& target,
                     std::string_view platform);

class TRemoteCommands {
public:
  /// Runs on the main thread when an attempt to connect has ended, as long as there is a frame.
  using TOnTerminate = TConnectThread::TOnTerminate;

  TRemoteCommands(const TFrameContext& frame, TOnTerminate onTerminate)
      : FFrame(frame), FOnTerminate(std::move(onTerminate)) {}

  bool CanConnect() const;
  /// The button that stays down was pressed or released; an attempt that runs goes on.
  void Connect(IToolButton& button);
  /// The attempt ended; true when there is a connection now.
  bool ConnectEnded(IToolButton& button, const TConnectThread& thread);
  /// Deploys the target, once it is the project's active one and has a profile; asks the user where
  /// either is missing.
  void Deploy();

private:
  bool ChoosePlatformToDeploy(IOTAProjectPlatforms& platforms);
  bool PromptForProfile(std::string_view platform);

  const TFrameContext& FFrame;
  TOnTerminate FOnTerminate;
};

} // namespace deployment
