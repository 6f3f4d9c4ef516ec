#include "workbench/desktop/controls/event_loop_queue.h"

#include "workbench/controls/main_thread_queue.h"
#include "workbench/desktop/controls/guarded.h"

#include <QThread>
#include <QTimer>
#include <chrono>
#include <utility>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds BusyInterval(20);

} // namespace

TEventLoopQueue::TEventLoopQueue(std::function<bool()> isBusy)
    : FIsBusy(std::move(isBusy)), FReceiver(new QObject) {}

TEventLoopQueue::~TEventLoopQueue() {
  if (FReceiver && FReceiver->thread() == QThread::currentThread())
    Close();
  else if (FReceiver)
    FReceiver->deleteLater(); // the last thread that held the queue ended it
}

void TEventLoopQueue::Post(std::function<void()> action) {
  const std::lock_guard lock(FMutex);
  if (!FReceiver)
    return;
  FWaiting.push_back(std::move(action));
  QMetaObject::invokeMethod(
      FReceiver, [this] { RunWaiting(); }, Qt::QueuedConnection);
}

// One at a time, since an action may close the queue.
void TEventLoopQueue::RunWaiting() {
  std::function<void()> action;
  {
    const std::lock_guard lock(FMutex);
    if (FIsBusy && FIsBusy()) {
      QTimer::singleShot(BusyInterval, FReceiver, [this] { RunWaiting(); });
      return;
    }
    if (FWaiting.empty())
      return;
    action = std::move(FWaiting.front());
    FWaiting.pop_front();
  }
  Guarded(action);
}

void TEventLoopQueue::NameThread(std::string_view name) {
  NameThisThread(name);
}

void TEventLoopQueue::Close() {
  const std::lock_guard lock(FMutex);
  FWaiting.clear();
  delete std::exchange(FReceiver, nullptr);
}

} // namespace workbench
