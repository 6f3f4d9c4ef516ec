// Actions that threads hand to the main thread, which runs them when it comes round.
#pragma once

#include "package/host/api/mainthread.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string_view>
#include <vector>

namespace workbench {

/// Names the calling thread for debuggers; the system keeps 15 characters.
void NameThisThread(std::string_view name);

/// The main thread of a host without a window asks the queue for its work.
class TMainThreadQueue final : public deployment::IMainThreadQueue {
public:
  void Post(std::function<void()> action) override;
  void NameThread(std::string_view name) override { NameThisThread(name); }

  /// Runs what was posted, and what that posts; returns how many actions ran.
  std::size_t RunPosted();
  /// Waits until something is there and runs it; false when nothing came in time.
  bool WaitAndRun(std::chrono::milliseconds limit);

private:
  std::vector<std::function<void()>> Take();

  std::mutex FMutex;
  std::condition_variable FPosted;
  std::vector<std::function<void()>> FActions;
};

} // namespace workbench
