#include "workbench/desktop/text/engine_text.h"

#include "workbench/desktop/text/engine_sentences.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QCoreApplication>
#include <QHash>
#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace workbench {
namespace {

constexpr const char* EngineContext = "Engine";
// No sentence of the engine holds more sentences than that.
constexpr int MostLevels = 8;
// What stands behind one of these is a name or a command, which no language changes.
constexpr std::array BeforeNames{QLatin1String("\""), QLatin1String("profile "),
                                 QLatin1String("on this machine: "),
                                 QLatin1String("on the target: ")};
// Between sentences that are put together.
constexpr std::array Joints{QLatin1String("; "), QLatin1String(": "), QLatin1String(" (")};

// A sentence with places for other texts in it.
struct TPattern {
  const char* Source;
  QStringList Pieces;       ///< around the places
  std::vector<bool> IsName; ///< by place
  TQtSize LetterCount = 0;  ///< of the pieces: the pattern that says most is tried first
};

struct TTables {
  QHash<QString, const char*> Whole; ///< sentences without places
  std::vector<TPattern> Patterns;
};

// The places stand in their order in the English sentence.
TPattern PatternOf(const char* source) {
  TPattern pattern{.Source = source, .Pieces = {}, .IsName = {}};
  QString rest = QString::fromUtf8(source);
  for (int place = 1;; ++place) {
    const QString mark = QStringLiteral("%%1").arg(place);
    const TQtSize at = rest.indexOf(mark);
    pattern.Pieces += rest.left(at);
    pattern.LetterCount += pattern.Pieces.back().size();
    if (at < 0)
      return pattern;
    pattern.IsName.push_back(std::ranges::any_of(BeforeNames, [&](const QLatin1String& before) {
      return pattern.Pieces.back().endsWith(before);
    }));
    rest = rest.mid(at + mark.size());
  }
}

std::vector<const char*> AllSources() {
  std::vector<const char*> sources;
  for (const auto table :
       {ExplainSentences(), DeploySentences(), RemoteSentences(), MachineSentences(),
        DocumentSentences(), ProjectSentences(), BuildSentences()})
    sources.insert(sources.end(), table.begin(), table.end());
  return sources;
}

const TTables& Tables() {
  static const TTables tables = [] {
    TTables made;
    for (const char* source : AllSources()) {
      TPattern pattern = PatternOf(source);
      if (pattern.IsName.empty())
        made.Whole.insert(pattern.Pieces.front(), source);
      else
        made.Patterns.push_back(std::move(pattern));
    }
    std::ranges::stable_sort(made.Patterns, std::ranges::greater(), &TPattern::LetterCount);
    return made;
  }();
  return tables;
}

// What stands at the places; nothing when the text is another sentence.
std::optional<QStringList> PlacesIn(const QString& text, const TPattern& pattern) {
  const QString& last = pattern.Pieces.back();
  if (!text.startsWith(pattern.Pieces.front()) || !text.endsWith(last))
    return std::nullopt;
  const TQtSize end = text.size() - last.size();
  TQtSize at = pattern.Pieces.front().size();
  QStringList places;
  for (TQtSize i = 1; i + 1 < pattern.Pieces.size(); ++i) {
    const QString& piece = pattern.Pieces[i];
    const TQtSize found = text.indexOf(piece, at);
    if (found < 0 || found + piece.size() > end)
      return std::nullopt;
    places += text.mid(at, found - at);
    at = found + piece.size();
  }
  if (at > end)
    return std::nullopt;
  places += text.mid(at, end - at);
  return places;
}

// One after the other, so that a name which looks like a place is left alone.
QString WithPlaces(const QString& sentence, const QStringList& places) {
  QString text;
  for (TQtSize i = 0; i < sentence.size(); ++i) {
    const int place = sentence[i] == QLatin1Char('%') && i + 1 < sentence.size()
                          ? sentence[i + 1].digitValue()
                          : -1;
    if (place < 1 || place > places.size()) {
      text += sentence[i];
      continue;
    }
    text += places[place - 1];
    ++i;
  }
  return text;
}

QString Translated(const QString& text, int level);

std::optional<QString> AsPattern(const QString& text, int level) {
  for (const TPattern& pattern : Tables().Patterns) {
    auto places = PlacesIn(text, pattern);
    if (!places)
      continue;
    for (TQtSize i = 0; i < places->size(); ++i) {
      if (!pattern.IsName[static_cast<std::size_t>(i)])
        (*places)[i] = Translated((*places)[i], level + 1);
    }
    return WithPlaces(QCoreApplication::translate(EngineContext, pattern.Source), *places);
  }
  return std::nullopt;
}

// A whole sentence, or sentences that were put together.
QString Translated(const QString& text, int level) {
  if (text.isEmpty() || level > MostLevels)
    return text;
  if (const auto whole = Tables().Whole.constFind(text); whole != Tables().Whole.constEnd())
    return QCoreApplication::translate(EngineContext, *whole);
  if (const auto sentence = AsPattern(text, level))
    return *sentence;
  for (const QLatin1String& joint : Joints) {
    if (const TQtSize at = text.indexOf(joint); at >= 0)
      return Translated(text.left(at), level + 1) + joint +
             Translated(text.mid(at + joint.size()), level + 1);
  }
  return text;
}

} // namespace

QString EngineText(std::string_view text) {
  return EngineLines(ToQString(Visible(text)));
}

QString EngineLines(const QString& text) {
  return Translated(text, 0);
}

QStringList EngineSentences() {
  QStringList sentences;
  for (const char* source : AllSources())
    sentences += QString::fromUtf8(source);
  return sentences;
}

} // namespace workbench
