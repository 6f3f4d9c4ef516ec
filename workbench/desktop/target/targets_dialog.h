// Several targets at once: which ones, and what each of them says of the files.
#pragma once

#include "package/host/api/deployment_target.h"
#include "workbench/desktop/target/targets_model.h"

#include <QDialog>
#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTableView;

namespace workbench {

class TOpenProject;
class TSession;
struct TProfile;

class TTargetsDialog final : public QDialog {
  Q_OBJECT

public:
  /// Does work that takes its time while the window goes on painting.
  using TWork = std::function<void(const std::function<void()>& work)>;

  /// Session and project must outlive the object. Offers the profiles of the target's platform.
  TTargetsDialog(TSession& session, TOpenProject& project,
                 const deployment::TDeploymentTarget& target, TWork work, QWidget* parent);

private:
  void MakeProfiles();
  void MakeTable();
  void Place();
  void ChooseGroup();
  std::vector<TProfile> Chosen() const;
  void ShowButton();
  void Ask();

  TSession& FSession;
  TOpenProject& FProject;
  const deployment::TDeploymentTarget FTarget;
  const TWork FWork;
  TTargetsModel* FModel;
  QListWidget* FProfiles;
  QComboBox* FGroups;
  QPushButton* FAsk;
  QCheckBox* FDifferences;
  QTableView* FTable;
  QLabel* FSummary;
};

} // namespace workbench
