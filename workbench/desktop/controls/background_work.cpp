#include "workbench/desktop/controls/background_work.h"

#include <QApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <exception>
#include <thread>

namespace workbench {
namespace {

constexpr int BusyCursorDelay = 300;

bool IsInput(QEvent::Type type) {
  switch (type) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::Shortcut:
  case QEvent::ShortcutOverride:
  case QEvent::ContextMenu:
  case QEvent::DragEnter:
  case QEvent::Drop:
  case QEvent::TouchBegin:
    return true;
  default:
    return false;
  }
}

} // namespace

// Input is blocked as long as it lives.
struct TBackgroundWork::TBusy {
  explicit TBusy(TBackgroundWork& background) : Background(background) {
    if (Background.FDepth++ > 0)
      return;
    qApp->installEventFilter(&Background);
    emit Background.BusyChanged(true);
  }
  ~TBusy() {
    if (--Background.FDepth > 0)
      return;
    qApp->removeEventFilter(&Background);
    emit Background.BusyChanged(false);
  }
  TBusy(const TBusy&) = delete;
  TBusy& operator=(const TBusy&) = delete;

  TBackgroundWork& Background;
};

TBackgroundWork::TBackgroundWork(QWidget& window) : FWindow(window) {}

void TBackgroundWork::Run(const std::function<void()>& work) {
  if (QThread::currentThread() != thread())
    return work();
  const TBusy busy(*this);
  std::exception_ptr error;
  QEventLoop loop;
  std::thread worker([&] {
    try {
      work();
    } catch (...) {
      error = std::current_exception();
    }
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  bool hasCursor = false;
  QTimer patience;
  patience.setSingleShot(true);
  connect(&patience, &QTimer::timeout, &patience, [&hasCursor] {
    QApplication::setOverrideCursor(Qt::BusyCursor);
    hasCursor = true;
  });
  patience.start(BusyCursorDelay);
  // A loop that the program's end broke off leaves the rest to the wait for the thread.
  loop.exec();
  worker.join();
  if (hasCursor)
    QApplication::restoreOverrideCursor();
  if (error)
    std::rethrow_exception(error);
}

void TBackgroundWork::Pause() {
  if (QThread::currentThread() != thread())
    return;
  const TBusy busy(*this);
  QCoreApplication::processEvents();
}

bool TBackgroundWork::MayReceive(const QObject& receiver) const {
  const auto* widget = qobject_cast<const QWidget*>(&receiver);
  if (!widget || (widget != &FWindow && !FWindow.isAncestorOf(widget)))
    return true;
  return std::any_of(FAllowed.begin(), FAllowed.end(), [widget](const QPointer<QWidget>& allowed) {
    return allowed && (allowed == widget || allowed->isAncestorOf(widget));
  });
}

bool TBackgroundWork::eventFilter(QObject* watched, QEvent* event) {
  if (IsInput(event->type()) && !MayReceive(*watched))
    return true;
  return QObject::eventFilter(watched, event);
}

} // namespace workbench
