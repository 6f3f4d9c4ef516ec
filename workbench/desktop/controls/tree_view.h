// The view of a tree control: what mouse and keys do in it.
#pragma once

#include "workbench/desktop/controls/tree_delegate.h"
#include "workbench/desktop/controls/tree_model.h"

#include <QPersistentModelIndex>
#include <QTimer>
#include <QTreeView>

namespace workbench {

/// Keys beside those of every list: Left and Right choose the cell, F2 edits it, Space switches the
/// boxes of all selected rows.
class TTreeView final : public QTreeView {
  Q_OBJECT

public:
  TTreeView(TTreeModel& model, const deployment::TTreeOptions& options, QWidget* parent);

  /// Widths at 100 % scaling; set once.
  void SetWidths(const std::vector<deployment::TTreeColumn>& columns);
  TTreeDelegate& Delegate() { return *FDelegate; }

signals:
  /// Files of this machine were dropped on the rows.
  void FilesDropped(const QStringList& files);
  void HeaderClicked(int column, Qt::MouseButton button);
  /// The user asks for the menu of the rows, at a place of the screen.
  void MenuWanted(const QPoint& place);

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QStyleOptionViewItem RowOption() const;
  QRect CheckBoxOf(const QModelIndex& index) const;
  void SetPalette();
  bool ShowCutText(const QHelpEvent& event);
  bool EditNear(QModelIndex index);
  void ClickChecks();
  void MoveCell(int step);

  TTreeModel& FModel;
  const deployment::TTreeOptions FOptions;
  TTreeDelegate* FDelegate;
  QTimer FEditTimer;
  QPersistentModelIndex FEditSoon;
  QPersistentModelIndex FPressed; // the cell in which a second click began
};

} // namespace workbench
