// The threads of the view. A view that closes leaves its thread to them; the package is unloaded
// when all have ended.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace deployment {

/// Owns threads until they end. Used on the main thread.
class TViewThreads {
public:
  TViewThreads() = default;
  TViewThreads(const TViewThreads&) = delete;
  TViewThreads& operator=(const TViewThreads&) = delete;
  /// Waits as Join does.
  ~TViewThreads() { Join(); }

  /// Runs the body on a thread of its own. The body must not throw.
  void Run(std::function<void()> body);
  /// Waits until all have ended.
  void Join();

private:
  struct TRunning {
    std::thread Thread;
    std::shared_ptr<std::atomic<bool>> Ended;
  };

  void DropEnded();

  std::vector<TRunning> FRunning;
};

} // namespace deployment
