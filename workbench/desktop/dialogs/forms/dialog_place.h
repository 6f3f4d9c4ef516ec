// Where dialogs stand on the screen.
#pragma once

class QDialog;
class QWidget;

namespace workbench {

/// Moves the dialog, which must be shown already, to the middle of the parent's window; without
/// one, or where that has no place yet, of the screen.
void CenterOn(QDialog& dialog, const QWidget* parent);

} // namespace workbench
