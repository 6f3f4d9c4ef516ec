#include "package/view/connection.h"

namespace deployment {

using S = TConnectionState;

bool TConnection::IsConnecting() const {
  return FState == S::Connecting || FState == S::Reconnecting || FState == S::Discarding;
}

bool TConnection::HasConnection() const {
  return FState == S::Connected || FState == S::Reconnecting;
}

void TConnection::Start(IOTARemoteProfileServices* services,
                        std::shared_ptr<IOTARemoteProfile> profile,
                        std::shared_ptr<IMainThreadQueue> mainThread,
                        TConnectThread::TOnTerminate onEnd) {
  if (FState == S::Connected)
    FState = S::Reconnecting;
  else
    FState = FState == S::Stale ? S::Discarding : S::Connecting;
  TConnectThread::Start(*FThreads, services, std::move(profile), std::move(mainThread),
                        std::move(onEnd));
}

TAttemptOutcome TConnection::End(bool failed) {
  const bool discarded = FState == S::Discarding;
  FState = discarded || failed ? S::Idle : S::Connected;
  if (discarded)
    return TAttemptOutcome::Discarded;
  return failed ? TAttemptOutcome::Failed : TAttemptOutcome::Connected;
}

void TConnection::Release() {
  if (FState == S::Connected)
    FState = S::Idle;
}

bool TConnection::Drop() {
  if (!HasConnection())
    return false;
  FState = FState == S::Reconnecting ? S::Discarding : S::Stale;
  return true;
}

} // namespace deployment
