#include "workbench/controls/main_thread_queue.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

namespace workbench {
namespace {

TEST(MainThreadQueue, RunsActionsInTheOrderOfPosting) {
  TMainThreadQueue queue;
  std::vector<int> ran;
  queue.Post([&] {
    ran.push_back(1);
    queue.Post([&] { ran.push_back(3); });
  });
  queue.Post([&] { ran.push_back(2); });
  EXPECT_TRUE(ran.empty());
  EXPECT_EQ(queue.RunPosted(), 3U);
  EXPECT_EQ(ran, (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(queue.RunPosted(), 0U);
}

TEST(MainThreadQueue, WaitsForAnotherThread) {
  TMainThreadQueue queue;
  EXPECT_FALSE(queue.WaitAndRun(std::chrono::milliseconds(1)));
  std::thread::id ranOn;
  std::thread thread([&] {
    queue.NameThread("a name that is longer than the system keeps");
    queue.Post([&] { ranOn = std::this_thread::get_id(); });
  });
  EXPECT_TRUE(queue.WaitAndRun(std::chrono::seconds(20)));
  thread.join();
  EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST(MainThreadQueue, DropsWhatNobodyRuns) {
  const auto held = std::make_shared<int>(0);
  {
    TMainThreadQueue queue;
    queue.Post([held] { ++*held; });
  }
  EXPECT_EQ(*held, 0);
  EXPECT_EQ(held.use_count(), 1);
}

} // namespace
} // namespace workbench
