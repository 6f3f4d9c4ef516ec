#include "workbench/desktop/controls/wheel_guard.h"

#include <QEvent>

namespace workbench {

bool TWheelGuard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel) {
    event->ignore();
    return true;
  }
  return QObject::eventFilter(watched, event);
}

} // namespace workbench
