#include "workbench/desktop/controls/tree_model.h"

#include "package/host/api/file_columns.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/text/package_texts.h"
#include "workbench/desktop/text/qt_text.h"

#include <QColor>
#include <QFont>
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

// Words of the program are shown in the user's language, names of the user's as they are.
QString CellText(const std::string& text, int column) {
  namespace file_column = deployment::file_column;
  return column == file_column::RemoteStatus || column == file_column::Overwrite ? PackageText(text)
                                                                                 : ToQString(text);
}

} // namespace

TTreeModel::TTreeModel(const deployment::TTreeOptions& options,
                       deployment::TVirtualTreeEvents events, QObject* parent)
    : QAbstractItemModel(parent), FOptions(options), FEvents(std::move(events)),
      FNodes(FOptions, FEvents) {
  ReadNodes();
}

void TTreeModel::NodesChanged() {
  ++FRevision;
  FNodesChanged = true;
  emit Changed();
}

void TTreeModel::SetArrangement(TArrangeRows arrange) {
  FArrange = std::move(arrange);
  FNodesChanged = true;
  emit Changed();
}

void TTreeModel::CheckChanged(TNodeId node) {
  ++FRevision;
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
  std::unordered_map<quintptr, std::pair<int, int>> ranges;
  for (const TNodeId node : changed) {
    if (node >= FRows.size() || FRows[node] < 0)
      continue;
    const auto [range, isNew] = ranges.try_emplace(ParentIdOf(node), FRows[node], FRows[node]);
    range->second = {std::min(range->second.first, FRows[node]),
                     std::max(range->second.second, FRows[node])};
  }
  for (const auto& [parent, range] : ranges) {
    const QModelIndex above = IndexOfId(parent);
    emit dataChanged(index(range.first, 0, above), index(range.second, columnCount() - 1, above));
  }
}

void TTreeModel::ReadNodes() {
  FChildren.clear();
  FParents.clear();
  FGroups.clear();
  FGroupOf.clear();
  FRows.assign(FNodes.EndOfNodes(), -1);
  FFlags.assign(FNodes.EndOfNodes(), Qt::NoItemFlags);
  FTop = FNodes.GetChildren(0);
  if (FArrange)
    ReadArrangement(FTop);
  if (FGroups.empty())
    Place(0, FTop);
  for (const TRowGroup& group : FGroups)
    Place(0, group.Nodes);
  FShownCount = static_cast<int>(FTop.size());
}

void TTreeModel::ReadArrangement(const TChildren& nodes) {
  TRowArrangement arrangement = FArrange(nodes);
  TChildren shown;
  shown.reserve(nodes.size());
  for (const TRowGroup& group : arrangement.Groups)
    shown.insert(shown.end(), group.Nodes.begin(), group.Nodes.end());
  FTop = std::move(shown);
  if (!arrangement.IsGrouped)
    return;
  FGroups = std::move(arrangement.Groups);
  FGroupOf.assign(FNodes.EndOfNodes(), 0);
  for (std::uint32_t group = 0; group < FGroups.size(); ++group) {
    for (const TNodeId node : FGroups[group].Nodes)
      FGroupOf[node] = group;
  }
}

std::vector<TNodeId> TTreeModel::Arranged(const std::vector<TNodeId>& nodes) const {
  if (!FArrange)
    return nodes;
  std::vector<TNodeId> shown;
  shown.reserve(nodes.size());
  for (const TRowGroup& group : FArrange(nodes).Groups)
    shown.insert(shown.end(), group.Nodes.begin(), group.Nodes.end());
  return shown;
}

void TTreeModel::Place(TNodeId parent, const TChildren& children) {
  int row = 0;
  for (const TNodeId child : children) {
    FRows[child] = row++;
    FFlags[child] = ReadFlags(child);
    if (parent != 0)
      FParents[child] = parent;
  }
  for (const TNodeId child : children) {
    if (!(FFlags[child] & Qt::ItemNeverHasChildren)) {
      TChildren& below = FChildren[child]; // stays in its place while others come
      below = FNodes.GetChildren(child);
      Place(child, below);
    }
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

quintptr TTreeModel::ParentIdOf(TNodeId node) const {
  if (!FParents.empty()) {
    const auto found = FParents.find(node);
    if (found != FParents.end())
      return static_cast<quintptr>(found->second);
  }
  return FGroups.empty() ? 0 : HeadingBit | FGroupOf[node];
}

QModelIndex TTreeModel::IndexOfId(quintptr id) const {
  if ((id & HeadingBit) != 0)
    return createIndex(static_cast<int>(id & ~HeadingBit), 0, id);
  return IndexOf(static_cast<TNodeId>(id));
}

const TTreeModel::TChildren* TTreeModel::ChildrenOf(const QModelIndex& parent) const {
  if (!parent.isValid())
    return &FTop;
  if (IsHeading(parent)) {
    const auto row = static_cast<std::size_t>(parent.row());
    return row < FGroups.size() ? &FGroups[row].Nodes : nullptr;
  }
  if (FChildren.empty())
    return nullptr;
  const auto found = FChildren.find(NodeOf(parent));
  return found == FChildren.end() ? nullptr : &found->second;
}

TNodeId TTreeModel::NodeOf(const QModelIndex& index) const {
  return index.isValid() && !IsHeading(index) ? static_cast<TNodeId>(index.internalId()) : 0;
}

QModelIndex TTreeModel::IndexOf(TNodeId node, int column) const {
  return node == 0 || node >= FRows.size() || FRows[node] < 0
             ? QModelIndex()
             : createIndex(FRows[node], column, static_cast<quintptr>(node));
}

QModelIndex TTreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (row < 0 || column < 0 || column >= columnCount() || parent.column() > 0)
    return {};
  if (!parent.isValid() && !FGroups.empty())
    return row < HeadingCount() ? createIndex(row, column, HeadingBit | static_cast<quintptr>(row))
                                : QModelIndex();
  const TChildren* children = ChildrenOf(parent);
  if (!children || static_cast<std::size_t>(row) >= children->size())
    return {};
  return createIndex(row, column,
                     static_cast<quintptr>((*children)[static_cast<std::size_t>(row)]));
}

QModelIndex TTreeModel::parent(const QModelIndex& child) const {
  const TNodeId node = NodeOf(child);
  return node == 0 || node >= FRows.size() ? QModelIndex() : IndexOfId(ParentIdOf(node));
}

int TTreeModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid() && !FGroups.empty())
    return HeadingCount();
  const TChildren* children = parent.column() > 0 ? nullptr : ChildrenOf(parent);
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

QVariant TTreeModel::HeadingData(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (index.column() > 0 || row >= FGroups.size())
    return {};
  if (role == Qt::DisplayRole)
    return FGroups[row].Heading;
  if (role == Qt::FontRole) {
    QFont font = QGuiApplication::font();
    font.setBold(true);
    return font;
  }
  return {};
}

QVariant TTreeModel::data(const QModelIndex& index, int role) const {
  if (index.isValid() && IsHeading(index))
    return HeadingData(index, role);
  const TNodeId node = NodeOf(index);
  // A node that has gone may be asked for until the views hear of it.
  if (FPaused || !FNodes.IsNode(node))
    return {};
  QVariant answer;
  Guarded([&] {
    if (role == Qt::DisplayRole)
      answer = CellText(TextOf(node, index.column()), index.column());
    else if (role == Qt::EditRole)
      answer = ToQString(TextOf(node, index.column()));
    else if (role == Qt::ForegroundRole)
      answer = Color(node, index.column());
    else if (role == Qt::CheckStateRole && index.column() == 0 &&
             FNodes.GetCheckType(node) != TCheckType::None)
      answer = ToQt(FNodes.GetCheckState(node));
    else if (FLook && (role == Qt::DecorationRole || role == Qt::ToolTipRole))
      answer = FLook(node, index.column(), role);
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
  if (index.isValid() && IsHeading(index))
    return Qt::ItemIsEnabled;
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
