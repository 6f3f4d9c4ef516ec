// The panel below the list: what a deploy will do, does and did.
#pragma once

#include <QWidget>

namespace workbench {

class TDeployPage;

class TDeployPanel final : public QWidget {
  Q_OBJECT

public:
  explicit TDeployPanel(QWidget* parent = nullptr);

  TDeployPage& Page() { return *FPage; }
  bool IsRunning() const;
  /// True while a plan is shown and waits to be confirmed.
  bool IsAsking() const;

signals:
  /// The user put the panel away.
  void Closed();

protected:
  /// A panel whose run goes on stays. One that is put away asks nothing any more, and shows the
  /// same when it comes back.
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  TDeployPage* FPage;
};

} // namespace workbench
