// Keeps a box from changing under the mouse wheel.
#pragma once

#include <QObject>

namespace workbench {

/// The wheel over a box would choose another item where somebody only meant to scroll. To be
/// installed as event filter.
class TWheelGuard final : public QObject {
  Q_OBJECT

public:
  using QObject::QObject;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace workbench
