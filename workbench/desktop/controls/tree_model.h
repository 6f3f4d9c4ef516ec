// The nodes of a tree control as an item model: it holds no text, each is asked for when it is
// drawn.
#pragma once

#include "workbench/controls/memory_tree.h"

#include <QAbstractItemModel>
#include <QStringList>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace workbench {

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
  /// True when nodes have nodes below them.
  bool HasLevels() const { return !FChildren.empty(); }

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

  const TChildren* ChildrenOf(TNodeId parent) const;
  TNodeId ParentOf(TNodeId node) const;
  Qt::ItemFlags ReadFlags(TNodeId node) const;
  void ReadChildren(TNodeId parent, TChildren& children);
  void ReadNodes();
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
  std::vector<int> FRows;                           // by node
  std::vector<Qt::ItemFlags> FFlags;                // by node, of its first column
  std::vector<TNodeId> FChanged;
  bool FNodesChanged = false;
  bool FPaused = false;
};

} // namespace workbench
