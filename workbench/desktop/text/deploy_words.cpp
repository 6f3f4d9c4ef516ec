#include "workbench/desktop/text/deploy_words.h"

#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace workbench {
namespace {

constexpr std::size_t LinesShown = 20;

// The context in which translators find the words.
struct TDeployWords {
  Q_DECLARE_TR_FUNCTIONS(TDeployWords)
};

struct TAdvice {
  std::string_view Sign; ///< stands in the reason of the failure, in lower case
  const char* Text;
};

// The first one that fits counts.
constexpr std::array<TAdvice, 10> Advices{{
    {"interrupted", QT_TRANSLATE_NOOP("TDeployWords", "Deploy again to go on where it stopped.")},
    {"no space left",
     QT_TRANSLATE_NOOP("TDeployWords", "Make room on the target, then deploy again.")},
    {"read-only file system",
     QT_TRANSLATE_NOOP("TDeployWords", "Make the target's disk writable, or choose another "
                                       "directory in the profile, then deploy again.")},
    {"permission denied",
     QT_TRANSLATE_NOOP("TDeployWords",
                       "Check that the file can be read here and that the profile's user may write "
                       "to the directory on the target, then deploy again.")},
    {"changed while it was copied",
     QT_TRANSLATE_NOOP("TDeployWords",
                       "Wait until the build that writes the file has ended, then deploy again.")},
    {"command", QT_TRANSLATE_NOOP("TDeployWords", "Run the command by hand to see what it says, "
                                                  "mend it, then deploy again.")},
    {"was copied, but",
     QT_TRANSLATE_NOOP("TDeployWords", "The file is on the target. Check there what has to be done "
                                       "with it, then deploy again.")},
    {"is missing",
     QT_TRANSLATE_NOOP("TDeployWords", "Build the project, or take the file off the list, then "
                                       "deploy again.")},
    {"no such file",
     QT_TRANSLATE_NOOP("TDeployWords", "Build the project, or take the file off the list, then "
                                       "deploy again.")},
    {"connection", QT_TRANSLATE_NOOP("TDeployWords", "Check the target and the network, test the "
                                                     "profile, then deploy again.")},
}};

QString Lines(const std::vector<std::string>& texts) {
  const std::size_t shown = std::min(texts.size(), LinesShown);
  QString lines;
  for (std::size_t i = 0; i < shown; ++i)
    lines += QStringLiteral("\n\u2022 ") + EngineText(texts[i]);
  if (shown < texts.size())
    lines += QLatin1Char('\n') + TDeployWords::tr("and %1 more").arg(texts.size() - shown);
  return lines;
}

QString FailedText(const TDeployReport& report) {
  const auto failed =
      std::count_if(report.Rows.begin(), report.Rows.end(),
                    [](const TDeployRow& row) { return row.Action == TDeployAction::Failed; });
  const QString start =
      report.Message.empty()
          ? TDeployWords::tr("Files that failed: %1.").arg(failed)
          : TDeployWords::tr("The connection was lost: %1.").arg(EngineText(report.Message));
  return start + QLatin1Char(' ') +
         TDeployWords::tr("In all: %1. Deploy again to repeat what failed.")
             .arg(DeployCounts(report.Rows));
}

} // namespace

QString ActionWord(TDeployAction action) {
  switch (action) {
  case TDeployAction::Copied:
    return TDeployWords::tr("copied");
  case TDeployAction::Unchanged:
    return TDeployWords::tr("unchanged");
  case TDeployAction::Mode:
    return TDeployWords::tr("given its rights");
  case TDeployAction::Kept:
    return TDeployWords::tr("kept");
  case TDeployAction::Skipped:
    return TDeployWords::tr("skipped");
  case TDeployAction::Removed:
    return TDeployWords::tr("removed");
  case TDeployAction::Refused:
    return TDeployWords::tr("left alone");
  case TDeployAction::Failed:
    return TDeployWords::tr("failed");
  }
  return {};
}

QString StateWord(TFileState state) {
  switch (state) {
  case TFileState::Same:
    return TDeployWords::tr("same");
  case TFileState::New:
    return TDeployWords::tr("new");
  case TFileState::Changed:
    return TDeployWords::tr("changed here");
  case TFileState::Unrecorded:
    return TDeployWords::tr("unknown there");
  case TFileState::ChangedThere:
    return TDeployWords::tr("changed there");
  case TFileState::Conflict:
    return TDeployWords::tr("changed here and there");
  case TFileState::GoneThere:
    return TDeployWords::tr("gone there");
  case TFileState::LeftOver:
    return TDeployWords::tr("not in the list");
  case TFileState::LeftOverChanged:
    return TDeployWords::tr("not in the list, changed there");
  case TFileState::MissingHere:
    return TDeployWords::tr("missing here");
  }
  return {};
}

QString SizeText(std::uint64_t bytes) {
  return QLocale().formattedDataSize(static_cast<qint64>(bytes), 1);
}

QString DeployCounts(const std::vector<TDeployRow>& rows) {
  std::array<std::size_t, DeployActionCount> counts{};
  std::uint64_t bytes = 0;
  std::size_t cancelled = 0;
  for (const TDeployRow& row : rows) {
    if (row.IsInterrupted())
      ++cancelled;
    else
      ++counts[static_cast<std::size_t>(row.Action)];
    bytes += row.Action == TDeployAction::Copied ? row.Bytes : 0;
  }
  QStringList parts;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const auto action = static_cast<TDeployAction>(i);
    if (counts[i] > 0 || action == TDeployAction::Copied)
      parts += QStringLiteral("%1 %2").arg(counts[i]).arg(ActionWord(action));
  }
  if (cancelled > 0)
    parts += TDeployWords::tr("%1 cancelled").arg(cancelled);
  return QStringLiteral("%1 (%2)").arg(parts.join(QStringLiteral(", ")), SizeText(bytes));
}

QString DeploySummary(const TDeployReport& report, bool dryRun) {
  switch (report.End) {
  case TDeployEnd::NotStarted:
    return TDeployWords::tr("Nothing was deployed.");
  case TDeployEnd::Refused:
    return TDeployWords::tr("Nothing was copied. Mend this first:") + Lines(report.Problems);
  case TDeployEnd::NoConnection:
    return TDeployWords::tr("No connection: %1.").arg(EngineText(report.Message));
  case TDeployEnd::NoConsent:
    return TDeployWords::tr("Nothing was copied: commands of the project may not run without your "
                            "consent. They are:") +
           Lines(report.Commands);
  case TDeployEnd::NoSourceConsent:
    return TDeployWords::tr("Nothing was copied: files from beyond the project's directory may not "
                            "be sent without your consent. They are:") +
           Lines(report.Outside);
  case TDeployEnd::Interrupted:
    return TDeployWords::tr("Cancelled: %1. Deploy again to go on.").arg(DeployCounts(report.Rows));
  case TDeployEnd::Unexpected:
    if (!report.Problems.empty())
      return TDeployWords::tr("Nothing was copied. Mend this first:") + Lines(report.Problems);
    return TDeployWords::tr("Files that were changed on the target since they were deployed were "
                            "left alone. In all: %1.")
        .arg(DeployCounts(report.Rows));
  case TDeployEnd::Failed:
  case TDeployEnd::Done:
    break;
  }
  if (dryRun)
    return TDeployWords::tr("Would be: %1.").arg(DeployCounts(report.Rows));
  return report.End == TDeployEnd::Failed
             ? FailedText(report)
             : TDeployWords::tr("Done: %1.").arg(DeployCounts(report.Rows));
}

QString FailureAdvice(const TDeployRow& row) {
  const QString reason = ToQString(row.Error).toLower();
  const auto* advice = std::find_if(Advices.begin(), Advices.end(), [&](const TAdvice& known) {
    return reason.contains(QLatin1String(known.Sign.data(), static_cast<int>(known.Sign.size())));
  });
  return advice == Advices.end()
             ? TDeployWords::tr("Mend the cause, then deploy again: what is on the target already "
                                "stays.")
             : TDeployWords::tr(advice->Text);
}

} // namespace workbench
