// The files of a list on several targets: files down, targets across.
#pragma once

#include "workbench/deploy/deploy_report.h"

#include <QAbstractTableModel>
#include <QString>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace workbench {

/// What one target said.
struct TTargetAnswer {
  QString Profile = {};
  QString Problem = {};                                    ///< why it said nothing
  std::unordered_map<std::string, TFileState> States = {}; ///< by stored local name
};

/// The answer that a plan for the target gives.
TTargetAnswer AnswerOfPlan(const QString& profile, const TDeployReport& report);

class TTargetsModel final : public QAbstractTableModel {
  Q_OBJECT

public:
  using QAbstractTableModel::QAbstractTableModel;

  /// `files` are the stored local names of the rows.
  void Set(std::vector<std::string> files, std::vector<TTargetAnswer> targets);
  /// Leaves out what is the same on every target that answered.
  void SetDifferencesOnly(bool only);
  /// "lab-pc: 3 changed here, 12 same", or why it said nothing; a line for each target.
  QStringList Summary() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  const TFileState* StateOf(const std::string& file, int target) const;
  bool IsDifferent(const std::string& file) const;
  void ShowRows();

  std::vector<std::string> FFiles;
  std::vector<TTargetAnswer> FTargets;
  std::vector<std::size_t> FShown; // of the files
  bool FDifferencesOnly = false;
};

} // namespace workbench
