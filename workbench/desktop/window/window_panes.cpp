#include "workbench/desktop/window/window_panes.h"

namespace workbench {

TWindowPanes::TWindowPanes(QWidget* pages, QWidget* parent)
    : QSplitter(Qt::Vertical, parent), FRow(new QSplitter(Qt::Horizontal, this)) {
  FRow->addWidget(pages);
  addWidget(FRow);
  for (QSplitter* splitter : {static_cast<QSplitter*>(this), FRow}) {
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 1);
  }
}

void TWindowPanes::AddBeside(QWidget* pane) {
  FRow->addWidget(pane);
  FRow->setStretchFactor(FRow->count() - 1, 0);
}

void TWindowPanes::AddBelow(QWidget* pane) {
  addWidget(pane);
  setStretchFactor(count() - 1, 0);
}

void TWindowPanes::Restore(const QByteArray& heights, const QByteArray& widths) {
  restoreState(heights);
  FRow->restoreState(widths);
}

} // namespace workbench
