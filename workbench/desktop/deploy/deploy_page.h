// A deploy in the panel below the list: its plan, then how it goes on, then what came of it.
#pragma once

#include "package/host/api/deployment_target.h"
#include "workbench/desktop/deploy/deploy_rows_model.h"

#include <QWidget>
#include <atomic>
#include <filesystem>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QModelIndex;
class QPlainTextEdit;
class QPushButton;
class QTreeView;

namespace workbench {

class IDeployObserver;
class TOptionsButton;
class TRunProgress;

/// What is deployed where to.
struct TDeployKey {
  std::filesystem::path Project;
  deployment::TDeploymentTarget Target = {};

  bool operator==(const TDeployKey&) const = default;
};

class TDeployPage final : public QWidget {
  Q_OBJECT

public:
  explicit TDeployPage(QWidget* parent);

  /// A plan is made, or carried out. Cancel sets the flag, which must live until End or ShowPlan.
  void Begin(const TDeployKey& key, std::atomic<int>& cancelled);
  /// Shows a plan that waits to be confirmed. `isOther` when it is not the one that was confirmed.
  void ShowPlan(TDeployReport report, bool isOther);
  /// The run has ended: shows what its report says.
  void End(TDeployReport report);

  bool IsRunning() const { return FCancelled != nullptr; }
  /// True while a plan waits to be confirmed.
  bool IsAsking() const { return FIsAsking; }
  /// True when this is to be carried out as it stands: the plan was looked at, or a run is to be
  /// repeated.
  bool IsConfirmed(const TDeployKey& key) const { return key == FKey && (FIsAsking || FIsRetry); }
  /// Of what is shown.
  const TDeployKey& Key() const { return FKey; }
  /// What was decided about single files.
  TRowChoices Choices() const { return FIsAsking ? FModel->Choices() : FChoices; }
  /// The plan is not to be confirmed any more.
  void Withdraw();
  const TDeployRowsModel& Rows() const { return *FModel; }
  const TOptionsButton& Options() const { return *FOptions; }
  IDeployObserver& Observer();
  /// What ended how, and the rows that are shown, as lines of text.
  QString AsText() const;
  /// The focus goes to the rows.
  void FocusRows();

signals:
  /// The plan that is shown is to be carried out, or a run to be repeated.
  void DeployWanted();
  /// A plan is to be made anew.
  void PlanWanted();
  void CloseWanted();
  /// The user wants to see the entry of this local name in the list.
  void EntryWanted(const QString& localName);
  /// Theirs and ours are to be shown.
  void DifferenceWanted(const TDeployRow& row);
  /// A profile for the target is to be made, or to be looked at.
  void NewProfileWanted();
  void ProfilesWanted();

private:
  QWidget* MakeTools();
  QWidget* MakeRows();
  QWidget* MakeButtons();
  QPushButton* AddButton(QWidget& row, const QString& text, const char* name);
  void ShowPhase();
  void ShowSummary();
  void FillFilter();
  void UpdateRowButtons();
  std::vector<int> SelectedRows() const;
  void TickSelected(bool on);
  void SkipSelected();
  void Explain(const QModelIndex& index);
  void Cancel();
  QString TargetText() const;

  TDeployRowsModel* FModel;
  QLabel* FTitle;
  QLabel* FSummary;
  QPlainTextEdit* FOutput;
  TRunProgress* FProgress;
  QTreeView* FView = nullptr;
  QComboBox* FFilter = nullptr;
  TOptionsButton* FOptions = nullptr;
  QPushButton* FTake = nullptr;
  QPushButton* FKeep = nullptr;
  QPushButton* FDifference = nullptr;
  QPushButton* FRetry = nullptr;
  QPushButton* FSkip = nullptr;
  QPushButton* FNewProfile = nullptr;
  QPushButton* FProfiles = nullptr;
  QPushButton* FGoTo = nullptr;
  QPushButton* FCancel = nullptr;
  QPushButton* FDeploy = nullptr;
  QPushButton* FClose = nullptr;
  std::atomic<int>* FCancelled = nullptr; // while a run goes on
  TDeployKey FKey;
  TDeployReport FReport; // of what is shown, without its rows
  QString FSummaryText;  // of a run that has ended
  TRowChoices FChoices;  // about files of the key
  bool FIsAsking = false;
  bool FIsOther = false; // the plan is not the one that was confirmed
  bool FIsRetry = false; // the run that has ended is to be repeated
};

} // namespace workbench
