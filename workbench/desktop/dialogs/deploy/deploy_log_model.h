// The files of a deploy and what became of each, as an item model.
#pragma once

#include "workbench/deploy/deploy_report.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <cstddef>
#include <utility>
#include <vector>

namespace workbench {

/// A row for each file, in the order of the plan.
class TDeployLogModel final : public QAbstractTableModel {
  Q_OBJECT

public:
  enum TColumn { File, Result, Size, Target, Reason, ColumnCount };
  /// True for a file that failed.
  static constexpr int FailedRole = Qt::UserRole;
  using TChange = std::pair<std::size_t, TDeployRow>;

  explicit TDeployLogModel(QObject* parent) : QAbstractTableModel(parent) {}

  /// Starts anew with files that all wait.
  void SetWaiting(std::vector<TDeployRow> rows);
  /// Starts anew with files that all have ended.
  void SetDone(std::vector<TDeployRow> rows);
  /// These files have ended.
  void Finish(const std::vector<TChange>& changes);
  std::size_t DoneCount() const { return FDoneCount; }
  const TDeployRow& Row(int row) const { return FRows[static_cast<std::size_t>(row)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  void Reset(std::vector<TDeployRow> rows, bool done);
  bool HasFailed(std::size_t row) const {
    return FDone[row] && FRows[row].Action == TDeployAction::Failed;
  }
  QString Text(std::size_t row, int column) const;

  std::vector<TDeployRow> FRows;
  std::vector<bool> FDone;
  std::size_t FDoneCount = 0;
};

/// All files, or those that failed alone.
class TDeployLogFilter final : public QSortFilterProxyModel {
  Q_OBJECT

public:
  explicit TDeployLogFilter(QObject* parent) : QSortFilterProxyModel(parent) {}
  void SetFailedOnly(bool on);

protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
  bool FFailedOnly = false;
};

} // namespace workbench
