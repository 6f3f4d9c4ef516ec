#include "workbench/desktop/text/error_text.h"

#include "package/common/errors.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace workbench {

QString ErrorText(const std::exception& error) {
  QString text = EngineText(error.what());
  const auto* input = dynamic_cast<const deployment::TInputError*>(&error);
  if (!input || input->Place().File.empty())
    return text;
  QString place = ToQString(Visible(input->Place().File));
  if (input->Place().Line > 0)
    place += QStringLiteral(":%1").arg(input->Place().Line);
  return place + QStringLiteral(": ") + text;
}

void ShowError(const QString& title, const QString& text, QWidget* parent) {
  QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::NoButton, parent);
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.addButton(QMessageBox::Ok)->setText(QCoreApplication::translate("ErrorText", "OK"));
  box.exec();
}

} // namespace workbench
