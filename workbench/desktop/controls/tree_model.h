// The nodes of a tree control as an item model: it holds no text, each is asked for when it is
// drawn.
#pragma once

#include "workbench/controls/memory_tree.h"

#include <QAbstractItemModel>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace workbench {

/// Nodes of the top level that stand together.
struct TRowGroup {
  QString Heading; ///< above them
  std::vector<deployment::TNodeId> Nodes = {};
};

/// What of the top level shows, and how.
struct TRowArrangement {
  bool IsGrouped = false;
  std::vector<TRowGroup> Groups = {}; ///< not grouped: one, whose heading is not shown
};

/// Arranges the nodes of the top level, which come in their order.
using TArrangeRows = std::function<TRowArrangement(const std::vector<deployment::TNodeId>& nodes)>;

/// Adds to the look of a cell: asked for Qt::DecorationRole and Qt::ToolTipRole.
using TCellLook = std::function<QVariant(deployment::TNodeId node, int column, int role)>;

/// Shows the nodes as they were at the last Flush. A form may change thousands of them in a row,
/// and views hear of it once.
class TTreeModel final : public QAbstractItemModel {
  Q_OBJECT

public:
  using TNodeId = deployment::TNodeId;

  TTreeModel(const deployment::TTreeOptions& options, deployment::TVirtualTreeEvents events,
             QObject* parent);

  /// Changes to the nodes are announced by the calls below.
  TMemoryTree& Nodes() { return FNodes; }
  const TMemoryTree& Nodes() const { return FNodes; }
  const deployment::TVirtualTreeEvents& Events() const { return FEvents; }

  /// Nodes came, went or changed places.
  void NodesChanged();
  /// The box of a node changed.
  void CheckChanged(TNodeId node);
  /// The text or the look of a node may have changed.
  void TextsChanged(TNodeId node) { CheckChanged(node); }
  void ColumnsChanged();
  /// Tells the views what changed; they keep nothing of the old nodes when nodes changed.
  void Flush();
  /// True while views do not know of nodes that came, went or changed places.
  bool HasNewNodes() const { return FNodesChanged; }
  /// While the work of another thread has what the rows are made of, views that ask get nothing;
  /// they have to ask again.
  void SetPaused(bool paused) { FPaused = paused; }
  bool IsPaused() const { return FPaused; }
  /// True when rows have rows below them.
  bool HasLevels() const { return !FChildren.empty() || !FGroups.empty(); }

  /// Which nodes of the top level show, and below which headings; empty: all, as they are. Views
  /// see it with the next Flush.
  void SetArrangement(TArrangeRows arrange);
  bool IsArranged() const { return FArrange != nullptr; }
  /// Those of the nodes that show, by the arrangement as it is.
  std::vector<TNodeId> Arranged(const std::vector<TNodeId>& nodes) const;
  /// How many nodes of the top level show.
  int ShownCount() const { return FShownCount; }
  /// Rows of the top level that are headings.
  int HeadingCount() const { return static_cast<int>(FGroups.size()); }
  static bool IsHeading(const QModelIndex& index) { return (index.internalId() & HeadingBit) != 0; }
  void SetLook(TCellLook look) { FLook = std::move(look); }
  /// Counts up with every change of nodes and texts.
  std::uint64_t Revision() const { return FRevision; }

  /// 0 for a heading.
  TNodeId NodeOf(const QModelIndex& index) const;
  QModelIndex IndexOf(TNodeId node, int column = 0) const;
  /// The user clicks the box of a node.
  bool ClickCheck(TNodeId node);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
  /// A change waits to be told.
  void Changed();

private:
  using TChildren = std::vector<TNodeId>;

  // Marks the ids of indexes that stand for a heading and not for a node.
  static constexpr quintptr HeadingBit = ~(~quintptr(0) >> 1);

  const TChildren* ChildrenOf(const QModelIndex& parent) const;
  quintptr ParentIdOf(TNodeId node) const;
  QModelIndex IndexOfId(quintptr id) const;
  QVariant HeadingData(const QModelIndex& index, int role) const;
  Qt::ItemFlags ReadFlags(TNodeId node) const;
  void Place(TNodeId parent, const TChildren& children);
  void ReadNodes();
  void ReadArrangement(const TChildren& nodes);
  QVariant Color(TNodeId node, int column) const;
  std::string TextOf(TNodeId node, int column) const;

  const deployment::TTreeOptions FOptions;
  const deployment::TVirtualTreeEvents FEvents;
  TMemoryTree FNodes;
  QStringList FTitles; // of the columns
  // What views know of the nodes.
  TChildren FTop;                                   // the nodes of the top level
  std::unordered_map<TNodeId, TChildren> FChildren; // of nodes that have some
  std::unordered_map<TNodeId, TNodeId> FParents;    // of nodes below others
  std::vector<TRowGroup> FGroups;                   // of the top level, when it is grouped
  std::vector<std::uint32_t> FGroupOf;              // by node, when it is grouped
  std::vector<int> FRows;                           // by node
  std::vector<Qt::ItemFlags> FFlags;                // by node, of its first column
  std::vector<TNodeId> FChanged;
  TArrangeRows FArrange;
  TCellLook FLook;
  int FShownCount = 0;
  std::uint64_t FRevision = 0;
  bool FNodesChanged = false;
  bool FPaused = false;
};

} // namespace workbench
