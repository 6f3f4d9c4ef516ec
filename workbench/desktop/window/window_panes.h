// The places of the window: the projects, beside them what tells of the selection, below them what
// tells of deploys.
#pragma once

#include <QByteArray>
#include <QSplitter>

namespace workbench {

/// What stands in a place takes room while it is visible only.
class TWindowPanes final : public QSplitter {
  Q_OBJECT

public:
  /// `pages` has the room that is left. All widgets are owned by the panes.
  TWindowPanes(QWidget* pages, QWidget* parent);

  /// Stands to the right of the pages, at its own width at first.
  void AddBeside(QWidget* pane);
  /// Stands below everything, at its own height at first.
  void AddBelow(QWidget* pane);

  /// How the room is shared: between above and below, and between left and right.
  QByteArray Heights() const { return saveState(); }
  QByteArray Widths() const { return FRow->saveState(); }
  /// To be called when all panes were added; what does not fit them is left alone.
  void Restore(const QByteArray& heights, const QByteArray& widths);

private:
  QSplitter* FRow;
};

} // namespace workbench
