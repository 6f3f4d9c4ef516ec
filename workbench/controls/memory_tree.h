// The tree control without a window: nodes, boxes, selection and order. Texts are never kept.
#pragma once

#include "package/host/api/idevirtualtrees.h"
#include "workbench/controls/memory_cell_editors.h"

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

class TMemoryTree final : public deployment::IVirtualStringTree {
public:
  using TNodeId = deployment::TNodeId;

  TMemoryTree(const deployment::TTreeOptions& options, deployment::TVirtualTreeEvents events);
  ~TMemoryTree() override;
  TMemoryTree(const TMemoryTree&) = delete;
  TMemoryTree& operator=(const TMemoryTree&) = delete;

  void SetColumns(const std::vector<deployment::TTreeColumn>& columns) override;
  void SetNotice(std::string_view text) override { FNotice = text; }
  void BeginUpdate() override { ++FUpdates; }
  void EndUpdate() override { --FUpdates; }
  void Clear() override;
  TNodeId AddNode(TNodeId parent, deployment::TCheckType checkType) override;
  void DeleteNode(TNodeId node) override;
  std::vector<TNodeId> GetChildren(TNodeId parent) const override;
  deployment::TCheckState GetCheckState(TNodeId node) const override { return FNodes[node].State; }
  void SetCheckState(TNodeId node, deployment::TCheckState state) override;
  bool IsSelected(TNodeId node) const override { return FSelected.contains(node); }
  void SetSelected(TNodeId node, bool selected) override;
  std::vector<TNodeId> GetSelected() const override;
  std::size_t SelectedCount() const override { return FSelected.size(); }
  int GetSortColumn() const override { return FSortColumn; }
  deployment::TSortDirection GetSortDirection() const override { return FSortDirection; }
  void SetSortMark(int column, deployment::TSortDirection direction) override;
  void SortTree(int column, deployment::TSortDirection direction) override;

  /// 0 for a node of the top level.
  TNodeId GetParent(TNodeId node) const { return FNodes[node].Parent; }
  bool HasChildren(TNodeId node) const {
    return FNodes[node].Children.size() > FNodes[node].Deleted;
  }
  deployment::TCheckType GetCheckType(TNodeId node) const { return FNodes[node].CheckType; }
  /// Ids of nodes are below this one.
  TNodeId EndOfNodes() const { return FNodes.size(); }
  /// False for an id that no node has.
  bool IsNode(TNodeId node) const {
    return node != 0 && node < FNodes.size() && FNodes[node].Alive;
  }

  // What the user does and sees.
  void ClickHeader(int column, deployment::TMouseButton button = deployment::TMouseButton::Left);
  /// False when the form refuses.
  bool ClickCheck(TNodeId node);
  /// Opens the editor of a cell, with the cell's text in it; null when the form refuses. The tree
  /// keeps the editor until the edit ends.
  TMemoryCellEditor* BeginEdit(TNodeId node, int column);
  /// Ends the edit with the text in the editor; false when the editor does not accept it.
  bool EndEdit();
  /// Both in one; false when either says no.
  bool Edit(TNodeId node, int column, std::string_view text);
  std::string Text(TNodeId node, int column) const { return FEvents.OnGetText(node, column); }
  deployment::TTextColor TextColor(TNodeId node, int column) const;

  const std::vector<deployment::TTreeColumn>& Columns() const { return FColumns; }
  const std::string& Notice() const { return FNotice; }
  const deployment::TTreeOptions& Options() const { return FOptions; }
  /// True while changes are bracketed.
  bool IsUpdating() const { return FUpdates > 0; }

private:
  struct TNode {
    TNodeId Parent = 0;
    std::size_t Position = 0; ///< order among the children; numbers may be missing
    std::size_t Deleted = 0;  ///< of the children, those that are no nodes any more
    std::vector<TNodeId> Children;
    deployment::TCheckType CheckType = deployment::TCheckType::None;
    deployment::TCheckState State = deployment::TCheckState::Unchecked;
    bool Alive = true;
  };

  void Free(TNodeId node);
  void FreeAll();
  void Compact(TNode& parent);
  void Renumber(TNode& parent);

  deployment::TTreeOptions FOptions;
  deployment::TVirtualTreeEvents FEvents;
  std::vector<deployment::TTreeColumn> FColumns;
  std::vector<TNode> FNodes; ///< by id; the first one holds the top level
  std::set<TNodeId> FSelected;
  int FSortColumn = -1;
  deployment::TSortDirection FSortDirection = deployment::TSortDirection::Ascending;
  int FUpdates = 0;
  std::string FNotice;
  std::unique_ptr<deployment::ICellEditor> FEditor;
  std::pair<TNodeId, int> FEdited; ///< node and column of the editor
};

} // namespace workbench
