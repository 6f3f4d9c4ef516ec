#include "workbench/desktop/dialogs/forms/feature_tree_model.h"

#include "workbench/desktop/text/qt_text.h"

namespace workbench {

using deployment::TCheckState;
using deployment::TFeatureNode;
using deployment::TNodeId;

TFeatureTreeModel::TFeatureTreeModel(deployment::IFeatureFileForm& form, QObject* parent)
    : QAbstractItemModel(parent), FForm(form) {
  AddPlaces(0);
}

void TFeatureTreeModel::AddPlaces(TNodeId parent) {
  int row = 0;
  for (const TNodeId node : FForm.GetChildren(parent)) {
    FPlaces[node] = {parent, row++};
    AddPlaces(node);
  }
}

TNodeId TFeatureTreeModel::NodeOf(const QModelIndex& index) {
  return index.isValid() ? static_cast<TNodeId>(index.internalId()) : 0;
}

QModelIndex TFeatureTreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent))
    return {};
  const TNodeId node = FForm.GetChildren(NodeOf(parent))[static_cast<std::size_t>(row)];
  return createIndex(row, column, static_cast<quintptr>(node));
}

QModelIndex TFeatureTreeModel::parent(const QModelIndex& child) const {
  if (!child.isValid())
    return {};
  const TNodeId parent = FPlaces.at(NodeOf(child)).Parent;
  return parent == 0 ? QModelIndex()
                     : createIndex(FPlaces.at(parent).Row, 0, static_cast<quintptr>(parent));
}

int TFeatureTreeModel::rowCount(const QModelIndex& parent) const {
  return parent.column() > 0 ? 0 : static_cast<int>(FForm.GetChildren(NodeOf(parent)).size());
}

int TFeatureTreeModel::columnCount(const QModelIndex& /*parent*/) const {
  return 1;
}

QVariant TFeatureTreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const TNodeId node = NodeOf(index);
  switch (role) {
  case Qt::DisplayRole:
    return ToQString(FForm.GetText(node));
  case Qt::ToolTipRole:
    return ToolTip(node);
  case Qt::CheckStateRole:
    switch (FForm.GetCheckState(node)) {
    case TCheckState::Unchecked:
      return Qt::Unchecked;
    case TCheckState::Checked:
      return Qt::Checked;
    case TCheckState::Mixed:
      return Qt::PartiallyChecked;
    }
    return {};
  default:
    return {};
  }
}

// Only files go to a directory. The text stands in HTML so that long paths are wrapped.
QString TFeatureTreeModel::ToolTip(TNodeId node) const {
  const TFeatureNode& data = FForm.GetNode(node);
  if (data.LocalName.empty())
    return {};
  const QString directory =
      data.RemoteDir.empty() ? tr("the base directory") : ToQString(data.RemoteDir).toHtmlEscaped();
  return QStringLiteral("<p>%1</p><p>%2</p>")
      .arg(ToQString(data.LocalName).toHtmlEscaped(),
           tr("%1: to %2").arg(ToQString(data.Platform).toHtmlEscaped(), directory));
}

bool TFeatureTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::CheckStateRole)
    return false;
  FForm.SetChecked(NodeOf(index), value.toInt() == Qt::Checked);
  for (QModelIndex above = index; above.isValid(); above = above.parent())
    emit dataChanged(above, above, {Qt::CheckStateRole});
  TellBelow(index);
  return true;
}

void TFeatureTreeModel::TellBelow(const QModelIndex& parent) {
  const int rows = rowCount(parent);
  if (rows == 0)
    return;
  emit dataChanged(index(0, 0, parent), index(rows - 1, 0, parent), {Qt::CheckStateRole});
  for (int row = 0; row < rows; ++row)
    TellBelow(index(row, 0, parent));
}

Qt::ItemFlags TFeatureTreeModel::flags(const QModelIndex& index) const {
  return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
                         : Qt::NoItemFlags;
}

} // namespace workbench
