// Actions that threads hand to the event loop of the window.
#pragma once

#include "package/host/api/mainthread.h"

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>
#include <string_view>

namespace workbench {

/// Made on the main thread. Threads may hold it for longer than the window lives. Actions wait
/// while the window is busy with other work, which must not meet them in its middle.
class TEventLoopQueue final : public deployment::IMainThreadQueue {
public:
  /// `isBusy` is asked on the main thread; empty: never busy.
  explicit TEventLoopQueue(std::function<bool()> isBusy = nullptr);
  ~TEventLoopQueue() override;
  TEventLoopQueue(const TEventLoopQueue&) = delete;
  TEventLoopQueue& operator=(const TEventLoopQueue&) = delete;

  void Post(std::function<void()> action) override;
  void NameThread(std::string_view name) override;
  /// Drops what waits and what comes from now on. To be called on the main thread.
  void Close();

private:
  void RunWaiting();

  const std::function<bool()> FIsBusy;
  std::mutex FMutex;
  std::deque<std::function<void()>> FWaiting;
  QObject* FReceiver; // of the main thread; null when closed
};

} // namespace workbench
