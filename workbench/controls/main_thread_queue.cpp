#include "workbench/controls/main_thread_queue.h"

#include <pthread.h>
#include <string>
#include <utility>

namespace workbench {

void TMainThreadQueue::Post(std::function<void()> action) {
  {
    const std::lock_guard lock(FMutex);
    FActions.push_back(std::move(action));
  }
  FPosted.notify_one();
}

void NameThisThread(std::string_view name) {
  const std::string kept(name.substr(0, 15));
  pthread_setname_np(pthread_self(), kept.c_str());
}

std::vector<std::function<void()>> TMainThreadQueue::Take() {
  const std::lock_guard lock(FMutex);
  return std::exchange(FActions, {});
}

std::size_t TMainThreadQueue::RunPosted() {
  std::size_t ran = 0;
  for (auto actions = Take(); !actions.empty(); actions = Take()) {
    for (const auto& action : actions)
      action();
    ran += actions.size();
  }
  return ran;
}

bool TMainThreadQueue::WaitAndRun(std::chrono::milliseconds limit) {
  {
    std::unique_lock lock(FMutex);
    if (!FPosted.wait_for(lock, limit, [this] { return !FActions.empty(); }))
      return false;
  }
  return RunPosted() > 0;
}

} // namespace workbench
