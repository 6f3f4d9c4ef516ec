#include "workbench/desktop/window/row_text.h"

#include <algorithm>

namespace workbench {
namespace {

// A tab or a line break in a text would read as the end of a cell.
QString Cell(QString text) {
  return text.replace(u'\t', u' ').replace(u'\n', u' ').replace(u'\r', u' ');
}

} // namespace

QString SelectedRowsAsText(const QItemSelectionModel& selection) {
  QModelIndexList rows = selection.selectedRows();
  if (rows.isEmpty())
    return {};
  std::sort(rows.begin(), rows.end());
  const QAbstractItemModel& model = *selection.model();
  const int columns = model.columnCount();
  QString text;
  const auto append = [&](const auto& cell) {
    for (int column = 0; column < columns; ++column)
      text += (column > 0 ? QStringLiteral("\t") : QString()) + Cell(cell(column));
    text += u'\n';
  };
  append([&](int column) { return model.headerData(column, Qt::Horizontal).toString(); });
  for (const QModelIndex& row : rows)
    append([&](int column) { return row.siblingAtColumn(column).data().toString(); });
  return text;
}

} // namespace workbench
