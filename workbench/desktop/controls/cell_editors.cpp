#include "workbench/desktop/controls/cell_editors.h"

#include "workbench/desktop/text/package_texts.h"
#include "workbench/desktop/text/qt_text.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <algorithm>

namespace workbench {

std::string TCellEditor::GetText() const {
  return FWidget ? ToStdString(WidgetText(*FWidget)) : FText;
}

void TCellEditor::SetText(std::string_view text) {
  FText = text;
  if (FWidget)
    SetWidgetText(*FWidget, ToQString(text));
}

QWidget* TCellEditor::Show(QWidget* parent) {
  FWidget = MakeWidget(parent);
  SetWidgetText(*FWidget, ToQString(FText));
  return FWidget;
}

QWidget* TButtonCellEditor::MakeWidget(QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  edit->setFrame(false);
  edit->setReadOnly(true);
  edit->setAutoFillBackground(true);
  QAction* action = edit->addAction(FIcon, QLineEdit::TrailingPosition);
  action->setToolTip(QCoreApplication::translate("TButtonCellEditor", "Choose (F4)"));
  action->setText(action->toolTip());
  action->setShortcuts({QKeySequence(Qt::Key_F4), QKeySequence(QStringLiteral("Alt+Down"))});
  action->setShortcutContext(Qt::WidgetShortcut);
  QObject::connect(action, &QAction::triggered, edit, [this] {
    if (FOnPress)
      FOnPress();
  });
  return edit;
}

QString TButtonCellEditor::WidgetText(const QWidget& widget) const {
  return static_cast<const QLineEdit&>(widget).text();
}

void TButtonCellEditor::SetWidgetText(QWidget& widget, const QString& text) {
  static_cast<QLineEdit&>(widget).setText(text);
}

QWidget* TComboCellEditor::MakeWidget(QWidget* parent) {
  auto* combo = new QComboBox(parent);
  combo->setEditable(true);
  combo->setInsertPolicy(QComboBox::NoInsert);
  for (const std::string& item : FItems)
    combo->addItem(Shown(item));
  return combo;
}

// A history holds what the user typed; other items are words of the program.
QString TComboCellEditor::Shown(const std::string& item) const {
  return FTaken ? ToQString(item) : PackageText(item);
}

QString TComboCellEditor::WidgetText(const QWidget& widget) const {
  QString text = static_cast<const QComboBox&>(widget).currentText();
  for (const std::string& item : FItems) {
    if (Shown(item) == text)
      return ToQString(item);
  }
  return text;
}

void TComboCellEditor::SetWidgetText(QWidget& widget, const QString& stored) {
  const auto known = std::ranges::find(FItems, stored.toStdString());
  const QString text = known == FItems.end() ? stored : Shown(*known);
  auto& combo = static_cast<QComboBox&>(widget);
  combo.setCurrentIndex(combo.findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive));
  combo.setEditText(text);
  combo.lineEdit()->selectAll();
}

void TComboCellEditor::Taken(std::string_view text) {
  if (FTaken)
    FTaken(text);
}

std::unique_ptr<deployment::ICellEditor>
TCellEditors::CreateButtonEditor(int imageIndex, deployment::TEditorButtonHandler pressed,
                                 deployment::TEditorValidator validate) {
  const auto index = static_cast<std::size_t>(imageIndex);
  return std::make_unique<TButtonCellEditor>(index < FIcons.size() ? FIcons[index] : QIcon(),
                                             std::move(pressed), std::move(validate));
}

std::unique_ptr<deployment::ICellEditor>
TCellEditors::CreateHistoryComboEditor(std::string_view historyName) {
  return std::make_unique<TComboCellEditor>(
      FSettings.ReadHistory(historyName), nullptr,
      [this, name = std::string(historyName)](std::string_view text) {
        if (!text.empty())
          FSettings.AddToHistory(name, text);
      });
}

std::unique_ptr<deployment::ICellEditor>
TCellEditors::CreateComboEditor(std::vector<std::string> items,
                                deployment::TEditorValidator validate) {
  return std::make_unique<TComboCellEditor>(std::move(items), std::move(validate), nullptr);
}

} // namespace workbench
