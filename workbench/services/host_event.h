// The host's events: lists of handlers that may change while they are called.
#pragma once

#include "package/host/api/events.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace workbench {

/// An event of the main thread.
template <class... TArguments>
class THostEvent : public deployment::IHostEvent<TArguments...> {
public:
  using THandler = typename deployment::IHostEvent<TArguments...>::THandler;

  deployment::TEventHandle Subscribe(THandler handler) override {
    FEntries.push_back({++FLastHandle, std::make_shared<const THandler>(std::move(handler))});
    return FLastHandle;
  }

  void Unsubscribe(deployment::TEventHandle handle) override {
    for (TEntry& entry : FEntries) {
      if (handle != 0 && entry.Handle == handle)
        entry = TEntry();
    }
    RemoveLeft();
  }

  /// Calls the handlers that are subscribed now, in order. One that is unsubscribed before its
  /// turn is not called, one that comes meanwhile is called the next time. An exception of a
  /// handler goes on to the caller.
  void Raise(TArguments... arguments) {
    const TDepth depth(*this);
    const std::size_t count = FEntries.size();
    for (std::size_t i = 0; i < count; ++i) {
      // Held, because the handler may unsubscribe itself while it runs.
      const std::shared_ptr<const THandler> handler = FEntries[i].Handler;
      if (handler)
        (*handler)(arguments...);
    }
  }

private:
  struct TEntry {
    deployment::TEventHandle Handle = 0;
    std::shared_ptr<const THandler> Handler; // null: left while the event was raised
  };

  // Entries keep their positions as long as the event is being raised.
  struct TDepth {
    explicit TDepth(THostEvent& event) : Event(event) { ++Event.FDepth; }
    ~TDepth() {
      --Event.FDepth;
      Event.RemoveLeft();
    }
    TDepth(const TDepth&) = delete;
    TDepth& operator=(const TDepth&) = delete;
    THostEvent& Event;
  };

  void RemoveLeft() {
    if (FDepth == 0)
      std::erase_if(FEntries, [](const TEntry& entry) { return entry.Handle == 0; });
  }

  std::vector<TEntry> FEntries;
  deployment::TEventHandle FLastHandle = 0;
  int FDepth = 0;
};

} // namespace workbench
