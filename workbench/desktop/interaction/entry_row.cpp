#include "workbench/desktop/interaction/entry_row.h"

#include "package/host/api/file_columns.h"
#include "workbench/desktop/controls/form_controls.h"

#include <QAbstractItemModel>

namespace workbench {
namespace {

// The list has directory and name of an entry in columns of their own, and perhaps the rows in
// groups.
QModelIndex FindEntry(const QAbstractItemModel& model, const QString& localName) {
  const QModelIndexList found =
      model.match(model.index(0, deployment::file_column::LocalName), Qt::DisplayRole,
                  localName.mid(localName.lastIndexOf(QLatin1Char('\\')) + 1), -1,
                  Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
  for (const QModelIndex& index : found) {
    QString path = index.siblingAtColumn(deployment::file_column::LocalPath).data().toString();
    if (!path.isEmpty() && !path.endsWith(QLatin1Char('\\')))
      path += QLatin1Char('\\');
    if (path + index.data().toString() == localName)
      return index;
  }
  return found.isEmpty() ? QModelIndex() : found.front();
}

} // namespace

bool GoToEntry(const TFormControls& controls, const QString& localName) {
  if (!controls.Tree())
    return false;
  TTreeView& view = controls.Tree()->View();
  const QModelIndex found = FindEntry(*view.model(), localName);
  if (!found.isValid())
    return false;
  view.setCurrentIndex(found);
  view.scrollTo(found, QAbstractItemView::PositionAtCenter);
  view.setFocus();
  return true;
}

} // namespace workbench
