#include "workbench/desktop/controls/guarded.h"

#include "workbench/desktop/text/error_text.h"

#include <QApplication>
#include <QTimer>

namespace workbench {

// The text is made at once: the error may be an object of the package, which can be gone later.
void ReportError(const std::exception& error) {
  QTimer::singleShot(0, qApp, [text = ErrorText(error)] {
    ShowError(QApplication::applicationName(), text, QApplication::activeWindow());
  });
}

} // namespace workbench
