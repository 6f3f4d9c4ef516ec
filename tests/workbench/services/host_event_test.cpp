#include "workbench/services/host_event.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace workbench {
namespace {

TEST(HostEvent, CallsHandlersInOrderOfSubscription) {
  THostEvent<std::string_view> event;
  std::string calls;
  event.Subscribe([&](std::string_view text) { calls.append("1").append(text); });
  const auto second =
      event.Subscribe([&](std::string_view text) { calls.append("2").append(text); });
  event.Raise("a");
  event.Unsubscribe(second);
  event.Unsubscribe(second);
  event.Unsubscribe(0);
  event.Raise("b");
  EXPECT_EQ(calls, "1a2a1b");
}

TEST(HostEvent, LetsAHandlerUnsubscribeItselfAndOthersWhileItRuns) {
  THostEvent<> event;
  std::string calls;
  deployment::TEventHandle own = 0;
  deployment::TEventHandle later = 0;
  own = event.Subscribe([&calls, &event, &own, &later, text = std::string("held")] {
    event.Unsubscribe(own);
    event.Unsubscribe(later);
    calls += text;
  });
  later = event.Subscribe([&] { calls += "never"; });
  event.Subscribe([&] { calls += "!"; });
  event.Raise();
  event.Raise();
  EXPECT_EQ(calls, "held!!");
}

TEST(HostEvent, CallsANewHandlerTheNextTime) {
  THostEvent<> event;
  int calls = 0;
  bool subscribed = false;
  event.Subscribe([&] {
    for (int i = 0; !subscribed && i < 100; ++i)
      event.Subscribe([&] { ++calls; });
    subscribed = true;
  });
  event.Raise();
  EXPECT_EQ(calls, 0);
  event.Raise();
  EXPECT_EQ(calls, 100);
}

TEST(HostEvent, StaysUsableWhenAHandlerThrowsOrRaisesItAgain) {
  THostEvent<int> event;
  std::string calls;
  const auto thrower = event.Subscribe([&](int depth) {
    calls += std::to_string(depth);
    if (depth == 2)
      throw std::runtime_error("stop");
    event.Raise(depth + 1);
  });
  EXPECT_THROW(event.Raise(0), std::runtime_error);
  event.Unsubscribe(thrower);
  event.Raise(0);
  EXPECT_EQ(calls, "012");
}

} // namespace
} // namespace workbench
