// The commands of the view in the menus of an IDE.
#pragma once

class QAction;

namespace workbench {

/// IDEs want actions of their own for each window: the mirror looks like the command and gives it,
/// as long as both live.
void MirrorCommand(QAction& command, QAction& mirror);

} // namespace workbench
