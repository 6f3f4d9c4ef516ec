// Host unit Idevirtualtrees: the tree control. It knows nodes and states; every text is asked for.
#pragma once

#include "package/host/api/forms.h"
#include "package/host/api/vteditors.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

enum class TCheckType { None, CheckBox, TriStateCheckBox };
enum class TSortDirection { Ascending, Descending };
enum class TMouseButton { Left, Right, Middle };

/// Colour of a text. NoColor is the value that stands for the absence of a colour, Other any
/// colour of the visual style.
enum class TTextColor { Default, ButtonShadow, NoColor, Other };

/// One column of the header.
struct TTreeColumn {
  std::string_view Title;
  int Width = 0; ///< pixels at 100 % scaling
};

/// How the tree behaves, for its whole life.
struct TTreeOptions {
  bool CheckBoxes = false;
  bool MultiSelect = false;     ///< with extended focus
  bool FullRowSelect = false;   ///< by the middle and right mouse button too
  bool Incremental = false;     ///< typing searches all nodes
  bool ColumnsResize = false;   ///< by dragging, and to the best width by a double click
  bool SortGlyphs = false;      ///< on flat header buttons
  bool VerticalLines = false;   ///< between columns
  bool HintsAsTooltip = false;  ///< shown for as long as the mouse rests
  bool StrongUnfocused = false; ///< the selection keeps its colour, border included, without focus
  bool Editable = false;
  std::chrono::milliseconds EditDelay{0}; ///< from the second click to the editor
};

/// What the tree asks of and reports to the form that uses it. The form sets those that it needs;
/// one that is empty is neither asked nor told.
struct TVirtualTreeEvents {
  /// The text of a cell; asked for each time that it is needed, never kept.
  std::function<std::string(TNodeId node, int column)> OnGetText;
  /// Asked before a cell's text is drawn; may change the colour, which starts as Default.
  std::function<void(TNodeId node, int column, TTextColor& color)> OnPaintText;
  /// Below, at or above zero, as the first node goes before, with or behind the second one.
  std::function<int(TNodeId first, TNodeId second, int column)> OnCompareNodes;
  /// A text by whose bytes nodes come in the order of OnCompareNodes; a sort then asks once per
  /// node.
  std::function<std::string(TNodeId node, int column)> OnSortKey;
  std::function<void(int column, TMouseButton button)> OnHeaderClick;
  /// May the cell be edited?
  std::function<bool(TNodeId node, int column)> OnEditing;
  std::function<std::unique_ptr<ICellEditor>(TNodeId node, int column)> OnCreateEditor;
  /// The text that an editor was left with.
  std::function<void(TNodeId node, int column, std::string_view text)> OnNewText;
  /// The edit is over; follows OnNewText.
  std::function<void(TNodeId node, int column)> OnEdited;
  /// May the box change?
  std::function<bool(TNodeId node)> OnChecking;
  /// The user changed the box.
  std::function<void(TNodeId node)> OnChecked;
  /// The node goes away; its id may be given to a later one.
  std::function<void(TNodeId node)> OnFreeNode;
};

/// The control. Implemented by the host, owned by the form that made it. Ids of nodes count up from
/// 1, so that a form can keep its records in a vector; after Clear they start over.
class IVirtualStringTree {
public:
  virtual ~IVirtualStringTree() = default;
  virtual void SetColumns(const std::vector<TTreeColumn>& columns) = 0;
  /// A sentence that the user should see with the nodes, or in their place where there are none;
  /// empty takes it away.
  virtual void SetNotice(std::string_view text) = 0;
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
  /// Told to no handler.
  virtual void SetCheckState(TNodeId node, TCheckState state) = 0;
  virtual bool IsSelected(TNodeId node) const = 0;
  virtual void SetSelected(TNodeId node, bool selected) = 0;
  /// In the tree's current order; costs what the selection costs.
  virtual std::vector<TNodeId> GetSelected() const = 0;
  virtual std::size_t SelectedCount() const = 0;
  /// Header sort mark; -1 for no column.
  virtual int GetSortColumn() const = 0;
  virtual TSortDirection GetSortDirection() const = 0;
  virtual void SetSortMark(int column, TSortDirection direction) = 0;
  /// Sorts the top level; nodes that compare equal stay in their order.
  virtual void SortTree(int column, TSortDirection direction) = 0;
};

} // namespace deployment
