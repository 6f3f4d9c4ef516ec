// The strip above a list: what is looked for, which class, how the rows are grouped, which columns.
#pragma once

#include "workbench/desktop/list/row_list.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;

namespace workbench {

class TFilterBar final : public QWidget {
  Q_OBJECT

public:
  /// The rows may go before the bar does.
  explicit TFilterBar(TRowList& rows);

  /// Takes the keyboard, with what is looked for selected.
  void Focus();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QComboBox* MakeBox(const char* name, const QString& label);
  void MakeText();
  void MakeColumns();
  void Take();
  void Show();
  void ShowClasses();
  void ShowColumns();
  void FocusRows();

  QPointer<TRowList> FRows;
  QLineEdit* FText;
  QComboBox* FClass;
  QComboBox* FGrouping;
  QToolButton* FColumns;
  QMenu* FColumnMenu;
  QLabel* FShown;
  QTimer FTyping;
};

} // namespace workbench
