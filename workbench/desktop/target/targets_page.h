// Several targets side by side: which ones, and what each of them says of the files.
#pragma once

#include "package/host/api/deployment_target.h"
#include "workbench/desktop/target/targets_model.h"

#include <QString>
#include <QWidget>
#include <atomic>
#include <functional>
#include <memory>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTableView;

namespace workbench {

class TSession;
struct TDeploySubject;
struct TProfile;

/// What the targets are asked about.
struct TTargetsKey {
  QString Project; ///< its file; empty while none is open
  deployment::TDeploymentTarget Target = {};

  bool operator==(const TTargetsKey&) const = default;
};

class TTargetsPage final : public QWidget {
  Q_OBJECT

public:
  struct TUses {
    /// The files of what is shown now; null when nothing is.
    std::function<std::unique_ptr<TDeploySubject>()> Subject;
    /// Does work that takes its time while the window goes on painting.
    std::function<void(const std::function<void()>& work)> Work;
  };

  /// The session must outlive the object.
  TTargetsPage(TSession& session, TUses uses, QWidget* parent);

  /// Offers the profiles of the target's platform; ticks stay. Answers that were given about this
  /// very target are shown again, others are not.
  void Show(const TTargetsKey& key);
  /// Nobody can be asked while other work goes on.
  void SetBusy(bool busy);
  /// Takes the keyboard to what asks the targets.
  void Focus();

signals:
  /// The user wants to see the entry of that stored local name in the list.
  void EntryWanted(const QString& localName);
  void CloseWanted();

private:
  void MakeProfiles();
  void MakeTable();
  void Place();
  QWidget* MakeButtons();
  void ReadProfiles();
  void ChooseGroup();
  std::vector<TProfile> Chosen() const;
  void Press();
  void Ask();
  void Update();

  TSession& FSession;
  const TUses FUses;
  TTargetsModel* FModel;
  QLabel* FTitle;
  QListWidget* FProfiles;
  QComboBox* FGroups;
  QPushButton* FAsk;
  QCheckBox* FDifferences;
  QTableView* FTable;
  QLabel* FSummary;
  TTargetsKey FKey;
  TTargetsKey FAnswered;                        // what the answers of the table are about
  QString FWhen;                                // they were given
  std::shared_ptr<std::atomic<int>> FCancelled; // while the targets are asked
  bool FIsBusy = false;
};

} // namespace workbench
