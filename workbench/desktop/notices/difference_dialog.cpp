#include "workbench/desktop/notices/difference_dialog.h"

#include "workbench/desktop/dialogs/forms/dialog_place.h"
#include "workbench/desktop/dialogs/forms/row_table.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/explain/change_reasons.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace workbench {

using deployment::TReconcileOutcome;

namespace {

constexpr int ReasonColumn = 4;
constexpr QSize DialogSize(940, 420);

QString Joined(const std::vector<std::string>& sentences) {
  QStringList texts;
  for (const std::string& sentence : sentences)
    texts += EngineText(sentence);
  return texts.join(QStringLiteral("; "));
}

void AppendRows(std::vector<TDifferenceRow>& rows, const std::vector<TChangedEntry>& entries,
                const QString& change, TReconcileOutcome happened, const TChangeReasons& reasons) {
  rows.reserve(rows.size() + entries.size());
  for (const TChangedEntry& entry : entries)
    rows.push_back({change, ToQString(entry.LocalName), ToQString(entry.ClassName),
                    ToQString(entry.Target), Joined(reasons.Of(entry, happened))});
}

} // namespace

std::vector<TDifferenceRow> DifferenceRows(const TTargetChanges& changes,
                                           const TChangeReasons& reasons) {
  std::vector<TDifferenceRow> rows;
  AppendRows(rows, changes.Removed, TDifferenceDialog::tr("Removed"), TReconcileOutcome::Removed,
             reasons);
  AppendRows(rows, changes.Added, TDifferenceDialog::tr("Added"), TReconcileOutcome::Added,
             reasons);
  AppendRows(rows, changes.Modified, TDifferenceDialog::tr("Changed"), TReconcileOutcome::Updated,
             reasons);
  return rows;
}

TDifferenceModel::TDifferenceModel(std::vector<TDifferenceRow> rows, QObject* parent)
    : QAbstractTableModel(parent), FRows(std::move(rows)),
      FTitles({TDifferenceDialog::tr("Change"), TDifferenceDialog::tr("File"),
               TDifferenceDialog::tr("Class"), TDifferenceDialog::tr("For"),
               TDifferenceDialog::tr("Why")}) {}

int TDifferenceModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FRows.size());
}

int TDifferenceModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FTitles.size());
}

QVariant TDifferenceModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
    return {};
  const TDifferenceRow& row = FRows[static_cast<std::size_t>(index.row())];
  switch (index.column()) {
  case 0:
    return row.Change;
  case 1:
    return row.File;
  case 2:
    return row.Class;
  case 3:
    return row.Target;
  default:
    return row.Reason;
  }
}

QVariant TDifferenceModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  return FTitles.value(section);
}

TDifferenceDialog::TDifferenceDialog(const QString& title, std::vector<TDifferenceRow> rows,
                                     QWidget* parent)
    : QDialog(parent), FTable(new QTableView(this)) {
  setWindowTitle(title);
  FTable->setModel(new TDifferenceModel(std::move(rows), FTable));
  FTable->setAccessibleName(title);
  SetUpRowTable(*FTable, ReasonColumn);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QDialogButtonBox::Close)->setText(tr("Close"));
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FTable, 1);
  layout->addWidget(buttons);
  resize(DialogSize);
}

void TDifferenceDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  CenterOn(*this, parentWidget());
}

} // namespace workbench
