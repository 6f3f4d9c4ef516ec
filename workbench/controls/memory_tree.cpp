#include "workbench/controls/memory_tree.h"

#include "workbench/controls/node_sorter.h"

#include <algorithm>

namespace workbench {

using deployment::TCheckState;
using deployment::TNodeId;
using deployment::TSortDirection;

TMemoryTree::TMemoryTree(const deployment::TTreeOptions& options,
                         deployment::TVirtualTreeEvents events)
    : FOptions(options), FEvents(std::move(events)), FNodes(1) {}

TMemoryTree::~TMemoryTree() {
  FreeAll();
}

void TMemoryTree::SetColumns(const std::vector<deployment::TTreeColumn>& columns) {
  FColumns = columns;
}

void TMemoryTree::Clear() {
  FEditor.reset();
  FreeAll();
  FSelected.clear();
  FNodes.assign(1, TNode());
}

void TMemoryTree::FreeAll() {
  if (!FEvents.OnFreeNode)
    return;
  for (TNodeId node = 1; node < FNodes.size(); ++node) {
    if (FNodes[node].Alive)
      FEvents.OnFreeNode(node);
  }
}

TNodeId TMemoryTree::AddNode(TNodeId parent, deployment::TCheckType checkType) {
  const TNodeId node = FNodes.size();
  TNode& added = FNodes.emplace_back();
  std::vector<TNodeId>& siblings = FNodes[parent].Children;
  added.Parent = parent;
  added.Position = siblings.empty() ? 0 : FNodes[siblings.back()].Position + 1;
  added.CheckType = checkType;
  siblings.push_back(node);
  return node;
}

void TMemoryTree::DeleteNode(TNodeId node) {
  if (FEditor && FEdited.first == node)
    FEditor.reset();
  TNode& parent = FNodes[FNodes[node].Parent];
  Free(node);
  ++parent.Deleted;
  if (parent.Deleted * 2 > parent.Children.size())
    Compact(parent);
}

void TMemoryTree::Free(TNodeId node) {
  for (const TNodeId child : GetChildren(node))
    Free(child);
  FNodes[node].Alive = false;
  FNodes[node].Children.clear();
  FSelected.erase(node);
  if (FEvents.OnFreeNode)
    FEvents.OnFreeNode(node);
}

void TMemoryTree::Compact(TNode& parent) {
  std::erase_if(parent.Children, [this](TNodeId child) { return !FNodes[child].Alive; });
  parent.Deleted = 0;
}

void TMemoryTree::Renumber(TNode& parent) {
  std::size_t position = 0;
  for (const TNodeId child : parent.Children)
    FNodes[child].Position = position++;
}

std::vector<TNodeId> TMemoryTree::GetChildren(TNodeId parent) const {
  const TNode& node = FNodes[parent];
  if (node.Deleted == 0)
    return node.Children;
  std::vector<TNodeId> children;
  children.reserve(node.Children.size() - node.Deleted);
  std::copy_if(node.Children.begin(), node.Children.end(), std::back_inserter(children),
               [this](TNodeId child) { return FNodes[child].Alive; });
  return children;
}

void TMemoryTree::SetCheckState(TNodeId node, TCheckState state) {
  FNodes[node].State = state;
}

void TMemoryTree::SetSelected(TNodeId node, bool selected) {
  if (selected)
    FSelected.insert(node);
  else
    FSelected.erase(node);
}

std::vector<TNodeId> TMemoryTree::GetSelected() const {
  std::vector<TNodeId> selected(FSelected.begin(), FSelected.end());
  std::sort(selected.begin(), selected.end(), [this](TNodeId left, TNodeId right) {
    return FNodes[left].Position < FNodes[right].Position;
  });
  return selected;
}

void TMemoryTree::SetSortMark(int column, TSortDirection direction) {
  FSortColumn = column;
  FSortDirection = direction;
}

void TMemoryTree::SortTree(int column, TSortDirection direction) {
  TNode& top = FNodes.front();
  Compact(top);
  SortNodes(top.Children, FEvents, column, direction);
  Renumber(top);
}

void TMemoryTree::ClickHeader(int column, deployment::TMouseButton button) {
  if (FEvents.OnHeaderClick)
    FEvents.OnHeaderClick(column, button);
}

bool TMemoryTree::ClickCheck(TNodeId node) {
  if (FEvents.OnChecking && !FEvents.OnChecking(node))
    return false;
  TCheckState& state = FNodes[node].State;
  state = state == TCheckState::Checked ? TCheckState::Unchecked : TCheckState::Checked;
  if (FEvents.OnChecked)
    FEvents.OnChecked(node);
  return true;
}

TMemoryCellEditor* TMemoryTree::BeginEdit(TNodeId node, int column) {
  FEditor.reset();
  if (!FOptions.Editable || !FEvents.OnCreateEditor ||
      (FEvents.OnEditing && !FEvents.OnEditing(node, column)))
    return nullptr;
  FEditor = FEvents.OnCreateEditor(node, column);
  if (FEditor)
    FEditor->SetText(Text(node, column));
  FEdited = {node, column};
  return dynamic_cast<TMemoryCellEditor*>(FEditor.get());
}

bool TMemoryTree::EndEdit() {
  const auto* editor = dynamic_cast<const TMemoryCellEditor*>(FEditor.get());
  if (!editor || !editor->Accepts(editor->Text))
    return false;
  const auto [node, column] = FEdited;
  const std::string text = editor->Text;
  FEditor.reset();
  if (FEvents.OnNewText)
    FEvents.OnNewText(node, column, text);
  if (FEvents.OnEdited)
    FEvents.OnEdited(node, column);
  return true;
}

bool TMemoryTree::Edit(TNodeId node, int column, std::string_view text) {
  TMemoryCellEditor* editor = BeginEdit(node, column);
  if (!editor)
    return false;
  editor->SetText(text);
  return EndEdit();
}

deployment::TTextColor TMemoryTree::TextColor(TNodeId node, int column) const {
  auto color = deployment::TTextColor::Default;
  if (FEvents.OnPaintText)
    FEvents.OnPaintText(node, column, color);
  return color;
}

} // namespace workbench
