#include "workbench/desktop/list/row_list.h"

#include "package/host/api/file_columns.h"
#include "workbench/desktop/text/class_words.h"
#include "workbench/desktop/text/qt_text.h"

#include <algorithm>
#include <utility>

namespace workbench {

using deployment::TNodeId;

namespace file_column = deployment::file_column;

TRowList::TRowList(TVirtualTree& tree) : QObject(&tree), FTree(tree), FIndex(tree.Model()) {
  tree.Model().SetLook(
      [this](TNodeId node, int column, int role) { return Look(node, column, role); });
  for (const TRowState state : RowStates)
    FIcons[static_cast<std::size_t>(state)] = StateIcon(state);
  // Behind the paint that the change of the rows asks for.
  FTell.setSingleShot(true);
  FTell.setInterval(0);
  connect(&FTell, &QTimer::timeout, this, &TRowList::Changed);
  connect(&tree.Model(), &QAbstractItemModel::modelReset, &FTell, qOverload<>(&QTimer::start));
  connect(&tree.Model(), &QAbstractItemModel::dataChanged, &FTell, qOverload<>(&QTimer::start));
}

TRowIndex* TRowList::Index() {
  const TTreeModel& model = FTree.Model();
  return model.IsPaused() || model.HasNewNodes() ? nullptr : &FIndex;
}

void TRowList::SetFilter(const TRowFilter& filter) {
  if (filter == FFilter)
    return;
  FFilter = filter;
  Arrange();
}

void TRowList::SetGrouping(TGrouping grouping) {
  if (grouping == FGrouping)
    return;
  FGrouping = grouping;
  Arrange();
}

void TRowList::ToggleState(TRowState state) {
  TRowFilter filter = FFilter;
  filter.States = FFilter.States == std::set{state} ? std::set<TRowState>() : std::set{state};
  SetFilter(filter);
}

void TRowList::Arrange() {
  if (FFilter.IsEmpty() && FGrouping == TGrouping::None)
    FTree.SetArrangement(nullptr);
  else
    FTree.SetArrangement([this](const auto& nodes) { return Arrangement(nodes); });
  FTree.Flush();
  FTell.start();
}

bool TRowList::IsShown(TNodeId node, const std::vector<std::string>& words,
                       std::optional<std::size_t> wantedClass) {
  return (FFilter.States.empty() || FFilter.States.contains(FIndex.StateOf(node))) &&
         (!wantedClass || FIndex.ClassOf(node) == *wantedClass) &&
         (words.empty() || FIndex.HasWords(node, words));
}

std::size_t TRowList::GroupOf(TNodeId node) {
  switch (FGrouping) {
  case TGrouping::Folder:
    return FIndex.FolderOf(node);
  case TGrouping::Class:
    return FIndex.ClassOf(node);
  case TGrouping::State:
    return static_cast<std::size_t>(FIndex.StateOf(node));
  case TGrouping::None:
    break;
  }
  return 0;
}

QString TRowList::HeadingOf(std::size_t group) {
  switch (FGrouping) {
  case TGrouping::Folder:
    return FIndex.Folders()[group].empty() ? tr("(beside the project)")
                                           : ToQString(FIndex.Folders()[group]);
  case TGrouping::Class:
    return ClassWords(FIndex.Classes()[group]);
  case TGrouping::State:
    return StateWord(RowStates[group]);
  case TGrouping::None:
    break;
  }
  return {};
}

TRowArrangement TRowList::Arrangement(const std::vector<TNodeId>& nodes) {
  const std::vector<std::string> words = FoldedWords(FFilter.Text);
  std::optional<std::size_t> wantedClass;
  if (!FFilter.Class.empty()) {
    const auto& classes = FIndex.Classes();
    wantedClass =
        static_cast<std::size_t>(std::ranges::find(classes, FFilter.Class) - classes.begin());
  }
  TRowArrangement arrangement{.IsGrouped = FGrouping != TGrouping::None};
  std::vector<std::vector<TNodeId>> members(1);
  for (const TNodeId node : nodes) {
    if (!IsShown(node, words, wantedClass))
      continue;
    const std::size_t group = GroupOf(node);
    if (group >= members.size())
      members.resize(group + 1);
    members[group].push_back(node);
  }
  if (!arrangement.IsGrouped) {
    arrangement.Groups.push_back({.Heading = {}, .Nodes = std::move(members.front())});
    return arrangement;
  }
  for (std::size_t group = 0; group < members.size(); ++group) {
    if (!members[group].empty())
      arrangement.Groups.push_back(
          {.Heading = HeadingOf(group), .Nodes = std::move(members[group])});
  }
  if (FGrouping != TGrouping::State)
    std::ranges::stable_sort(arrangement.Groups, [](const TRowGroup& left, const TRowGroup& right) {
      return QString::compare(left.Heading, right.Heading, Qt::CaseInsensitive) < 0;
    });
  return arrangement;
}

// The state as a sign beside its word, and in the hint of the cell what it means.
QVariant TRowList::Look(TNodeId node, int column, int role) {
  if (column == file_column::Type && role == Qt::ToolTipRole)
    return ClassWords(FTree.Model().Nodes().Text(node, column));
  if (column != file_column::RemoteStatus || !Index())
    return {};
  const TRowState state = FIndex.ComparisonOf(node);
  if (role == Qt::ToolTipRole)
    return StateHint(state);
  return state == TRowState::Unknown ? QVariant() : FIcons[static_cast<std::size_t>(state)];
}

} // namespace workbench
