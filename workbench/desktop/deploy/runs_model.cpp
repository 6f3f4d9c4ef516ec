#include "workbench/desktop/deploy/runs_model.h"

#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QDateTime>
#include <QLocale>
#include <utility>

namespace workbench {
namespace {

// Numbers and their titles stand right.
QVariant AlignmentOf(int column) {
  return column >= TRunsModel::Copied && column <= TRunsModel::Failed
             ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
             : QVariant();
}

} // namespace

void TRunsModel::Show(std::vector<TRecordedRun> runs) {
  beginResetModel();
  FRuns = std::move(runs);
  endResetModel();
}

int TRunsModel::StepsTo(int row) const {
  int steps = 0;
  for (int i = 0; i <= row; ++i)
    steps += CanUndo(i) ? 1 : 0;
  return steps;
}

int TRunsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FRuns.size());
}

int TRunsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant TRunsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  switch (role) {
  case Qt::DisplayRole:
    return Text(Run(index.row()), index.column());
  case Qt::ToolTipRole:
    return Text(Run(index.row()), index.column()).toHtmlEscaped();
  case Qt::TextAlignmentRole:
    return AlignmentOf(index.column());
  default:
    return {};
  }
}

// What the record says comes from the target.
QString TRunsModel::Text(const TRecordedRun& run, int column) const {
  switch (column) {
  case When: {
    const QDateTime at = QDateTime::fromString(ToQString(run.At), Qt::ISODate);
    return at.isValid() ? QLocale().toString(at.toLocalTime(), QLocale::ShortFormat)
                        : ToQString(Visible(run.At));
  }
  case Who:
    return tr("%1 on %2").arg(ToQString(Visible(run.By)), ToQString(Visible(run.Machine)));
  case Result:
    if (run.Result == TRunResult::Undone)
      return tr("taken back");
    return run.Result == TRunResult::Done ? tr("done") : tr("partly");
  case Copied:
    return QString::number(run.Copied);
  case Removed:
    return QString::number(run.Removed);
  case Failed:
    return QString::number(run.Failed);
  case Revision:
    return ToQString(Visible(run.Revision));
  default:
    return {};
  }
}

QVariant TRunsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
    return AlignmentOf(section);
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  switch (section) {
  case When:
    return tr("When");
  case Who:
    return tr("By");
  case Result:
    return tr("Result");
  case Copied:
    return tr("Copied");
  case Removed:
    return tr("Removed");
  case Failed:
    return tr("Failed");
  case Revision:
    return tr("Revision");
  default:
    return {};
  }
}

} // namespace workbench
