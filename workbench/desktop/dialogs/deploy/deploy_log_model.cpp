#include "workbench/desktop/dialogs/deploy/deploy_log_model.h"

#include "workbench/desktop/text/deploy_words.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QFont>
#include <algorithm>

namespace workbench {

void TDeployLogModel::SetWaiting(std::vector<TDeployRow> rows) {
  Reset(std::move(rows), /*done=*/false);
}

void TDeployLogModel::SetDone(std::vector<TDeployRow> rows) {
  Reset(std::move(rows), /*done=*/true);
}

void TDeployLogModel::Reset(std::vector<TDeployRow> rows, bool done) {
  beginResetModel();
  FRows = std::move(rows);
  FDone.assign(FRows.size(), done);
  FDoneCount = done ? FRows.size() : 0;
  endResetModel();
}

// One signal for all of them: a signal for each would cost more than the files themselves.
void TDeployLogModel::Finish(const std::vector<TChange>& changes) {
  std::size_t first = FRows.size();
  std::size_t last = 0;
  for (const auto& [row, value] : changes) {
    if (row >= FRows.size())
      continue;
    FDoneCount += FDone[row] ? 0 : 1;
    FDone[row] = true;
    FRows[row] = value;
    first = std::min(first, row);
    last = std::max(last, row);
  }
  if (first <= last && first < FRows.size())
    emit dataChanged(index(static_cast<int>(first), 0),
                     index(static_cast<int>(last), ColumnCount - 1));
}

int TDeployLogModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FRows.size());
}

int TDeployLogModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant TDeployLogModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const auto row = static_cast<std::size_t>(index.row());
  switch (role) {
  case Qt::DisplayRole:
    return Text(row, index.column());
  case Qt::ToolTipRole:
    return Text(row, index.column()).toHtmlEscaped();
  case Qt::TextAlignmentRole:
    return index.column() == Size ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
  case Qt::FontRole: {
    QFont font;
    font.setBold(HasFailed(row));
    return HasFailed(row) ? QVariant(font) : QVariant();
  }
  case FailedRole:
    return HasFailed(row);
  default:
    return {};
  }
}

QString TDeployLogModel::Text(std::size_t row, int column) const {
  const TDeployRow& file = FRows[row];
  switch (column) {
  case File:
    return ToQString(Visible(file.LocalName));
  case Result:
    return FDone[row] ? ActionWord(file.Action) : tr("waiting");
  case Size:
    return file.Bytes == 0 ? QString() : SizeText(file.Bytes);
  case Target:
    return ToQString(Visible(file.RemoteFile));
  case Reason:
    return ToQString(Visible(file.Error));
  default:
    return {};
  }
}

QVariant TDeployLogModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  switch (section) {
  case File:
    return tr("File");
  case Result:
    return tr("Result");
  case Size:
    return tr("Size");
  case Target:
    return tr("On the target");
  case Reason:
    return tr("Reason");
  default:
    return {};
  }
}

void TDeployLogFilter::SetFailedOnly(bool on) {
  FFailedOnly = on;
  invalidateFilter();
}

bool TDeployLogFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  return !FFailedOnly ||
         sourceModel()->index(row, 0, parent).data(TDeployLogModel::FailedRole).toBool();
}

} // namespace workbench
