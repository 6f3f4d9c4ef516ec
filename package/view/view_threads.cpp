#include "package/view/view_threads.h"

#include <utility>

namespace deployment {

void TViewThreads::Run(std::function<void()> body) {
  DropEnded();
  auto ended = std::make_shared<std::atomic<bool>>(false);
  FRunning.push_back({std::thread([body = std::move(body), ended] {
                        body();
                        *ended = true;
                      }),
                      ended});
}

void TViewThreads::DropEnded() {
  std::erase_if(FRunning, [](TRunning& running) {
    if (!*running.Ended)
      return false;
    running.Thread.join();
    return true;
  });
}

void TViewThreads::Join() {
  for (TRunning& running : FRunning)
    running.Thread.join();
  FRunning.clear();
}

} // namespace deployment
