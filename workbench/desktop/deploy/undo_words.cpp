// How taking back deploys ended, in words for people.
#include "workbench/desktop/deploy/history_page.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QCoreApplication>
#include <array>

namespace workbench {
namespace {

constexpr std::size_t RowsNamed = 20;

struct TUndoWords {
  Q_DECLARE_TR_FUNCTIONS(TUndoWords)
};

QString StayedText(const TUndoReport& report) {
  QString text;
  std::size_t named = 0;
  std::size_t count = 0;
  for (const TUndoRow& row : report.Rows) {
    if (row.Action != TUndoAction::Refused && row.Action != TUndoAction::Failed)
      continue;
    if (++count > RowsNamed)
      continue;
    ++named;
    text += QStringLiteral("\n• %1: %2")
                .arg(ToQString(Visible(row.RemoteFile)), EngineText(row.Reason));
  }
  if (count > named)
    text += QLatin1Char('\n') + TUndoWords::tr("and %1 more").arg(count - named);
  return text;
}

} // namespace

QString UndoSummary(const TUndoReport& report) {
  QStringList problems;
  for (const std::string& problem : report.Problems)
    problems += EngineText(problem);
  if (report.End == TDeployEnd::NoConnection)
    return TUndoWords::tr("No connection: %1.").arg(EngineText(report.Message));
  if (!problems.isEmpty() && report.Rows.empty())
    return TUndoWords::tr("Nothing was taken back: %1.").arg(problems.join(QStringLiteral("; ")));
  std::array<std::size_t, UndoActionCount> counts{};
  for (const TUndoRow& row : report.Rows)
    ++counts[static_cast<std::size_t>(row.Action)];
  const auto count = [&](TUndoAction action) { return counts[static_cast<std::size_t>(action)]; };
  QString text = (report.End == TDeployEnd::Interrupted
                      ? TUndoWords::tr("Cancelled: %1 restored, %2 removed.")
                      : TUndoWords::tr("Taken back: %1 restored, %2 removed."))
                     .arg(count(TUndoAction::Restored))
                     .arg(count(TUndoAction::Removed));
  const std::size_t stayed = count(TUndoAction::Refused) + count(TUndoAction::Failed);
  if (stayed > 0)
    text += QLatin1Char(' ') + TUndoWords::tr("Left as they are: %1.").arg(stayed);
  if (!problems.isEmpty())
    text += QLatin1Char(' ') + problems.join(QStringLiteral("; ")) + QLatin1Char('.');
  return text + StayedText(report);
}

} // namespace workbench
