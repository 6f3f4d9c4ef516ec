// The rows of a project's list as the user wants to see them: filtered, in groups.
#pragma once

#include "workbench/desktop/controls/virtual_tree.h"
#include "workbench/desktop/list/row_index.h"

#include <QObject>
#include <QTimer>
#include <array>
#include <optional>
#include <set>
#include <string>

namespace workbench {

enum class TGrouping { None, Folder, Class, State };

/// Which rows show: those to which all of it applies.
struct TRowFilter {
  QString Text = {};               ///< every word of it is somewhere in the row
  std::set<TRowState> States = {}; ///< none: any
  std::string Class = {};          ///< empty: any

  bool IsEmpty() const { return Text.trimmed().isEmpty() && States.empty() && Class.empty(); }
  bool operator==(const TRowFilter&) const = default;
};

/// One for each list; goes with its tree.
class TRowList final : public QObject {
  Q_OBJECT

public:
  explicit TRowList(TVirtualTree& tree);

  const TRowFilter& Filter() const { return FFilter; }
  void SetFilter(const TRowFilter& filter);
  TGrouping Grouping() const { return FGrouping; }
  void SetGrouping(TGrouping grouping);
  /// Shows rows of any state, or of this one alone when it was not so already.
  void ToggleState(TRowState state);

  /// What is known of the rows; null while they are being made or another thread has them.
  TRowIndex* Index();
  /// How many rows show.
  int ShownCount() const { return FTree.Model().ShownCount(); }
  TVirtualTree& Tree() { return FTree; }

signals:
  /// Rows or their states changed, or which of them show.
  void Changed();

private:
  void Arrange();
  TRowArrangement Arrangement(const std::vector<deployment::TNodeId>& nodes);
  bool IsShown(deployment::TNodeId node, const std::vector<std::string>& words,
               std::optional<std::size_t> wantedClass);
  std::size_t GroupOf(deployment::TNodeId node);
  QString HeadingOf(std::size_t group);
  QVariant Look(deployment::TNodeId node, int column, int role);

  TVirtualTree& FTree;
  TRowIndex FIndex;
  std::array<QIcon, RowStateCount> FIcons; // by state
  TRowFilter FFilter;
  TGrouping FGrouping = TGrouping::None;
  QTimer FTell;
};

} // namespace workbench
