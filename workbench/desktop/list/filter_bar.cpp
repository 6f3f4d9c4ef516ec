#include "workbench/desktop/list/filter_bar.h"

#include "workbench/desktop/controls/wheel_guard.h"
#include "workbench/desktop/text/class_words.h"
#include "workbench/desktop/text/qt_text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>
#include <utility>
#include <vector>

namespace workbench {
namespace {

constexpr int TypingPause = 60; // milliseconds after a key until the rows follow
constexpr int MostClassLetters = 24;

} // namespace

TFilterBar::TFilterBar(TRowList& rows)
    : FRows(&rows), FText(new QLineEdit(this)), FClass(MakeBox("filterClass", tr("Class"))),
      FGrouping(MakeBox("grouping", tr("Group by"))), FColumns(new QToolButton(this)),
      FColumnMenu(new QMenu(this)), FShown(new QLabel(this)) {
  constexpr int Margin = 4;
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(Margin, 0, Margin, Margin);
  layout->addWidget(FText, 1);
  layout->addWidget(FClass);
  layout->addWidget(FGrouping);
  layout->addWidget(FColumns);
  layout->addWidget(FShown);
  FShown->setObjectName("shownRows");
  MakeText();
  MakeColumns();
  FGrouping->addItem(tr("No groups"), static_cast<int>(TGrouping::None));
  FGrouping->addItem(tr("By folder"), static_cast<int>(TGrouping::Folder));
  FGrouping->addItem(tr("By class"), static_cast<int>(TGrouping::Class));
  FGrouping->addItem(tr("By state"), static_cast<int>(TGrouping::State));
  connect(FGrouping, qOverload<int>(&QComboBox::activated), this, [this] {
    if (FRows)
      FRows->SetGrouping(static_cast<TGrouping>(FGrouping->currentData().toInt()));
  });
  connect(FClass, qOverload<int>(&QComboBox::activated), this, &TFilterBar::Take);
  connect(FRows, &TRowList::Changed, this, &TFilterBar::Show);
  Show();
}

QComboBox* TFilterBar::MakeBox(const char* name, const QString& label) {
  auto* box = new QComboBox(this);
  box->setObjectName(name);
  box->setAccessibleName(label);
  box->setToolTip(label);
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(12);
  box->setFocusPolicy(Qt::TabFocus);
  box->installEventFilter(new TWheelGuard(box));
  return box;
}

void TFilterBar::MakeText() {
  FText->setObjectName("filter");
  FText->setAccessibleName(tr("Filter"));
  FText->setPlaceholderText(tr("Filter: words of paths, names, classes or states (Ctrl+F)"));
  FText->setClearButtonEnabled(true);
  FText->installEventFilter(this);
  FTyping.setSingleShot(true);
  FTyping.setInterval(TypingPause);
  connect(&FTyping, &QTimer::timeout, this, &TFilterBar::Take);
  connect(FText, &QLineEdit::textChanged, &FTyping, qOverload<>(&QTimer::start));
}

void TFilterBar::MakeColumns() {
  FColumns->setObjectName("columns");
  FColumns->setText(tr("Columns"));
  FColumns->setToolTip(tr("Choose the columns of the list"));
  FColumns->setPopupMode(QToolButton::InstantPopup);
  FColumns->setFocusPolicy(Qt::TabFocus);
  FColumns->setMenu(FColumnMenu);
  connect(FColumnMenu, &QMenu::aboutToShow, this, &TFilterBar::ShowColumns);
}

void TFilterBar::ShowColumns() {
  FColumnMenu->clear();
  if (!FRows)
    return;
  QHeaderView* header = FRows->Tree().View().header();
  const auto& model = FRows->Tree().Model();
  const int columns = model.columnCount();
  // The first one has the boxes.
  for (int column = 1; column < columns; ++column) {
    QAction* action = FColumnMenu->addAction(
        model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    action->setCheckable(true);
    action->setChecked(!header->isSectionHidden(column));
    connect(action, &QAction::toggled, header,
            [header, column](bool shown) { header->setSectionHidden(column, !shown); });
  }
}

void TFilterBar::Focus() {
  FText->setFocus(Qt::ShortcutFocusReason);
  FText->selectAll();
}

void TFilterBar::FocusRows() {
  if (FRows)
    FRows->Tree().View().setFocus();
}

// Down and Enter lead from the words to the rows, Escape takes the words back.
bool TFilterBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched != FText || !FRows)
    return QWidget::eventFilter(watched, event);
  if (event->type() == QEvent::FocusIn) {
    if (TRowIndex* index = FRows->Index())
      index->ReadTexts();
  } else if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
      FText->clear();
      Take();
      FocusRows();
      return true;
    }
    if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
      Take();
      FocusRows();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void TFilterBar::Take() {
  FTyping.stop();
  if (!FRows)
    return;
  TRowFilter filter = FRows->Filter();
  filter.Text = FText->text();
  filter.Class = ToStdString(FClass->currentData().toString());
  FRows->SetFilter(filter);
}

void TFilterBar::Show() {
  if (!FRows)
    return;
  TRowIndex* index = FRows->Index();
  if (!index)
    return;
  ShowClasses();
  const auto all = static_cast<int>(index->RowCount());
  FShown->setText(FRows->Filter().IsEmpty()
                      ? QString()
                      : tr("%1 of %n file(s)", nullptr, all).arg(FRows->ShownCount()));
  const int group = FGrouping->findData(static_cast<int>(FRows->Grouping()));
  FGrouping->setCurrentIndex(group);
}

void TFilterBar::ShowClasses() {
  std::vector<std::pair<QString, QString>> classes;
  for (const std::string& name : FRows->Index()->Classes())
    classes.emplace_back(ClassWords(name), ToQString(name));
  std::ranges::sort(classes);
  if (FClass->count() == static_cast<int>(classes.size()) + 1) {
    bool isSame = true;
    for (int i = 1; i < FClass->count() && isSame; ++i)
      isSame = FClass->itemData(i).toString() == classes[static_cast<std::size_t>(i - 1)].second;
    if (isSame)
      return;
  }
  const QSignalBlocker quiet(FClass);
  const QString wanted = ToQString(FRows->Filter().Class);
  FClass->clear();
  FClass->addItem(tr("All classes"), QString());
  for (const auto& [words, name] : classes) {
    const QString text =
        words.size() > MostClassLetters ? words.left(MostClassLetters - 1) + QChar(0x2026) : words;
    FClass->addItem(text, name);
    FClass->setItemData(FClass->count() - 1, words, Qt::ToolTipRole);
  }
  const int row = FClass->findData(wanted);
  if (row < 0 && !wanted.isEmpty()) {
    FClass->addItem(ClassWords(FRows->Filter().Class), wanted);
    FClass->setCurrentIndex(FClass->count() - 1);
  } else {
    FClass->setCurrentIndex(std::max(row, 0));
  }
}

} // namespace workbench
