// The deploys that a target remembers, as an item model.
#pragma once

#include "workbench/deploy/record/target_record.h"

#include <QAbstractTableModel>
#include <cstddef>
#include <vector>

namespace workbench {

/// A row for each run, the newest first.
class TRunsModel final : public QAbstractTableModel {
  Q_OBJECT

public:
  enum TColumn { When, Who, Result, Copied, Removed, Failed, Revision, ColumnCount };

  explicit TRunsModel(QObject* parent) : QAbstractTableModel(parent) {}

  void Show(std::vector<TRecordedRun> runs);
  const TRecordedRun& Run(int row) const { return FRuns[static_cast<std::size_t>(row)]; }
  /// How many runs are taken back with this one: itself and the newer ones that still stand.
  int StepsTo(int row) const;
  bool CanUndo(int row) const { return Run(row).Result != TRunResult::Undone; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  QString Text(const TRecordedRun& run, int column) const;

  std::vector<TRecordedRun> FRuns;
};

} // namespace workbench
