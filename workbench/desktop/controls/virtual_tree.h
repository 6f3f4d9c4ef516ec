// The tree control of the package's forms.
#pragma once

#include "workbench/desktop/controls/tree_model.h"
#include "workbench/desktop/controls/tree_view.h"

#include <QPointer>
#include <QSet>
#include <QTimer>

namespace workbench {

/// What the form changes outside of BeginUpdate and EndUpdate shows when the event loop comes
/// round. Rows keep their selection, the cell with the focus and the place on the screen while the
/// form builds them anew.
class TVirtualTree final : public QObject, public deployment::IVirtualStringTree {
  Q_OBJECT

public:
  using TNodeId = deployment::TNodeId;

  /// The view is owned by the object; `parent` may take it away earlier.
  TVirtualTree(const deployment::TTreeOptions& options, deployment::TVirtualTreeEvents events,
               QWidget* parent);
  ~TVirtualTree() override;

  TTreeView& View() { return *FView; }
  TTreeModel& Model() { return FModel; }
  /// Shows at once what waits.
  void Flush();
  /// Which rows show, and below which headings. Rows that do not show are not selected, and to the
  /// form they are not there when it asks for all.
  void SetArrangement(TArrangeRows arrange);

  void SetColumns(const std::vector<deployment::TTreeColumn>& columns) override;
  void SetNotice(std::string_view text) override;
  void BeginUpdate() override;
  void EndUpdate() override;
  void Clear() override;
  TNodeId AddNode(TNodeId parent, deployment::TCheckType checkType) override;
  void DeleteNode(TNodeId node) override;
  std::vector<TNodeId> GetChildren(TNodeId parent) const override;
  deployment::TCheckState GetCheckState(TNodeId node) const override;
  void SetCheckState(TNodeId node, deployment::TCheckState state) override;
  bool IsSelected(TNodeId node) const override;
  void SetSelected(TNodeId node, bool selected) override;
  std::vector<TNodeId> GetSelected() const override;
  std::size_t SelectedCount() const override;
  int GetSortColumn() const override;
  deployment::TSortDirection GetSortDirection() const override;
  void SetSortMark(int column, deployment::TSortDirection direction) override;
  void SortTree(int column, deployment::TSortDirection direction) override;

signals:
  /// The sentence that should stand with the rows; empty: none.
  void NoticeChanged(const QString& text);
  /// Rows came or went, or the selection changed.
  void StateChanged();

private:
  /// Where the user was: by node as long as nodes stay, else by row.
  struct TPlace {
    TNodeId Node = 0;
    int Row = -1;
    int Column = 0;
    int Scroll = 0;
  };

  TMemoryTree& Nodes() { return FModel.Nodes(); }
  const TMemoryTree& Nodes() const { return FModel.Nodes(); }
  void NodesChanged();
  void FlushSoon();
  TPlace CurrentPlace() const;
  void GoTo(const TPlace& place);
  void DeselectHidden();
  void ShowHeadings();
  void ShowSelection();
  void Selected(const QItemSelection& selected, const QItemSelection& deselected);

  TTreeModel FModel;
  QPointer<TTreeView> FView;
  QTimer FTimer;
  QSet<QString> FCollapsed; // headings whose rows are folded away
  int FUpdates = 0;
  bool FWasCleared = false;       // nodes of the views are others now
  bool FSelectionChanged = false; // by the form
  bool FShowsSelection = false;   // what the view tells is known
};

} // namespace workbench
