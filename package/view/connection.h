// The connection of a frame to the machine behind a remote profile: made in the background, dropped
// when the profile changes.
#pragma once

#include "package/view/connect_thread.h"

#include <memory>
#include <utility>

namespace deployment {

class TViewThreads;

enum class TConnectionState {
  Idle,
  Connecting,
  Connected,
  Reconnecting, ///< an attempt runs while there is a connection, for another target
  Stale,        ///< the profile changed; the outcome of the next attempt is discarded
  Discarding,   ///< an attempt runs whose outcome is discarded
};

/// How an attempt to connect ended.
enum class TAttemptOutcome { Connected, Failed, Discarded };

/// Used on the main thread.
class TConnection {
public:
  /// `threads` is where attempts go on when the frame is gone.
  explicit TConnection(std::shared_ptr<TViewThreads> threads) : FThreads(std::move(threads)) {}

  TConnectionState State() const { return FState; }
  /// True while files on the machine can be asked about.
  bool IsConnected() const { return FState == TConnectionState::Connected; }
  /// True while an attempt runs.
  bool IsConnecting() const;
  /// True when there is a connection, also while another attempt runs.
  bool HasConnection() const;

  /// Starts an attempt; none may be running. `onEnd` runs on the main thread and passes the outcome
  /// to End. Without services or profile the attempt fails with no message.
  void Start(IOTARemoteProfileServices* services, std::shared_ptr<IOTARemoteProfile> profile,
             std::shared_ptr<IMainThreadQueue> mainThread, TConnectThread::TOnTerminate onEnd);
  /// The attempt ended.
  TAttemptOutcome End(bool failed);
  /// The user lets go of the connection.
  void Release();
  /// A profile changed or went. False when there was no connection, and nothing is dropped: an
  /// attempt that runs began with the profile as it was looked up.
  bool Drop();

  /// The profile through which files are asked about; null until one was looked up.
  const std::shared_ptr<IOTARemoteProfile>& Profile() const { return FProfile; }
  void SetProfile(std::shared_ptr<IOTARemoteProfile> profile) { FProfile = std::move(profile); }

private:
  std::shared_ptr<TViewThreads> FThreads;
  TConnectionState FState = TConnectionState::Idle;
  std::shared_ptr<IOTARemoteProfile> FProfile;
};

} // namespace deployment
