#include "workbench/ide/view/view_place.h"

#include <QVBoxLayout>

namespace workbench {

TViewPlace::TViewPlace(QWidget& view, QWidget* parent) : QWidget(parent), FView(&view) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  setFocusProxy(FView);
}

// A place takes its children with itself.
TViewPlace::~TViewPlace() {
  if (!FView || FView->parentWidget() != this)
    return;
  FView->hide();
  FView->setParent(nullptr);
}

void TViewPlace::Take() {
  if (!FView || FView->parentWidget() == this)
    return;
  layout()->addWidget(FView);
  FView->show();
}

void TViewPlace::showEvent(QShowEvent* event) {
  Take();
  QWidget::showEvent(event);
}

} // namespace workbench
