// The form of every event that the host raises and the package hears.
#pragma once

#include <functional>

namespace deployment {

/// Handle of a subscription; 0 is none.
using TEventHandle = int;

/// A list of handlers. Implemented by the host, which calls them in order of subscription on its
/// main thread. A handler may subscribe and unsubscribe, itself included, while it runs.
template <class... TArguments>
class IHostEvent {
public:
  using THandler = std::function<void(TArguments...)>;

  virtual ~IHostEvent() = default;
  virtual TEventHandle Subscribe(THandler handler) = 0;
  /// A handle that is not subscribed is ignored.
  virtual void Unsubscribe(TEventHandle handle) = 0;
};

} // namespace deployment
