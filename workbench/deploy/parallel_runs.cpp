#include "workbench/deploy/parallel_runs.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds LookInterval(100);

class TRuns {
public:
  explicit TRuns(const TParallelRuns& runs) : FRuns(runs) {}

  void Run() {
    const TStopping stopping{*this};
    Start();
    while (const std::size_t ended = WaitForEnds()) {
      for (std::size_t i = 0; i < ended; ++i) {
        const TEnd end = TakeEnd();
        FRuns.Ended(end.first, end.second);
      }
    }
  }

private:
  using TEnd = std::pair<std::size_t, std::exception_ptr>;

  // However the calling thread leaves, nothing more is begun.
  struct TStopping {
    TRuns& Runs;
    ~TStopping() {
      const std::lock_guard lock(Runs.FMutex);
      Runs.FStopped = true;
    }
  };

  void Start() {
    const std::size_t wanted = std::min<std::size_t>(FRuns.AtOnce, FRuns.Count);
    FThreads.reserve(wanted);
    for (std::size_t i = 0; i < wanted; ++i) {
      try {
        {
          const std::lock_guard lock(FMutex);
          ++FWorking;
        }
        FThreads.emplace_back([this] { WorkOn(); });
      } catch (const std::system_error&) {
        const std::lock_guard lock(FMutex);
        --FWorking;
        if (FThreads.empty())
          throw;
        return; // the others do its share
      }
    }
  }

  void WorkOn() {
    std::unique_lock lock(FMutex);
    while (FNext < FRuns.Count && !FStopped && FRuns.Cancelled == 0) {
      const std::size_t index = FNext++;
      lock.unlock();
      std::exception_ptr error;
      try {
        FRuns.Work(index);
      } catch (...) {
        error = std::current_exception();
      }
      lock.lock();
      FEnds.emplace_back(index, std::move(error));
      FChanged.notify_one();
    }
    --FWorking;
    FChanged.notify_one();
  }

  // How many have ended; 0 when nobody works any more.
  std::size_t WaitForEnds() {
    std::unique_lock lock(FMutex);
    const auto hasNews = [this] { return !FEnds.empty() || FWorking == 0; };
    while (!FChanged.wait_for(lock, LookInterval, hasNews)) {
      lock.unlock();
      if (FRuns.Meanwhile)
        FRuns.Meanwhile();
      lock.lock();
    }
    return FEnds.size();
  }

  TEnd TakeEnd() {
    const std::lock_guard lock(FMutex);
    TEnd end = std::move(FEnds.front());
    FEnds.pop_front();
    return end;
  }

  const TParallelRuns& FRuns;
  std::mutex FMutex; // of what stands below
  std::condition_variable FChanged;
  std::size_t FNext = 0;
  std::size_t FWorking = 0; // threads
  std::deque<TEnd> FEnds;
  bool FStopped = false;
  std::vector<std::jthread> FThreads; // the last one: they end before the rest does
};

} // namespace

void RunParallel(const TParallelRuns& runs) {
  TRuns(runs).Run();
}

} // namespace workbench
