// Pictures of windows, for documents and checks.
#pragma once

#include <QString>

class QWidget;

namespace workbench {

/// Draws the window into a picture file, as it is once nothing waits to be drawn. False when the
/// file cannot be written.
bool SaveScreenshot(QWidget& window, const QString& file);

} // namespace workbench
