// The same work for many, so many of them at a time.
#pragma once

#include <atomic>
#include <cstddef>
#include <exception>
#include <functional>

namespace workbench {

/// Everything that it names must live as long as the run.
struct TParallelRuns {
  std::size_t Count = 0;
  unsigned AtOnce = 1;
  /// Does the work of one, on a thread of its own. They are begun in their order.
  std::function<void(std::size_t index)> Work;
  /// Hears on the calling thread that one has ended, in the order in which they do, and what its
  /// work threw.
  std::function<void(std::size_t index, const std::exception_ptr& error)> Ended;
  /// Is called on the calling thread several times a second while it waits; may be empty.
  std::function<void()> Meanwhile = nullptr;
  /// With something else than 0 no more are begun; those that run go on.
  const std::atomic<int>& Cancelled;
};

/// Returns when all that were begun have ended. Throws std::system_error when there can be no
/// thread at all, and what Ended and Meanwhile throw.
void RunParallel(const TParallelRuns& runs);

} // namespace workbench
