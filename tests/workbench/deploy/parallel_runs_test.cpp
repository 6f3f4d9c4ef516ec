#include "workbench/deploy/parallel_runs.h"

#include <gtest/gtest.h>

#include <barrier>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace workbench {
namespace {

const std::atomic<int> GoesOn = 0;

TEST(ParallelRuns, DoEachOnceAndTellOnTheCallingThread) {
  std::atomic<int> done = 0;
  std::vector<int> told(20, 0);
  const auto caller = std::this_thread::get_id();
  RunParallel({.Count = told.size(),
               .AtOnce = 4,
               .Work = [&](std::size_t) { ++done; },
               .Ended =
                   [&](std::size_t index, const std::exception_ptr& error) {
                     EXPECT_EQ(std::this_thread::get_id(), caller);
                     EXPECT_FALSE(error);
                     ++told[index];
                   },
               .Cancelled = GoesOn});
  EXPECT_EQ(done, 20);
  EXPECT_EQ(told, std::vector<int>(20, 1));
}

TEST(ParallelRuns, AreThatManyAtATimeAndNoMore) {
  std::barrier together(3); // each waits for two others
  std::atomic<int> running = 0;
  std::atomic<int> most = 0;
  RunParallel({.Count = 9,
               .AtOnce = 3,
               .Work =
                   [&](std::size_t) {
                     const int now = ++running;
                     int known = most;
                     while (known < now && !most.compare_exchange_weak(known, now)) {
                     }
                     together.arrive_and_wait();
                     --running;
                     together.arrive_and_wait();
                   },
               .Ended = [](std::size_t, const std::exception_ptr&) {},
               .Cancelled = GoesOn});
  EXPECT_EQ(most, 3);
}

TEST(ParallelRuns, GoOnWhenOneFails) {
  std::vector<std::string> ends(3);
  RunParallel({.Count = 3,
               .AtOnce = 2,
               .Work =
                   [](std::size_t index) {
                     if (index == 1)
                       throw std::runtime_error("it broke");
                   },
               .Ended =
                   [&](std::size_t index, const std::exception_ptr& error) {
                     ends[index] = "done";
                     try {
                       if (error)
                         std::rethrow_exception(error);
                     } catch (const std::runtime_error& failure) {
                       ends[index] = failure.what();
                     }
                   },
               .Cancelled = GoesOn});
  EXPECT_EQ(ends, (std::vector<std::string>{"done", "it broke", "done"}));
}

TEST(ParallelRuns, BeginNoMoreWhenTheyAreCancelled) {
  std::atomic<int> cancelled = 0;
  std::vector<std::size_t> told;
  RunParallel(
      {.Count = 5,
       .AtOnce = 1,
       .Work =
           [&](std::size_t index) {
             if (index == 1)
               cancelled = 2;
           },
       .Ended = [&](std::size_t index, const std::exception_ptr&) { told.push_back(index); },
       .Cancelled = cancelled});
  EXPECT_EQ(told, (std::vector<std::size_t>{0, 1}));
}

TEST(ParallelRuns, BeginNoMoreWhenTheCallerFails) {
  std::atomic<int> begun = 0;
  const TParallelRuns runs{
      .Count = 1000,
      .AtOnce = 1,
      .Work =
          [&](std::size_t) {
            ++begun;
            std::this_thread::yield();
          },
      .Ended = [](std::size_t, const std::exception_ptr&) { throw std::runtime_error("no room"); },
      .Cancelled = GoesOn};
  EXPECT_THROW(RunParallel(runs), std::runtime_error);
  EXPECT_GE(begun, 1);
}

} // namespace
} // namespace workbench
