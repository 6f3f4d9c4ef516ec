#include "workbench/desktop/deploy/deploy_panel.h"

#include "workbench/desktop/deploy/deploy_page.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace workbench {

TDeployPanel::TDeployPanel(QWidget* parent) : QWidget(parent), FPage(new TDeployPage(this)) {
  setWindowTitle(tr("Deploy"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(FPage);
  connect(FPage, &TDeployPage::CloseWanted, this, &QWidget::close);
}

bool TDeployPanel::IsRunning() const {
  return FPage->IsRunning();
}

bool TDeployPanel::IsAsking() const {
  return isVisible() && FPage->IsAsking();
}

void TDeployPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !IsRunning())
    close();
  else
    QWidget::keyPressEvent(event);
}

void TDeployPanel::closeEvent(QCloseEvent* event) {
  if (IsRunning()) {
    event->ignore();
    return;
  }
  event->accept();
  emit Closed();
}

} // namespace workbench
