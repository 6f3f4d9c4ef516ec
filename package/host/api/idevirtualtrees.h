// Host unit Idevirtualtrees: the tree control. It knows nodes and states; every text is asked for.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// A form's content that a host shows; the object that the host owns while it is shown.
class IFrame {
public:
  virtual ~IFrame() = default;
};

/// Handle of a node, given by the tree; 0 is none. Never used again after the node was freed.
using TNodeId = std::size_t;

enum class TCheckState { Unchecked, Checked, Mixed };
enum class TCheckType { None, CheckBox, TriStateCheckBox };
enum class TSortDirection { Ascending, Descending };
enum class TMouseButton { Left, Right, Middle };

/// One column of the header.
struct TTreeColumn {
  std::string_view Title;
  int Width = 0; ///< pixels at 100 % scaling
};

/// What the tree asks of and reports to the form that uses it. Implemented by the package's forms.
class IVirtualTreeEvents {
public:
  virtual ~IVirtualTreeEvents() = default;
  virtual std::string GetText(TNodeId node, int column) = 0;
  /// True when the row's text is to be drawn in the dim colour.
  virtual bool IsDimmed(TNodeId node) = 0;
  /// Below, at or above zero, as the first node goes before, with or behind the second one.
  virtual int CompareNodes(TNodeId first, TNodeId second, int column) = 0;
  virtual void HeaderClick(int column, TMouseButton button) = 0;
  virtual bool Editing(TNodeId node, int column) = 0;
  virtual void NewText(TNodeId node, int column, std::string_view text) = 0;
  virtual void Edited(TNodeId node, int column) = 0;
  virtual bool Checking(TNodeId node) = 0;
  virtual void Checked(TNodeId node) = 0;
  virtual void FreeNode(TNodeId node) = 0;
};

/// The control. Implemented by the host, owned by the form that made it.
class IVirtualStringTree {
public:
  virtual ~IVirtualStringTree() = default;
  virtual void SetColumns(const std::vector<TTreeColumn>& columns) = 0;
  /// Brackets changes of many nodes; nests.
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate() = 0;
  virtual void Clear() = 0;
  /// Appends a node; a parent of 0 makes a top-level one.
  virtual TNodeId AddNode(TNodeId parent, TCheckType checkType) = 0;
  virtual void DeleteNode(TNodeId node) = 0;
  /// Children in the tree's current order; a parent of 0 means the top level.
  virtual std::vector<TNodeId> GetChildren(TNodeId parent) const = 0;
  virtual TCheckState GetCheckState(TNodeId node) const = 0;
  virtual void SetCheckState(TNodeId node, TCheckState state) = 0;
  virtual bool IsSelected(TNodeId node) const = 0;
  virtual void SetSelected(TNodeId node, bool selected) = 0;
  virtual std::size_t SelectedCount() const = 0;
  /// Header sort mark; -1 for no column.
  virtual int GetSortColumn() const = 0;
  virtual TSortDirection GetSortDirection() const = 0;
  virtual void SetSortMark(int column, TSortDirection direction) = 0;
  virtual void SortTree(int column, TSortDirection direction) = 0;
};

} // namespace deployment
