// The panel below the list: what a deploy will do, does and did, and the deploys before it.
#pragma once

#include <QWidget>

class QTabWidget;

namespace workbench {

class TDeployPage;
class THistoryPage;

class TDeployPanel final : public QWidget {
  Q_OBJECT

public:
  explicit TDeployPanel(QWidget* parent = nullptr);

  TDeployPage& Page() { return *FPage; }
  THistoryPage& History() { return *FHistory; }
  /// Brings a page forward, and the panel with it.
  void ShowPage();
  void ShowHistory();
  /// A page of others, behind the two. Its owner is the panel from now on.
  void Add(QWidget* page, const QString& title);
  /// Brings a page that was added forward, and the panel with it.
  void Show(QWidget& page);
  /// True while a plan is made or carried out, and while deploys are taken back.
  bool IsRunning() const;
  /// True while a plan is shown and waits to be confirmed.
  bool IsAsking() const;

signals:
  /// The user turned to the history.
  void HistoryShown();
  /// The user turned to a page that was added.
  void PageTurned();
  /// The user put the panel away.
  void Closed();

protected:
  /// A panel whose run goes on stays. One that comes back shows what it showed.
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  QTabWidget* FTabs;
  TDeployPage* FPage;
  THistoryPage* FHistory;
};

} // namespace workbench
