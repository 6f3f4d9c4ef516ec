// One file of a deploy as the panel shows it: planned, under way, or done with.
#pragma once

#include "workbench/deploy/deploy_report.h"
#include "workbench/deploy/plan/row_choices.h"

#include <QColor>
#include <QIcon>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace workbench {

/// What a row is about, in the order in which rows of a plan stand.
enum class TRowKind {
  Conflict, ///< others changed it on the target
  Failed,
  Copy,
  Mode,
  Remove,
  LeftOver,
  Kept,
  Skipped,
  Cancelled,
  Same,
};

inline constexpr std::size_t RowKindCount = 10;

struct TPanelRow {
  TDeployRow Row;
  /// What the user decided; nothing: as it is planned.
  std::optional<TRowChoice::TKind> Choice = std::nullopt;
  bool IsDone = false; ///< it has ended, one way or the other
};

/// The row of a file that was deployed and is not in the list any more.
TPanelRow RowOf(const TLeftOver& leftOver);

TRowKind KindOf(const TDeployRow& row);
/// True when a box says whether the run does something about it.
bool HasTick(const TPanelRow& row);
bool IsTicked(const TPanelRow& row);
void SetTicked(TPanelRow& row, bool on);
/// True for a conflict about which nothing was decided yet.
bool IsUndecided(const TPanelRow& row);
/// What the run will do.
TDeployAction PlannedAction(const TPanelRow& row);

/// What the run will do, in a word or two.
QString PlanWord(const TPanelRow& row);
/// What became of it.
QString ResultWord(const TPanelRow& row);
/// Such as "To copy", for a choice of rows.
QString KindWord(TRowKind kind, bool isPlan);

/// A sign of its own for each kind, good on light and on dark.
QIcon KindIcon(TRowKind kind);
/// Of a file that waits.
QIcon WaitingIcon();
/// Of a file that was brought to its end.
QIcon DoneIcon();
/// Of the text; nothing for the usual one.
std::optional<QColor> KindColor(TRowKind kind);

} // namespace workbench
