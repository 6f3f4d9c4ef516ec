#include "workbench/desktop/deploy/deploy_panel.h"

#include "workbench/desktop/deploy/deploy_page.h"
#include "workbench/desktop/deploy/history_page.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace workbench {

TDeployPanel::TDeployPanel(QWidget* parent)
    : QWidget(parent), FTabs(new QTabWidget(this)), FPage(new TDeployPage(FTabs)),
      FHistory(new THistoryPage(FTabs)) {
  setWindowTitle(tr("Deploy"));
  FTabs->setDocumentMode(true);
  FTabs->setAccessibleName(tr("Deploy and its history"));
  FTabs->tabBar()->setAccessibleName(FTabs->accessibleName());
  FTabs->addTab(FPage, tr("Deploy"));
  FTabs->addTab(FHistory, tr("History"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(FTabs);
  connect(FPage, &TDeployPage::CloseWanted, this, &QWidget::close);
  connect(FHistory, &THistoryPage::CloseWanted, this, &QWidget::close);
  connect(FTabs, &QTabWidget::tabBarClicked, this, [this](int index) {
    if (FTabs->widget(index) == FHistory && !IsRunning())
      emit HistoryShown();
    else if (FTabs->widget(index) != FPage)
      emit PageTurned();
  });
}

void TDeployPanel::ShowPage() {
  FTabs->setCurrentWidget(FPage);
  show();
}

void TDeployPanel::ShowHistory() {
  FTabs->setCurrentWidget(FHistory);
  show();
}

void TDeployPanel::Add(QWidget* page, const QString& title) {
  FTabs->addTab(page, title);
}

void TDeployPanel::Show(QWidget& page) {
  FTabs->setCurrentWidget(&page);
  show();
}

bool TDeployPanel::IsRunning() const {
  return FPage->IsRunning() || FHistory->IsRunning();
}

bool TDeployPanel::IsAsking() const {
  return FPage->isVisible() && FPage->IsAsking();
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
