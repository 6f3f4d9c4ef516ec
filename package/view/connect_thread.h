// One attempt to connect to a remote machine, on a thread of its own.
#pragma once

#include "package/host/api/mainthread.h"
#include "package/host/api/platformapi.h"
#include "package/view/view_threads.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace deployment {

/// What the thread works with is taken when it is made, on the main thread, so that it shares
/// nothing with the view; the view gets the outcome when the thread has ended.
class TConnectThread {
public:
  /// Runs on the main thread after the attempt.
  using TOnTerminate = std::function<void(const TConnectThread&)>;

  /// Keeps what an attempt works with; Start runs it.
  TConnectThread(IOTARemoteProfileServices* services, std::shared_ptr<IOTARemoteProfile> profile)
      : FServices(services), FProfile(std::move(profile)) {}

  /// Starts an attempt. Without services or profile it fails with no message.
  static void Start(TViewThreads& threads, IOTARemoteProfileServices* services,
                    std::shared_ptr<IOTARemoteProfile> profile,
                    std::shared_ptr<IMainThreadQueue> mainThread, TOnTerminate onTerminate);

  bool Failed() const { return FFailed; }
  /// Text for the user; may be empty.
  const std::string& Message() const { return FMessage; }

private:
  void Execute();

  IOTARemoteProfileServices* FServices;
  std::shared_ptr<IOTARemoteProfile> FProfile;
  bool FFailed = true;
  std::string FMessage;
};

} // namespace deployment
