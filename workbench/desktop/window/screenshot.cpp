#include "workbench/desktop/window/screenshot.h"

#include <QApplication>
#include <QPixmap>
#include <QWidget>

namespace workbench {

bool SaveScreenshot(QWidget& window, const QString& file) {
  for (int i = 0; i < 3; ++i) {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
  }
  return window.grab().save(file);
}

} // namespace workbench
