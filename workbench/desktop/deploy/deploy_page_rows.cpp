// What the page says about its rows, and what is done to those that are selected.
#include "workbench/desktop/deploy/deploy_page.h"
#include "workbench/desktop/deploy/difference_dialog.h"
#include "workbench/desktop/deploy/options_button.h"
#include "workbench/desktop/text/deploy_words.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QComboBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>
#include <algorithm>

namespace workbench {
namespace {

using TPhase = TDeployRowsModel::TPhase;

constexpr std::size_t WarningsShown = 5;

std::size_t CountOf(const TDeployRowsModel::TTotals& totals, TRowKind kind) {
  return totals.Counts[static_cast<std::size_t>(kind)];
}

// Links have no lines, and what is large is no reading for a person.
bool CanCompare(const TDeployRow& row) {
  return row.Link.empty() && std::max(row.SizeHere, row.SizeThere) <= LargestCompared;
}

} // namespace

void TDeployPage::ShowPhase() {
  const bool isRunning = IsRunning();
  const auto totals = FModel->Totals();
  const bool hasEnded = !isRunning && FModel->Phase() == TPhase::Ended;
  const bool hasConflicts = FIsAsking && CountOf(totals, TRowKind::Conflict) > 0;
  FCancel->setVisible(isRunning);
  FCancel->setEnabled(isRunning);
  FDeploy->setVisible(FIsAsking);
  FClose->setEnabled(!isRunning);
  FOptions->setEnabled(!isRunning);
  FTake->setVisible(hasConflicts);
  FKeep->setVisible(hasConflicts);
  FRetry->setVisible(hasEnded && (CountOf(totals, TRowKind::Failed) > 0 ||
                                  CountOf(totals, TRowKind::Cancelled) > 0));
  FDifference->setVisible(hasConflicts);
  FSkip->setVisible(hasEnded && CountOf(totals, TRowKind::Failed) > 0);
  const bool lacksConnection = !isRunning && !FIsAsking && FReport.End == TDeployEnd::NoConnection;
  FNewProfile->setVisible(lacksConnection);
  FProfiles->setVisible(lacksConnection);
  FGoTo->setVisible(!isRunning && FModel->Count() > 0);
  FFilter->setEnabled(!isRunning);
  FillFilter();
  if (!isRunning) {
    ShowSummary();
    if (FModel->rowCount() > 0)
      FView->setCurrentIndex(FModel->index(0, 0));
  }
  UpdateRowButtons();
}

void TDeployPage::FillFilter() {
  const auto totals = FModel->Totals();
  FFilter->clear();
  FFilter->addItem(tr("All (%1)").arg(FModel->Count()));
  for (std::size_t i = 0; i < RowKindCount; ++i) {
    if (totals.Counts[i] > 0)
      FFilter->addItem(
          QStringLiteral("%1 (%2)")
              .arg(KindWord(static_cast<TRowKind>(i), FModel->Phase() != TPhase::Ended))
              .arg(totals.Counts[i]),
          static_cast<int>(i));
  }
}

void TDeployPage::ShowSummary() {
  if (!FIsAsking)
    return FSummary->setText(FSummaryText);
  const auto totals = FModel->Totals();
  QStringList parts;
  if (FIsOther)
    parts += tr("Files changed since this plan was looked at. Nothing was copied.");
  if (totals.Undecided > 0)
    parts += tr("Changed by others on the target: %1 without a choice, which will be left alone.")
                 .arg(totals.Undecided);
  const bool doesNothing =
      totals.ToCopy == 0 && totals.ToRemove == 0 && CountOf(totals, TRowKind::Mode) == 0;
  parts += doesNothing ? tr("There is nothing to copy.")
                       : tr("To copy: %1 (%2).").arg(totals.ToCopy).arg(SizeText(totals.Bytes));
  if (totals.ToRemove > 0)
    parts += tr("To remove: %1.").arg(totals.ToRemove);
  if (totals.LeftOut > 0)
    parts += tr("Left out: %1.").arg(totals.LeftOut);
  parts += tr("The same: %1.").arg(CountOf(totals, TRowKind::Same));
  if (!FReport.Planned.empty())
    parts += tr("Commands that run: %1.").arg(FReport.Planned.size());
  QString text = parts.join(QLatin1Char(' '));
  for (std::size_t i = 0; i < std::min(FReport.Warnings.size(), WarningsShown); ++i)
    text += QStringLiteral("\n• ") + EngineText(FReport.Warnings[i]);
  if (FReport.Warnings.size() > WarningsShown)
    text += QLatin1Char('\n') + tr("and %1 more").arg(FReport.Warnings.size() - WarningsShown);
  FSummary->setText(text);
}

std::vector<int> TDeployPage::SelectedRows() const {
  std::vector<int> rows;
  const QModelIndexList selected = FView->selectionModel()->selectedRows();
  rows.reserve(static_cast<std::size_t>(selected.size()));
  for (const QModelIndex& index : selected)
    rows.push_back(index.row());
  std::sort(rows.begin(), rows.end());
  return rows;
}

void TDeployPage::UpdateRowButtons() {
  const QModelIndex current = FView->currentIndex();
  const bool hasRow = current.isValid() && FView->selectionModel()->hasSelection();
  const bool isConflict = hasRow && KindOf(FModel->Row(current.row()).Row) == TRowKind::Conflict &&
                          HasTick(FModel->Row(current.row()));
  FTake->setEnabled(isConflict);
  FKeep->setEnabled(isConflict);
  FDifference->setEnabled(isConflict && CanCompare(FModel->Row(current.row()).Row));
  FSkip->setEnabled(hasRow && KindOf(FModel->Row(current.row()).Row) == TRowKind::Failed);
  FGoTo->setEnabled(hasRow);
}

// Of what is selected, the conflicts: other rows have their boxes.
void TDeployPage::TickSelected(bool on) {
  std::vector<int> rows = SelectedRows();
  rows.erase(std::remove_if(
                 rows.begin(), rows.end(),
                 [this](int row) { return KindOf(FModel->Row(row).Row) != TRowKind::Conflict; }),
             rows.end());
  FModel->SetTicks(rows, on);
}

// A file that is skipped is left out when the run is repeated.
void TDeployPage::SkipSelected() {
  const std::vector<int> rows = SelectedRows();
  for (const int row : rows) {
    if (KindOf(FModel->Row(row).Row) == TRowKind::Failed)
      FChoices[FModel->Row(row).Row.RemoteFile] = {};
  }
  FModel->Skip(rows);
  FRetry->setFocus();
}

void TDeployPage::Explain(const QModelIndex& index) {
  const TDeployRow& row = FModel->Row(index.row()).Row;
  if (FModel->Phase() != TPhase::Ended || KindOf(row) != TRowKind::Failed)
    return;
  QMessageBox box(this);
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(tr("Failed File"));
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setText(
      tr("%1 was not deployed: %2").arg(ToQString(Visible(row.LocalName)), EngineText(row.Error)));
  box.setInformativeText(
      tr("It belongs to %1.\n\n%2").arg(ToQString(Visible(row.RemoteFile)), FailureAdvice(row)));
  box.addButton(QMessageBox::Ok)->setText(tr("OK"));
  box.exec();
}

QString TDeployPage::AsText() const {
  QString text = FTitle->text() + QLatin1Char('\n') + FSummary->text() + QLatin1Char('\n');
  for (int row = 0; row < FModel->rowCount(); ++row) {
    QStringList cells;
    for (const int column : {TDeployRowsModel::Action, TDeployRowsModel::File,
                             TDeployRowsModel::Target, TDeployRowsModel::Reason})
      cells += FModel->index(row, column).data().toString();
    text += cells.join(QLatin1Char('\t')).trimmed() + QLatin1Char('\n');
  }
  return text;
}

void TDeployPage::FocusRows() {
  FView->setFocus();
}

} // namespace workbench
