#include "workbench/desktop/controls/virtual_tree.h"

#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/text/engine_text.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace workbench {

using deployment::TCheckState;
using deployment::TMouseButton;
using deployment::TNodeId;
using deployment::TSortDirection;

namespace {

TMouseButton FromQt(Qt::MouseButton button) {
  if (button == Qt::LeftButton)
    return TMouseButton::Left;
  return button == Qt::RightButton ? TMouseButton::Right : TMouseButton::Middle;
}

Qt::SortOrder ToQt(TSortDirection direction) {
  return direction == TSortDirection::Ascending ? Qt::AscendingOrder : Qt::DescendingOrder;
}

} // namespace

TVirtualTree::TVirtualTree(const deployment::TTreeOptions& options,
                           deployment::TVirtualTreeEvents events, QWidget* parent)
    : FModel(options, std::move(events), nullptr), FView(new TTreeView(FModel, options, parent)) {
  FTimer.setSingleShot(true);
  FTimer.setInterval(0);
  connect(&FTimer, &QTimer::timeout, this, &TVirtualTree::Flush);
  connect(&FModel, &TTreeModel::Changed, this, &TVirtualTree::FlushSoon);
  connect(&FModel, &TTreeModel::dataChanged, this, &TVirtualTree::StateChanged);
  connect(FView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &TVirtualTree::Selected);
  connect(FView, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
    if (TTreeModel::IsHeading(index))
      FCollapsed.insert(index.data().toString());
  });
  connect(FView, &QTreeView::expanded, this,
          [this](const QModelIndex& index) { FCollapsed.remove(index.data().toString()); });
  connect(FView, &TTreeView::HeaderClicked, this, [this](int column, Qt::MouseButton button) {
    Guarded([&] { Nodes().ClickHeader(column, FromQt(button)); });
    Flush();
  });
}

// The view asks the model to the last, and the editor that is open belongs to the form.
TVirtualTree::~TVirtualTree() {
  delete FView.data();
}

void TVirtualTree::NodesChanged() {
  FModel.NodesChanged();
}

void TVirtualTree::FlushSoon() {
  if (FUpdates == 0 && !FTimer.isActive())
    FTimer.start();
}

void TVirtualTree::Flush() {
  if (FUpdates > 0 || !FView)
    return;
  FTimer.stop();
  if (FModel.HasNewNodes()) {
    FView->Delegate().DropEditor();
    TPlace place = CurrentPlace();
    if (std::exchange(FWasCleared, false))
      place.Node = 0;
    FShowsSelection = true;
    FModel.Flush();
    FShowsSelection = false;
    FView->setRootIsDecorated(FModel.HasLevels());
    ShowHeadings();
    DeselectHidden();
    FSelectionChanged = true;
    GoTo(place);
  } else {
    FModel.Flush();
  }
  if (std::exchange(FSelectionChanged, false))
    ShowSelection();
  emit StateChanged();
}

void TVirtualTree::SetArrangement(TArrangeRows arrange) {
  FModel.SetArrangement(std::move(arrange));
}

// All at once: a view lays its rows out anew for each heading that is opened by itself.
void TVirtualTree::ShowHeadings() {
  const int count = FModel.HeadingCount();
  if (count == 0)
    return;
  for (int row = 0; row < count; ++row)
    FView->setFirstColumnSpanned(row, {}, true);
  const QSet<QString> collapsed = FCollapsed;
  FView->expandAll();
  FCollapsed = collapsed;
  for (int row = 0; row < count && !collapsed.isEmpty(); ++row) {
    const QModelIndex heading = FModel.index(row, 0);
    if (collapsed.contains(heading.data().toString()))
      FView->collapse(heading);
  }
}

// A command for the selected rows must not reach what nobody sees.
void TVirtualTree::DeselectHidden() {
  if (!FModel.IsArranged())
    return;
  for (const TNodeId node : Nodes().GetSelected()) {
    if (!FModel.IndexOf(node).isValid())
      Nodes().SetSelected(node, false);
  }
}

TVirtualTree::TPlace TVirtualTree::CurrentPlace() const {
  const QModelIndex current = FView->currentIndex();
  return {.Node = FModel.NodeOf(current),
          .Row = current.row(),
          .Column = std::max(0, current.column()),
          .Scroll = FView->verticalScrollBar()->value()};
}

void TVirtualTree::GoTo(const TPlace& place) {
  QModelIndex index = FModel.IndexOf(place.Node, place.Column);
  if (!index.isValid() && place.Row >= 0 && FModel.HeadingCount() == 0)
    index = FModel.index(std::min(place.Row, FModel.rowCount() - 1), place.Column);
  if (!index.isValid() && FModel.rowCount() > 0)
    index = FModel.HeadingCount() > 0 ? FModel.index(0, 0, FModel.index(0, 0)) : FModel.index(0, 0);
  // A view opens what stands above its current row.
  const QModelIndex above = index.parent();
  if (above.isValid() && TTreeModel::IsHeading(above) && !FView->isExpanded(above))
    index = above;
  FView->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  FView->verticalScrollBar()->setValue(place.Scroll);
}

// In as few ranges as there are: a view with thousands of selected rows stays quick.
void TVirtualTree::ShowSelection() {
  QItemSelection selection;
  const int last = FModel.columnCount() - 1;
  QModelIndex first;
  QModelIndex end;
  const auto close = [&] {
    if (first.isValid())
      selection.append(QItemSelectionRange(first, end.siblingAtColumn(last)));
  };
  for (const TNodeId node : Nodes().GetSelected()) {
    const QModelIndex index = FModel.IndexOf(node);
    if (first.isValid() && index.row() == end.row() + 1 && index.parent() == end.parent()) {
      end = index;
      continue;
    }
    close();
    first = end = index;
  }
  close();
  FShowsSelection = true;
  FView->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  FShowsSelection = false;
}

void TVirtualTree::Selected(const QItemSelection& selected, const QItemSelection& deselected) {
  if (FShowsSelection)
    return;
  const auto set = [this](const QItemSelection& ranges, bool isSelected) {
    for (const QItemSelectionRange& range : ranges) {
      for (int row = range.top(); row <= range.bottom(); ++row) {
        const TNodeId node = FModel.NodeOf(FModel.index(row, 0, range.parent()));
        if (Nodes().IsNode(node))
          Nodes().SetSelected(node, isSelected);
      }
    }
  };
  set(deselected, false);
  set(selected, true);
  emit StateChanged();
}

void TVirtualTree::SetColumns(const std::vector<deployment::TTreeColumn>& columns) {
  Nodes().SetColumns(columns);
  FModel.ColumnsChanged();
  FView->SetWidths(columns);
}

void TVirtualTree::SetNotice(std::string_view text) {
  if (Nodes().Notice() == text)
    return;
  Nodes().SetNotice(text);
  emit NoticeChanged(EngineText(text));
}

// The form may let the event loop run meanwhile, when half of the rows are there.
void TVirtualTree::BeginUpdate() {
  if (FUpdates++ == 0 && FView)
    FView->viewport()->setUpdatesEnabled(false);
  Nodes().BeginUpdate();
}

void TVirtualTree::EndUpdate() {
  --FUpdates;
  Nodes().EndUpdate();
  if (FUpdates > 0)
    return;
  Flush();
  if (FView)
    FView->viewport()->setUpdatesEnabled(true);
}

void TVirtualTree::Clear() {
  FWasCleared = true;
  Nodes().Clear();
  NodesChanged();
}

TNodeId TVirtualTree::AddNode(TNodeId parent, deployment::TCheckType checkType) {
  const TNodeId node = Nodes().AddNode(parent, checkType);
  NodesChanged();
  return node;
}

void TVirtualTree::DeleteNode(TNodeId node) {
  Nodes().DeleteNode(node);
  NodesChanged();
}

std::vector<TNodeId> TVirtualTree::GetChildren(TNodeId parent) const {
  std::vector<TNodeId> children = Nodes().GetChildren(parent);
  return parent == 0 ? FModel.Arranged(children) : children;
}

TCheckState TVirtualTree::GetCheckState(TNodeId node) const {
  return Nodes().GetCheckState(node);
}

void TVirtualTree::SetCheckState(TNodeId node, TCheckState state) {
  Nodes().SetCheckState(node, state);
  FModel.CheckChanged(node);
}

bool TVirtualTree::IsSelected(TNodeId node) const {
  return Nodes().IsSelected(node);
}

void TVirtualTree::SetSelected(TNodeId node, bool selected) {
  Nodes().SetSelected(node, selected);
  FSelectionChanged = true;
  FlushSoon();
}

std::vector<TNodeId> TVirtualTree::GetSelected() const {
  return Nodes().GetSelected();
}

std::size_t TVirtualTree::SelectedCount() const {
  return Nodes().SelectedCount();
}

int TVirtualTree::GetSortColumn() const {
  return Nodes().GetSortColumn();
}

TSortDirection TVirtualTree::GetSortDirection() const {
  return Nodes().GetSortDirection();
}

void TVirtualTree::SetSortMark(int column, TSortDirection direction) {
  Nodes().SetSortMark(column, direction);
  FView->header()->setSortIndicator(column, ToQt(direction));
}

void TVirtualTree::SortTree(int column, TSortDirection direction) {
  Nodes().SortTree(column, direction);
  NodesChanged();
}

} // namespace workbench
