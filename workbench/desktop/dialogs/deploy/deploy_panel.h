// What the window shows of a deploy while it runs, and of its end.
#pragma once

#include "workbench/deploy/deploy_observer.h"
#include "workbench/deploy/transfer_rate.h"
#include "workbench/desktop/dialogs/deploy/deploy_log_model.h"

#include <QTimer>
#include <QWidget>
#include <atomic>
#include <chrono>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace workbench {

/// Hears of the deploy on whichever thread it runs, keeps what it hears, and shows it a few times a
/// second, so that thousands of files do not hold up the window.
class TDeployPanel final : public QWidget, public IDeployObserver {
  Q_OBJECT

public:
  explicit TDeployPanel(QWidget* parent = nullptr);

  /// A run begins, and the panel is shown. Cancel sets the flag, which must live until End.
  void Begin(std::atomic<int>& cancelled);
  /// The run has ended: shows what its report says. The panel stays until it is closed.
  void End(const TDeployReport& report, bool dryRun);
  bool IsRunning() const { return FCancelled != nullptr; }
  /// What ended how, and the rows that are shown, as lines of text.
  QString AsText() const;

  void Planned(const std::vector<TDeployRow>& rows) override;
  void BytesSent(std::uint64_t count) override;
  void RowDone(std::size_t index, const TDeployRow& row) override;
  void CommandSaid(const std::string& line) override;

signals:
  /// The user put the panel away.
  void Closed();

protected:
  /// A panel whose run goes on stays.
  void closeEvent(QCloseEvent* event) override;

private:
  // What was heard and is not shown yet.
  struct THeard {
    std::optional<std::vector<TDeployRow>> Planned;
    std::chrono::steady_clock::time_point PlannedAt;
    std::uint64_t Bytes = 0;
    std::vector<TDeployLogModel::TChange> Done;
    std::vector<std::string> Lines;
  };

  QWidget* MakeLog();
  QWidget* MakeButtons();
  void Flush();
  void ShowProgress();
  void Cancel();
  void Explain(const QModelIndex& shown);
  void SetRunning(bool running);

  QLabel* FSummary;
  QProgressBar* FBar;
  QLabel* FStatus;
  QTreeView* FLog = nullptr;
  QPlainTextEdit* FOutput;
  QCheckBox* FFailedOnly = nullptr;
  QPushButton* FCancel = nullptr;
  QPushButton* FClose = nullptr;
  TDeployLogModel FModel;
  TDeployLogFilter FFilter;
  QTimer FTimer;
  TTransferRate FRate;
  std::atomic<int>* FCancelled = nullptr; // while a run goes on
  std::mutex FMutex;                      // of what was heard
  THeard FHeard;
};

} // namespace workbench
