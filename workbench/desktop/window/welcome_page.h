// What the window shows while no project is open.
#pragma once

#include <QWidget>

namespace workbench {

class TWelcomePage final : public QWidget {
  Q_OBJECT

public:
  explicit TWelcomePage(QWidget* parent);

signals:
  void OpenWanted();
};

} // namespace workbench
