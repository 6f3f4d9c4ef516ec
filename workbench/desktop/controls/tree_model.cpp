#include "workbench/desktop/controls/tree_model.h"

#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/text/package_texts.h"
#include "workbench/desktop/text/qt_text.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <utility>

namespace workbench {

using deployment::TCheckState;
using deployment::TCheckType;
using deployment::TNodeId;

namespace {

Qt::CheckState ToQt(TCheckState state) {
  switch (state) {
  case TCheckState::Checked:
    return Qt::Checked;
  case TCheckState::Mixed:
    return Qt::PartiallyChecked;
  case TCheckState::Unchecked:
    break;
  }
  return Qt::Unchecked;
}

// Legible on light and dark, which the palette's own colour for disabled text is not.
QColor DimColor() {
  return QGuiApplication::palette().color(QPalette::Active, QPalette::PlaceholderText);
}

} // namespace

TTreeModel::TTreeModel(const deployment::TTreeOptions& options,
                       deployment::TVirtualTreeEvents events, QObject* parent)
    : QAbstractItemModel(parent), FOptions(options), FEvents(std::move(events)),
      FNodes(FOptions, FEvents) {
  ReadNodes();
}

void TTreeModel::NodesChanged() {
  FNodesChanged = true;
  emit Changed();
}

void TTreeModel::CheckChanged(TNodeId node) {
  if (!FNodesChanged)
    FChanged.push_back(node);
  emit Changed();
}

void TTreeModel::ColumnsChanged() {
  beginResetModel();
  FTitles.clear();
  for (const deployment::TTreeColumn& column : FNodes.Columns())
    FTitles += PackageText(column.Title);
  endResetModel();
}

void TTreeModel::Flush() {
  const std::vector<TNodeId> changed = std::exchange(FChanged, {});
  if (std::exchange(FNodesChanged, false)) {
    beginResetModel();
    ReadNodes();
    endResetModel();
    return;
  }
  // One range for each parent; views look at what they show of it.
  std::unordered_map<TNodeId, std::pair<int, int>> ranges;
  for (const TNodeId node : changed) {
    if (node >= FRows.size() || FRows[node] < 0)
      continue;
    const auto [range, isNew] = ranges.try_emplace(ParentOf(node), FRows[node], FRows[node]);
    range->second = {std::min(range->second.first, FRows[node]),
                     std::max(range->second.second, FRows[node])};
  }
  for (const auto& [parent, range] : ranges) {
    const QModelIndex above = IndexOf(parent);
    emit dataChanged(index(range.first, 0, above), index(range.second, columnCount() - 1, above));
  }
}

void TTreeModel::ReadNodes() {
  FChildren.clear();
  FParents.clear();
  FRows.assign(FNodes.EndOfNodes(), -1);
  FFlags.assign(FNodes.EndOfNodes(), Qt::NoItemFlags);
  ReadChildren(0, FTop);
}

void TTreeModel::ReadChildren(TNodeId parent, TChildren& children) {
  children = FNodes.GetChildren(parent);
  int row = 0;
  for (const TNodeId child : children) {
    FRows[child] = row++;
    FFlags[child] = ReadFlags(child);
    if (parent != 0)
      FParents[child] = parent;
  }
  for (const TNodeId child : children) {
    if (!(FFlags[child] & Qt::ItemNeverHasChildren))
      ReadChildren(child, FChildren[child]); // which leaves the other lists where they are
  }
}

// A view asks for those of all rows when it lays them out.
Qt::ItemFlags TTreeModel::ReadFlags(TNodeId node) const {
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (!FNodes.HasChildren(node))
    flags |= Qt::ItemNeverHasChildren;
  if (FNodes.GetCheckType(node) != TCheckType::None)
    flags |= Qt::ItemIsUserCheckable;
  return flags;
}

TNodeId TTreeModel::ParentOf(TNodeId node) const {
  if (FParents.empty())
    return 0;
  const auto found = FParents.find(node);
  return found == FParents.end() ? 0 : found->second;
}

const TTreeModel::TChildren* TTreeModel::ChildrenOf(TNodeId parent) const {
  if (parent == 0)
    return &FTop;
  if (FChildren.empty())
    return nullptr;
  const auto found = FChildren.find(parent);
  return found == FChildren.end() ? nullptr : &found->second;
}

TNodeId TTreeModel::NodeOf(const QModelIndex& index) const {
  return index.isValid() ? static_cast<TNodeId>(index.internalId()) : 0;
}

QModelIndex TTreeModel::IndexOf(TNodeId node, int column) const {
  return node == 0 || node >= FRows.size() || FRows[node] < 0
             ? QModelIndex()
             : createIndex(FRows[node], column, static_cast<quintptr>(node));
}

QModelIndex TTreeModel::index(int row, int column, const QModelIndex& parent) const {
  const TChildren* children = ChildrenOf(NodeOf(parent));
  if (!children || row < 0 || static_cast<std::size_t>(row) >= children->size() || column < 0 ||
      column >= columnCount() || parent.column() > 0)
    return {};
  return createIndex(row, column,
                     static_cast<quintptr>((*children)[static_cast<std::size_t>(row)]));
}

QModelIndex TTreeModel::parent(const QModelIndex& child) const {
  return IndexOf(ParentOf(NodeOf(child)));
}

int TTreeModel::rowCount(const QModelIndex& parent) const {
  const TChildren* children = parent.column() > 0 ? nullptr : ChildrenOf(NodeOf(parent));
  return children ? static_cast<int>(children->size()) : 0;
}

int TTreeModel::columnCount(const QModelIndex& /*parent*/) const {
  return static_cast<int>(FNodes.Columns().size());
}

std::string TTreeModel::TextOf(TNodeId node, int column) const {
  return FEvents.OnGetText ? FNodes.Text(node, column) : std::string();
}

QVariant TTreeModel::Color(TNodeId node, int column) const {
  return FNodes.TextColor(node, column) == deployment::TTextColor::ButtonShadow
             ? QVariant(DimColor())
             : QVariant();
}

QVariant TTreeModel::data(const QModelIndex& index, int role) const {
  const TNodeId node = NodeOf(index);
  // A node that has gone may be asked for until the views hear of it.
  if (FPaused || !FNodes.IsNode(node))
    return {};
  QVariant answer;
  Guarded([&] {
    if (role == Qt::DisplayRole || role == Qt::EditRole)
      answer = ToQString(TextOf(node, index.column()));
    else if (role == Qt::ForegroundRole)
      answer = Color(node, index.column());
    else if (role == Qt::CheckStateRole && index.column() == 0 &&
             FNodes.GetCheckType(node) != TCheckType::None)
      answer = ToQt(FNodes.GetCheckState(node));
  });
  return answer;
}

bool TTreeModel::setData(const QModelIndex& index, const QVariant& /*value*/, int role) {
  return role == Qt::CheckStateRole && ClickCheck(NodeOf(index));
}

bool TTreeModel::ClickCheck(TNodeId node) {
  if (!FNodes.IsNode(node))
    return false;
  bool changed = false;
  Guarded([&] { changed = FNodes.ClickCheck(node); });
  CheckChanged(node);
  Flush();
  return changed;
}

QVariant TTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
    return {};
  if (role == Qt::DisplayRole)
    return FTitles.value(section);
  if (role == Qt::TextAlignmentRole)
    return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  return {};
}

Qt::ItemFlags TTreeModel::flags(const QModelIndex& index) const {
  const TNodeId node = NodeOf(index);
  if (node == 0 || node >= FFlags.size())
    return Qt::NoItemFlags;
  Qt::ItemFlags flags = FFlags[node];
  if (index.column() > 0)
    flags &= ~Qt::ItemFlags(Qt::ItemIsUserCheckable);
  if (!FOptions.Editable)
    return flags;
  bool editable = true;
  if (FEvents.OnEditing && FNodes.IsNode(node))
    Guarded([&] { editable = FEvents.OnEditing(node, index.column()); });
  return editable ? flags | Qt::ItemIsEditable : flags;
}

} // namespace workbench
