#include "workbench/ide/view/command_mirror.h"

#include <QAction>

namespace workbench {

void MirrorCommand(QAction& command, QAction& mirror) {
  const auto follow = [&command, &mirror] {
    mirror.setText(command.text());
    mirror.setIcon(command.icon());
    mirror.setEnabled(command.isEnabled());
  };
  follow();
  QObject::connect(&command, &QAction::changed, &mirror, follow);
  QObject::connect(&mirror, &QAction::triggered, &command, &QAction::trigger);
}

} // namespace workbench
