#include "workbench/desktop/details/entry_facts.h"

#include "workbench/desktop/text/class_words.h"
#include "workbench/desktop/text/deploy_words.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <set>

namespace workbench {
namespace {

// Sentences of the details pane.
struct TDetails {
  Q_DECLARE_TR_FUNCTIONS(TDetails)
};

QString Row(const QString& label, const QString& value) {
  return QStringLiteral("<tr><td style='padding-right:8px'><b>%1</b></td><td>%2</td></tr>")
      .arg(label, value);
}

QString Escaped(const QString& text) {
  return text.toHtmlEscaped();
}

QString TimeText(std::int64_t time) {
  return QLocale().toString(QDateTime::fromSecsSinceEpoch(time), QLocale::ShortFormat);
}

// The first letters of a hash tell contents apart; the whole one can be copied from the hint.
QString SideText(const std::optional<TSideFacts>& side) {
  constexpr qsizetype HashLetters = 16;
  if (!side)
    return TDetails::tr("no such file");
  const QString hash = side->Hash.empty() ? TDetails::tr("not readable")
                                          : ToQString(side->Hash).left(HashLetters) + QChar(0x2026);
  return TDetails::tr("%1, %2, content %3").arg(SizeText(side->Size), TimeText(side->Time), hash);
}

QString Verdict(const TBothSides& sides) {
  if (!sides.Here || !sides.There || sides.Here->Hash.empty() || sides.There->Hash.empty())
    return {};
  QString verdict = sides.Here->Hash == sides.There->Hash
                        ? TDetails::tr("Both contents are the same.")
                        : TDetails::tr("The contents differ.");
  if (!sides.Deployed || sides.Here->Hash == sides.There->Hash)
    return verdict;
  const bool isChangedHere = sides.Here->Hash != sides.Deployed->Hash;
  const bool isChangedThere = sides.There->Hash != sides.Deployed->Hash;
  return verdict + u' ' +
         (isChangedHere && isChangedThere ? TDetails::tr("Both were changed since the last deploy.")
          : isChangedThere
              ? TDetails::tr("The one on the target was changed since the last deploy.")
              : TDetails::tr("The one here was changed since the last deploy."));
}

QString SidesText(const TBothSides& sides) {
  QString text = Row(TDetails::tr("Here"), SideText(sides.Here));
  if (!sides.Problem.empty())
    return text + Row(TDetails::tr("Target"), Escaped(EngineText(sides.Problem)));
  text += Row(TDetails::tr("Target"), SideText(sides.There));
  text += Row(TDetails::tr("Deployed"),
              sides.Deployed ? SideText(sides.Deployed) : TDetails::tr("no deploy remembers it"));
  const QString verdict = Verdict(sides);
  return verdict.isEmpty() ? text : text + Row({}, verdict);
}

} // namespace

QString FactsText(const TEntryFacts& facts) {
  QString text = QStringLiteral("<h3>%1</h3><table>").arg(Escaped(ToQString(facts.LocalName)));
  text += Row(TDetails::tr("Class"), Escaped(ClassWords(facts.Class)));
  text += Row(TDetails::tr("Configuration"), Escaped(ToQString(facts.Configuration)));
  text += Row(TDetails::tr("Local file"),
              Escaped(facts.LocalFile) +
                  (facts.IsHere ? QString() : "<br>" + TDetails::tr("There is no such file now.")));
  text += Row(TDetails::tr("Lands at"), facts.Landing.isEmpty()
                                            ? TDetails::tr("Choose one platform to see it.")
                                            : Escaped(facts.Landing));
  text += Row(TDetails::tr("State"), StateWord(facts.State) + "<br>" + StateHint(facts.State));
  if (facts.Sides)
    text += SidesText(*facts.Sides);
  text += QStringLiteral("</table>");
  if (!facts.Reasons.isEmpty()) {
    text += "<b>" + TDetails::tr("Why it is in the list") + "</b><ul>";
    for (const QString& reason : facts.Reasons)
      text += "<li>" + Escaped(reason) + "</li>";
    text += QStringLiteral("</ul>");
  }
  return text;
}

QString SharedFactsText(const std::vector<TEntryFacts>& facts, int selected) {
  std::set<QString> classes;
  std::set<QString> configurations;
  std::set<QString> states;
  int missing = 0;
  for (const TEntryFacts& one : facts) {
    classes.insert(ClassWords(one.Class));
    configurations.insert(ToQString(one.Configuration));
    states.insert(StateWord(one.State));
    missing += one.IsHere ? 0 : 1;
  }
  const auto shared = [](const std::set<QString>& values) {
    return values.size() == 1 ? Escaped(*values.begin()) : TDetails::tr("(different)");
  };
  QString text = "<h3>" + TDetails::tr("%n files are selected", nullptr, selected) + "</h3><table>";
  if (facts.empty())
    return text + "</table>" +
           TDetails::tr("Select fewer of them to see and edit what they share.");
  text += Row(TDetails::tr("Class"), shared(classes));
  text += Row(TDetails::tr("Configuration"), shared(configurations));
  text += Row(TDetails::tr("State"), shared(states));
  if (missing > 0)
    text += Row(TDetails::tr("Local file"),
                TDetails::tr("%n of them are missing here", nullptr, missing));
  return text + "</table>";
}

} // namespace workbench
