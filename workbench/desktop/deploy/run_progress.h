// The bar and the figures of a deploy that runs.
#pragma once

#include "workbench/deploy/deploy_observer.h"
#include "workbench/deploy/transfer_rate.h"
#include "workbench/desktop/deploy/deploy_rows_model.h"

#include <QTimer>
#include <QWidget>
#include <chrono>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QPlainTextEdit;
class QProgressBar;

namespace workbench {

/// Hears of the deploy on whichever thread it runs, keeps what it hears, and shows it a few times a
/// second, so that thousands of files do not hold up the window.
class TRunProgress final : public QWidget, public IDeployObserver {
  Q_OBJECT

public:
  /// The rows of the run are those of the model; what commands print goes to `output`. Both must
  /// outlive the object.
  TRunProgress(TDeployRowsModel& model, QPlainTextEdit& output, QWidget* parent);

  /// A run begins: the bar shows that something goes on, and nothing of earlier runs is left.
  void Begin();
  /// Shows what was heard last, and goes.
  void End();

  void Planned(const std::vector<TDeployRow>& rows) override;
  void BytesSent(std::uint64_t count) override;
  void RowDone(std::size_t index, const TDeployRow& row) override;
  void CommandSaid(const std::string& line) override;

signals:
  /// The plan is made, and files are on their way.
  void Started();

private:
  // What was heard and is not shown yet.
  struct THeard {
    std::optional<std::vector<TDeployRow>> Planned;
    std::chrono::steady_clock::time_point PlannedAt;
    std::uint64_t Bytes = 0;
    std::vector<TDeployRowsModel::TChange> Done;
    std::vector<std::string> Lines;
  };

  void Flush();
  void ShowFigures();

  TDeployRowsModel& FModel;
  QPlainTextEdit& FOutput;
  QProgressBar* FBar;
  QLabel* FStatus;
  QTimer FTimer;
  TTransferRate FRate;
  std::mutex FMutex; // of what was heard
  THeard FHeard;
};

} // namespace workbench
