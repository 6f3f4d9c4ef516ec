#include "workbench/desktop/deploy/panel_row.h"

#include "workbench/desktop/controls/svg_icon.h"
#include "workbench/desktop/text/deploy_words.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPalette>
#include <array>
#include <string_view>

namespace workbench {
namespace {

struct TRowWords {
  Q_DECLARE_TR_FUNCTIONS(TRowWords)
};

// Shapes that are told apart without their colours. In the order of the kinds.
constexpr std::array<std::string_view, RowKindCount> KindImages{
    R"(<path d="M8 1.5l7 12.5H1z" fill="#d97706"/><path d="M7.2 6h1.6v4H7.2zM7.2 11h1.6v1.6H7.2z" fill="#fff"/>)",
    R"(<circle cx="8" cy="8" r="7" fill="#e5484d"/><path d="M5 5l6 6M11 5l-6 6" stroke="#fff" stroke-width="2"/>)",
    R"(<path d="M8 1.5l6 6.5h-3.5v6h-5V8H2z" fill="#3b82c4"/>)",
    R"(<circle cx="5" cy="8" r="3" fill="none" stroke="#3b82c4" stroke-width="2"/><path d="M8 8h7M12 8v3" stroke="#3b82c4" stroke-width="2"/>)",
    R"(<path d="M2 6.5h12v3H2z" fill="#e5484d"/>)",
    R"(<circle cx="8" cy="8" r="6" fill="none" stroke="#d97706" stroke-width="2" stroke-dasharray="3 2"/>)",
    R"(<path d="M3 7h10v7H3z" fill="#808488"/><path d="M5 7V5a3 3 0 0 1 6 0v2" fill="none" stroke="#808488" stroke-width="2"/>)",
    R"(<path d="M2 3l6 5-6 5zM8 3l6 5-6 5z" fill="#808488"/>)",
    R"(<path d="M3 3h10v10H3z" fill="#808488"/>)",
    R"(<path d="M3 5h10v2H3zM3 9h10v2H3z" fill="#808488"/>)"};

constexpr std::string_view DoneImage =
    R"(<path d="M2 8.5l4 4 8-9" fill="none" stroke="#2e9e57" stroke-width="2.6"/>)";

constexpr std::string_view WaitingImage = R"(<circle cx="8" cy="8" r="2.5" fill="#808488"/>)";

QIcon Drawn(std::string_view image) {
  const QIcon icon = SvgIcon(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16">)" +
                             std::string(image) + "</svg>");
  // Painted once: a list asks for the sign of every row that it paints.
  QIcon painted;
  for (const int size : {16, 32})
    painted.addPixmap(icon.pixmap(size));
  return painted;
}

bool IsLeftOver(const TDeployRow& row) {
  return row.Action == TDeployAction::Unchanged &&
         (row.State == TFileState::LeftOver || row.State == TFileState::LeftOverChanged);
}

bool IsConflict(const TDeployRow& row) {
  return row.Action == TDeployAction::Refused &&
         (row.State == TFileState::ChangedThere || row.State == TFileState::Conflict);
}

// Ticked unless somebody unticks it.
bool IsDoneByItself(const TDeployRow& row) {
  return row.Action == TDeployAction::Copied || row.Action == TDeployAction::Mode ||
         row.Action == TDeployAction::Removed || row.Action == TDeployAction::Failed;
}

} // namespace

TPanelRow RowOf(const TLeftOver& leftOver) {
  return {.Row = {.LocalName = leftOver.LocalName,
                  .RemoteFile = leftOver.RemoteFile(),
                  .Action = TDeployAction::Unchanged,
                  .State = leftOver.State,
                  .SizeThere = leftOver.There.Size,
                  .TimeThere = leftOver.There.Modified}};
}

TRowKind KindOf(const TDeployRow& row) {
  switch (row.Action) {
  case TDeployAction::Copied:
    return TRowKind::Copy;
  case TDeployAction::Unchanged:
    return IsLeftOver(row) ? TRowKind::LeftOver : TRowKind::Same;
  case TDeployAction::Mode:
    return TRowKind::Mode;
  case TDeployAction::Kept:
    return TRowKind::Kept;
  case TDeployAction::Skipped:
    return TRowKind::Skipped;
  case TDeployAction::Removed:
    return TRowKind::Remove;
  case TDeployAction::Refused:
    return TRowKind::Conflict;
  case TDeployAction::Failed:
    break;
  }
  return row.IsInterrupted() ? TRowKind::Cancelled : TRowKind::Failed;
}

bool HasTick(const TPanelRow& row) {
  return !row.IsDone && (IsDoneByItself(row.Row) || IsConflict(row.Row) ||
                         (IsLeftOver(row.Row) && row.Row.State == TFileState::LeftOver));
}

bool IsTicked(const TPanelRow& row) {
  return row.Choice ? *row.Choice == TRowChoice::TKind::Take : IsDoneByItself(row.Row);
}

void SetTicked(TPanelRow& row, bool on) {
  if (!HasTick(row))
    return;
  row.Choice = on ? TRowChoice::TKind::Take : TRowChoice::TKind::Leave;
  if (on == IsDoneByItself(row.Row) && !IsConflict(row.Row))
    row.Choice.reset(); // that is what happens by itself
}

bool IsUndecided(const TPanelRow& row) {
  return IsConflict(row.Row) && !row.Choice;
}

TDeployAction PlannedAction(const TPanelRow& row) {
  if (!row.Choice)
    return row.Row.Action;
  if (*row.Choice == TRowChoice::TKind::Leave)
    return row.Row.Action == TDeployAction::Refused ? TDeployAction::Kept : TDeployAction::Skipped;
  if (IsConflict(row.Row))
    return TDeployAction::Copied;
  return IsLeftOver(row.Row) ? TDeployAction::Removed : row.Row.Action;
}

QString PlanWord(const TPanelRow& row) {
  const TRowKind kind = KindOf(row.Row);
  if (kind == TRowKind::Conflict && row.Choice)
    return IsTicked(row) ? TRowWords::tr("copy over theirs") : TRowWords::tr("keep theirs");
  if (kind == TRowKind::LeftOver)
    return IsTicked(row) ? TRowWords::tr("remove") : TRowWords::tr("leave there");
  if (HasTick(row) && !IsTicked(row) && kind != TRowKind::Conflict)
    return TRowWords::tr("leave out");
  switch (kind) {
  case TRowKind::Conflict:
    return IsUndecided(row) ? TRowWords::tr("conflict: choose") : TRowWords::tr("left alone");
  case TRowKind::Failed:
  case TRowKind::Cancelled:
    return TRowWords::tr("cannot be copied");
  case TRowKind::Copy:
    return TRowWords::tr("copy");
  case TRowKind::Mode:
    return TRowWords::tr("set rights");
  case TRowKind::Remove:
    return TRowWords::tr("remove");
  case TRowKind::Kept:
    return TRowWords::tr("keep");
  case TRowKind::Skipped:
    return TRowWords::tr("skip");
  case TRowKind::LeftOver:
  case TRowKind::Same:
    break;
  }
  return TRowWords::tr("same");
}

QString ResultWord(const TPanelRow& row) {
  if (!row.IsDone)
    return TRowWords::tr("waiting");
  if (row.Choice)
    return TRowWords::tr("failed; left out next time");
  return row.Row.IsInterrupted() ? TRowWords::tr("cancelled") : ActionWord(row.Row.Action);
}

QString KindWord(TRowKind kind, bool isPlan) {
  switch (kind) {
  case TRowKind::Conflict:
    return isPlan ? TRowWords::tr("Conflicts") : TRowWords::tr("Left alone");
  case TRowKind::Failed:
    return isPlan ? TRowWords::tr("Cannot be copied") : TRowWords::tr("Failed");
  case TRowKind::Copy:
    return isPlan ? TRowWords::tr("To copy") : TRowWords::tr("Copied");
  case TRowKind::Mode:
    return TRowWords::tr("Rights alone");
  case TRowKind::Remove:
    return isPlan ? TRowWords::tr("To remove") : TRowWords::tr("Removed");
  case TRowKind::LeftOver:
    return TRowWords::tr("Not in the list any more");
  case TRowKind::Kept:
    return TRowWords::tr("Kept");
  case TRowKind::Skipped:
    return TRowWords::tr("Skipped");
  case TRowKind::Cancelled:
    return TRowWords::tr("Cancelled");
  case TRowKind::Same:
    break;
  }
  return TRowWords::tr("Same");
}

QIcon KindIcon(TRowKind kind) {
  static const std::array<QIcon, RowKindCount> icons = [] {
    std::array<QIcon, RowKindCount> made;
    for (std::size_t i = 0; i < RowKindCount; ++i)
      made[i] = Drawn(KindImages[i]);
    return made;
  }();
  return icons[static_cast<std::size_t>(kind)];
}

QIcon WaitingIcon() {
  static const QIcon icon = Drawn(WaitingImage);
  return icon;
}

QIcon DoneIcon() {
  static const QIcon icon = Drawn(DoneImage);
  return icon;
}

std::optional<QColor> KindColor(TRowKind kind) {
  const bool isDark = QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
  if (kind == TRowKind::Failed)
    return isDark ? QColor(0xff, 0x9a, 0x90) : QColor(0xb3, 0x26, 0x1e);
  if (kind == TRowKind::Conflict || kind == TRowKind::LeftOver)
    return isDark ? QColor(0xff, 0xc2, 0x6b) : QColor(0x85, 0x4d, 0x00);
  return std::nullopt;
}

} // namespace workbench
