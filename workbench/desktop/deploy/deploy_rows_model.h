// The files of a deploy as an item model: the plan with its ticks, then progress, then results.
#pragma once

#include "workbench/desktop/deploy/panel_row.h"

#include <QAbstractTableModel>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace workbench {

/// A row for each file that the filter lets through; what needs a person stands first.
class TDeployRowsModel final : public QAbstractTableModel {
  Q_OBJECT

public:
  enum TColumn { File, Action, Size, State, Target, Reason, ColumnCount };
  enum class TPhase { Plan, Running, Ended };
  using TChange = std::pair<std::size_t, TDeployRow>;

  /// Of all rows, whichever are shown.
  struct TTotals {
    std::array<std::size_t, RowKindCount> Counts = {}; ///< by kind
    std::size_t ToCopy = 0;
    std::size_t ToRemove = 0;
    std::size_t LeftOut = 0;   ///< unticked, and done otherwise
    std::size_t Undecided = 0; ///< conflicts
    std::uint64_t Bytes = 0;   ///< to be sent
  };

  explicit TDeployRowsModel(QObject* parent) : QAbstractTableModel(parent) {}

  /// Starts anew with a plan. Earlier choices stay where the target is still what it was then.
  void ShowPlan(std::vector<TDeployRow> rows, const std::vector<TLeftOver>& leftOvers,
                const TRowChoices& choices);
  /// Starts anew with files that all wait.
  void ShowWaiting(std::vector<TDeployRow> rows);
  /// Starts anew with files that all have ended.
  void ShowEnded(std::vector<TDeployRow> rows);
  /// These files have ended; the numbers are those of the run.
  void Finish(std::vector<TChange> changes);
  void Clear() { ShowWaiting({}); }
  /// Ticks stay as they are until the next start.
  void Lock() { FIsLocked = true; }

  TPhase Phase() const { return FPhase; }
  std::size_t Count() const { return FRows.size(); }
  std::size_t DoneCount() const { return FDoneCount; }
  TTotals Totals() const;
  /// Shows the rows of this kind alone; nothing: all.
  void SetFilter(std::optional<TRowKind> kind);
  const TPanelRow& Row(int row) const { return FRows[FShown[static_cast<std::size_t>(row)]]; }
  /// Ticks or unticks rows that are shown; those without a box stay.
  void SetTicks(const std::vector<int>& rows, bool on);

  /// Says of rows that failed, of those that are shown, that they are left out the next time.
  void Skip(const std::vector<int>& rows);

  /// What was decided about the plan that is shown.
  TRowChoices Choices() const;
  /// True when the rows do nothing that the shown plan, as it is ticked, does not; of a run that
  /// has ended, what failed may be done, too.
  bool Confirms(const std::vector<TDeployRow>& planned) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
  /// A tick was set or taken away.
  void TicksChanged();

private:
  using TByFile = std::unordered_map<std::string_view, std::size_t>;

  void Reset(std::vector<TPanelRow> rows, TPhase phase);
  void Order();
  QString Text(const TPanelRow& row, int column) const;
  QIcon Icon(const TPanelRow& row) const;
  TByFile ByFile() const;

  std::vector<TPanelRow> FRows;
  std::vector<std::size_t> FShown;  // numbers of rows, in the order of the view
  std::vector<std::size_t> FPlaces; // of each row in the view; the number of rows: not shown
  std::optional<TRowKind> FFilter;
  TPhase FPhase = TPhase::Running;
  std::size_t FDoneCount = 0;
  bool FIsLocked = false;
};

} // namespace workbench
