#include "workbench/desktop/dialogs/forms/dialog_place.h"

#include <QDialog>
#include <QScreen>

namespace workbench {

void CenterOn(QDialog& dialog, const QWidget* parent) {
  QRect place = parent ? parent->window()->frameGeometry() : QRect();
  if (place.isEmpty() && dialog.screen())
    place = dialog.screen()->availableGeometry();
  dialog.move(place.center() - QRect(QPoint(), dialog.frameGeometry().size()).center());
}

} // namespace workbench
