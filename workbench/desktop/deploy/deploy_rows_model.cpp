#include "workbench/desktop/deploy/deploy_rows_model.h"

#include "workbench/desktop/text/deploy_words.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <algorithm>

namespace workbench {
namespace {

// Failed files come first when it is over; before, it is what wants a decision.
std::size_t RankOf(const TPanelRow& row, TDeployRowsModel::TPhase phase) {
  const TRowKind kind = KindOf(row.Row);
  if (phase == TDeployRowsModel::TPhase::Ended && kind == TRowKind::Failed)
    return 0;
  return 1 + static_cast<std::size_t>(kind);
}

} // namespace

void TDeployRowsModel::ShowPlan(std::vector<TDeployRow> rows,
                                const std::vector<TLeftOver>& leftOvers,
                                const TRowChoices& choices) {
  std::vector<TPanelRow> shown;
  shown.reserve(rows.size() + leftOvers.size());
  bool prunes = false;
  for (TDeployRow& row : rows) {
    prunes =
        prunes || row.State == TFileState::LeftOver || row.State == TFileState::LeftOverChanged;
    shown.push_back({.Row = std::move(row)});
  }
  for (const TLeftOver& leftOver : leftOvers) {
    if (!prunes) // those that are pruned stand among the rows
      shown.push_back(RowOf(leftOver));
  }
  for (TPanelRow& row : shown) {
    const auto before = choices.empty() ? choices.end() : choices.find(row.Row.RemoteFile);
    if (before != choices.end() && before->second.SizeThere == row.Row.SizeThere &&
        before->second.TimeThere == row.Row.TimeThere)
      SetTicked(row, before->second.Kind == TRowChoice::TKind::Take);
  }
  Reset(std::move(shown), TPhase::Plan);
}

void TDeployRowsModel::ShowWaiting(std::vector<TDeployRow> rows) {
  std::vector<TPanelRow> shown;
  shown.reserve(rows.size());
  for (TDeployRow& row : rows)
    shown.push_back({.Row = std::move(row)});
  Reset(std::move(shown), TPhase::Running);
}

void TDeployRowsModel::ShowEnded(std::vector<TDeployRow> rows) {
  std::vector<TPanelRow> shown;
  shown.reserve(rows.size());
  for (TDeployRow& row : rows)
    shown.push_back({.Row = std::move(row), .IsDone = true});
  Reset(std::move(shown), TPhase::Ended);
}

void TDeployRowsModel::Reset(std::vector<TPanelRow> rows, TPhase phase) {
  beginResetModel();
  FRows = std::move(rows);
  FPhase = phase;
  FFilter.reset();
  FIsLocked = false;
  FDoneCount = phase == TPhase::Ended ? FRows.size() : 0;
  Order();
  endResetModel();
}

// Rows of one rank stay in the order of the plan.
void TDeployRowsModel::Order() {
  std::array<std::size_t, RowKindCount + 2> starts{};
  std::vector<unsigned char> ranks(FRows.size());
  FShown.clear();
  FPlaces.assign(FRows.size(), FRows.size());
  for (std::size_t i = 0; i < FRows.size(); ++i) {
    ranks[i] = static_cast<unsigned char>(RankOf(FRows[i], FPhase));
    if (!FFilter || KindOf(FRows[i].Row) == *FFilter)
      ++starts[ranks[i] + std::size_t(1)];
  }
  for (std::size_t rank = 1; rank < starts.size(); ++rank)
    starts[rank] += starts[rank - 1];
  FShown.resize(starts.back());
  for (std::size_t i = 0; i < FRows.size(); ++i) {
    if (FFilter && KindOf(FRows[i].Row) != *FFilter)
      continue;
    FPlaces[i] = starts[ranks[i]]++;
    FShown[FPlaces[i]] = i;
  }
}

void TDeployRowsModel::SetFilter(std::optional<TRowKind> kind) {
  beginResetModel();
  FFilter = kind;
  Order();
  endResetModel();
}

// One signal for all of them: a signal for each would cost more than the files themselves.
void TDeployRowsModel::Finish(std::vector<TChange> changes) {
  std::size_t first = FShown.size();
  std::size_t last = 0;
  for (TChange& change : changes) {
    const std::size_t number = change.first;
    if (number >= FRows.size())
      continue;
    FDoneCount += FRows[number].IsDone ? 0 : 1;
    FRows[number].IsDone = true;
    FRows[number].Row = std::move(change.second);
    if (FPlaces[number] < FShown.size()) {
      first = std::min(first, FPlaces[number]);
      last = std::max(last, FPlaces[number]);
    }
  }
  if (first < FShown.size())
    emit dataChanged(index(static_cast<int>(first), 0),
                     index(static_cast<int>(last), ColumnCount - 1));
}

TDeployRowsModel::TTotals TDeployRowsModel::Totals() const {
  TTotals totals;
  for (const TPanelRow& row : FRows) {
    ++totals.Counts[static_cast<std::size_t>(KindOf(row.Row))];
    const TDeployAction action = PlannedAction(row);
    totals.ToCopy += action == TDeployAction::Copied ? 1 : 0;
    totals.ToRemove += action == TDeployAction::Removed ? 1 : 0;
    totals.LeftOut += action == TDeployAction::Skipped && row.Choice ? 1 : 0;
    totals.Undecided += IsUndecided(row) ? 1 : 0;
    if (action == TDeployAction::Copied && row.Row.Link.empty())
      totals.Bytes += row.Row.SizeHere;
  }
  return totals;
}

void TDeployRowsModel::SetTicks(const std::vector<int>& rows, bool on) {
  if (FPhase != TPhase::Plan || FIsLocked || rows.empty())
    return;
  for (const int row : rows)
    SetTicked(FRows[FShown[static_cast<std::size_t>(row)]], on);
  const auto [first, last] = std::minmax_element(rows.begin(), rows.end());
  emit dataChanged(index(*first, 0), index(*last, ColumnCount - 1));
  emit TicksChanged();
}

void TDeployRowsModel::Skip(const std::vector<int>& rows) {
  for (const int row : rows) {
    TPanelRow& skipped = FRows[FShown[static_cast<std::size_t>(row)]];
    if (FPhase != TPhase::Ended || KindOf(skipped.Row) != TRowKind::Failed)
      continue;
    skipped.Choice = TRowChoice::TKind::Leave;
    emit dataChanged(index(row, 0), index(row, ColumnCount - 1));
  }
}

TRowChoices TDeployRowsModel::Choices() const {
  TRowChoices choices;
  for (const TPanelRow& row : FRows) {
    if (row.Choice && FPhase == TPhase::Plan)
      choices.emplace(row.Row.RemoteFile,
                      TRowChoice{*row.Choice, row.Row.SizeThere, row.Row.TimeThere});
  }
  return choices;
}

TDeployRowsModel::TByFile TDeployRowsModel::ByFile() const {
  TByFile found;
  found.reserve(FRows.size());
  for (std::size_t i = 0; i < FRows.size(); ++i)
    found.emplace(FRows[i].Row.RemoteFile, i);
  return found;
}

bool TDeployRowsModel::Confirms(const std::vector<TDeployRow>& planned) const {
  TByFile byFile; // needed where the plans do not have the same rows
  for (std::size_t i = 0; i < planned.size(); ++i) {
    const TDeployRow& row = planned[i];
    if (row.Action != TDeployAction::Copied && row.Action != TDeployAction::Mode &&
        row.Action != TDeployAction::Removed)
      continue;
    std::size_t number = i;
    if (number >= FRows.size() || FRows[number].Row.RemoteFile != row.RemoteFile) {
      if (byFile.empty())
        byFile = ByFile();
      const auto found = byFile.find(row.RemoteFile);
      if (found == byFile.end())
        return false;
      number = found->second;
    }
    const bool failed =
        FPhase == TPhase::Ended && FRows[number].Row.Action == TDeployAction::Failed;
    if (!failed && PlannedAction(FRows[number]) != row.Action)
      return false;
  }
  return true;
}

int TDeployRowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FShown.size());
}

int TDeployRowsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

Qt::ItemFlags TDeployRowsModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (!index.isValid())
    return flags;
  flags |= Qt::ItemNeverHasChildren;
  if (index.column() == File && FPhase == TPhase::Plan && !FIsLocked && HasTick(Row(index.row())))
    flags |= Qt::ItemIsUserCheckable;
  return flags;
}

QVariant TDeployRowsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const TPanelRow& row = Row(index.row());
  const TRowKind kind = KindOf(row.Row);
  switch (role) {
  case Qt::DisplayRole:
    return Text(row, index.column());
  case Qt::ToolTipRole:
    return Text(row, index.column()).toHtmlEscaped();
  case Qt::TextAlignmentRole:
    return index.column() == Size ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
  case Qt::DecorationRole:
    return index.column() == Action ? QVariant(Icon(row)) : QVariant();
  case Qt::ForegroundRole: {
    const auto color = FPhase == TPhase::Running && !row.IsDone ? std::nullopt : KindColor(kind);
    return color ? QVariant(*color) : QVariant();
  }
  case Qt::CheckStateRole:
    if (index.column() != File || FPhase != TPhase::Plan || !HasTick(row))
      return {};
    return IsTicked(row) ? Qt::Checked : Qt::Unchecked;
  case Qt::AccessibleTextRole:
    return index.column() == File ? Text(row, File) + QStringLiteral(", ") + Text(row, Action)
                                  : Text(row, index.column());
  default:
    return {};
  }
}

bool TDeployRowsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable))
    return false;
  SetTicks({index.row()}, value.toInt() == Qt::Checked);
  return true;
}

QIcon TDeployRowsModel::Icon(const TPanelRow& row) const {
  const TRowKind kind = KindOf(row.Row);
  if (FPhase == TPhase::Plan)
    return KindIcon(kind);
  if (!row.IsDone)
    return WaitingIcon();
  const bool isGood = kind == TRowKind::Copy || kind == TRowKind::Mode || kind == TRowKind::Remove;
  return isGood ? DoneIcon() : KindIcon(kind);
}

QString TDeployRowsModel::Text(const TPanelRow& row, int column) const {
  const TDeployRow& file = row.Row;
  const std::uint64_t size = FPhase == TPhase::Plan ? file.SizeHere : file.Bytes;
  switch (column) {
  case File:
    return ToQString(Visible(file.LocalName));
  case Action:
    return FPhase == TPhase::Plan ? PlanWord(row) : ResultWord(row);
  case Size:
    return size == 0 ? QString() : SizeText(size);
  case State:
    return file.State ? StateWord(*file.State) : QString();
  case Target:
    return ToQString(Visible(file.RemoteFile));
  case Reason:
    return EngineText(file.Error.empty() ? file.Reason : file.Error);
  default:
    return {};
  }
}

QVariant TDeployRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole && section == Size)
    return QVariant(Qt::AlignRight | Qt::AlignVCenter); // as its numbers
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  switch (section) {
  case File:
    return tr("File");
  case Action:
    return FPhase == TPhase::Plan ? tr("Action") : tr("Result");
  case Size:
    return tr("Size");
  case State:
    return tr("State");
  case Target:
    return tr("On the target");
  case Reason:
    return tr("Reason");
  default:
    return {};
  }
}

} // namespace workbench
