#include "workbench/deploy/shared_work.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace workbench {
namespace {

TEST(SharedWork, IsDoneOnceForAllThatAsk) {
  TSharedWork shared;
  std::atomic<int> done = 0;
  std::atomic<int> right = 0;
  {
    std::vector<std::jthread> threads;
    threads.reserve(8);
    for (int i = 0; i < 8; ++i)
      threads.emplace_back([&] {
        const std::string outcome = shared.Once("a", [&] {
          ++done;
          return std::string("failed with 3");
        });
        right += outcome == "failed with 3" ? 1 : 0;
      });
  }
  EXPECT_EQ(done, 1);
  EXPECT_EQ(right, 8);
  EXPECT_EQ(shared.Once("b", [] { return std::string("other"); }), "other");
}

TEST(SharedWork, ThrowsTheSameToAll) {
  TSharedWork shared;
  const auto fail = []() -> std::string { throw std::runtime_error("no room"); };
  EXPECT_THROW(shared.Once("a", fail), std::runtime_error);
  EXPECT_THROW(shared.Once("a", [] { return std::string(); }), std::runtime_error);
}

} // namespace
} // namespace workbench
