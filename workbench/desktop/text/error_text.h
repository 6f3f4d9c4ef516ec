// Errors as sentences of the window.
#pragma once

#include <QString>
#include <exception>

class QWidget;

namespace workbench {

/// What the error says, with the file and the line that it names.
QString ErrorText(const std::exception& error);

/// Shows the text, as it is, until the user has read it.
void ShowError(const QString& title, const QString& text, QWidget* parent);

} // namespace workbench
