// Host unit Mainthread: the way of a thread back to the host's main thread.
#pragma once

#include <functional>
#include <string_view>

namespace deployment {

/// Implemented by the host. Shared with the threads that post, so that it lives as long as they do.
class IMainThreadQueue {
public:
  virtual ~IMainThreadQueue() = default;
  /// Runs the action on the main thread, soon and in the order of posting. May be called on any
  /// thread; never runs the action itself. After the main thread ended, actions are dropped.
  virtual void Post(std::function<void()> action) = 0;
  /// Gives the thread that calls it a name for those who debug the host.
  virtual void NameThread(std::string_view name) = 0;
};

} // namespace deployment
