// The deploys that the target remembers, and taking them back.
#pragma once

#include "workbench/deploy/undo_run.h"
#include "workbench/desktop/deploy/deploy_page.h"

#include <QTimer>
#include <QWidget>
#include <atomic>
#include <cstddef>

class QLabel;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace workbench {

class TRunsModel;

class THistoryPage final : public QWidget {
  Q_OBJECT

public:
  explicit THistoryPage(QWidget* parent);

  /// Work on the target begins. Cancel sets the flag, which must live until End.
  void Begin(const TDeployKey& key, const QString& what, std::atomic<int>& cancelled);
  /// The work has ended; the sentence says how.
  void End(const QString& summary);
  void ShowRuns(std::vector<TRecordedRun> runs);
  bool IsRunning() const { return FCancelled != nullptr; }
  const TDeployKey& Key() const { return FKey; }
  /// So many of the files of a run are taken back. From any thread.
  void Progress(std::size_t done, std::size_t files);
  void FocusRuns();

signals:
  /// The runs are to be read from the target.
  void RunsWanted();
  /// The newest runs that still stand, so many, are to be taken back; the user said yes.
  void UndoWanted(int steps);
  void CloseWanted();

private:
  QWidget* MakeButtons();
  void Undo();
  void ShowProgress();
  void Update();

  TRunsModel* FModel;
  QLabel* FTitle;
  QLabel* FSummary;
  QProgressBar* FBar;
  QTreeView* FView;
  QPushButton* FUndo = nullptr;
  QPushButton* FRefresh = nullptr;
  QPushButton* FCancel = nullptr;
  QPushButton* FClose = nullptr;
  QTimer FTimer;
  std::atomic<std::size_t> FDone = 0;
  std::atomic<std::size_t> FFiles = 0;
  std::atomic<int>* FCancelled = nullptr; // while work goes on
  TDeployKey FKey;
};

/// How taking back ended, in one or more sentences, with the files that stayed as they are.
QString UndoSummary(const TUndoReport& report);

} // namespace workbench
