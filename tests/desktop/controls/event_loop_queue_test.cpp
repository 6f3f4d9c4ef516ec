#include "workbench/desktop/controls/event_loop_queue.h"

#include <gtest/gtest.h>

#include <QTest>
#include <memory>
#include <thread>

namespace workbench {
namespace {

TEST(EventLoopQueue, RunsActionsInOrderOnTheMainThread) {
  const auto queue = std::make_shared<TEventLoopQueue>();
  const auto here = std::this_thread::get_id();
  std::vector<int> ran;
  std::thread([&] {
    for (int i = 0; i < 3; ++i)
      queue->Post([&ran, here, i] { ran.push_back(std::this_thread::get_id() == here ? i : -1); });
  }).join();
  EXPECT_TRUE(ran.empty());
  EXPECT_TRUE(QTest::qWaitFor([&ran] { return ran.size() == 3; }));
  EXPECT_EQ(ran, (std::vector<int>{0, 1, 2}));
}

TEST(EventLoopQueue, WaitsWhileTheWindowIsBusy) {
  bool isBusy = true;
  TEventLoopQueue queue([&isBusy] { return isBusy; });
  bool ran = false;
  queue.Post([&ran] { ran = true; });
  QTest::qWait(60);
  EXPECT_FALSE(ran);
  isBusy = false;
  EXPECT_TRUE(QTest::qWaitFor([&ran] { return ran; }));
}

TEST(EventLoopQueue, DropsWhatWaitsWhenItIsClosed) {
  TEventLoopQueue queue;
  bool ran = false;
  const auto held = std::make_shared<int>(1);
  queue.Post([&ran, held] { ran = true; });
  queue.Close();
  EXPECT_EQ(held.use_count(), 1);
  queue.Post([&ran] { ran = true; });
  QTest::qWait(20);
  EXPECT_FALSE(ran);
}

} // namespace
} // namespace workbench
