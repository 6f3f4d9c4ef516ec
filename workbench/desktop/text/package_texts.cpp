#include "workbench/desktop/text/package_texts.h"

#include "workbench/desktop/text/qt_text.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <array>
#include <string>
#include <vector>

namespace workbench {
namespace {

constexpr const char* Context = "Package";

// What the package says. The table is for the translators' tools: the package gives the texts, and
// one that is missing here is shown in English.
[[maybe_unused]] constexpr std::array Texts{
    QT_TRANSLATE_NOOP("Package", "OK"),
    QT_TRANSLATE_NOOP("Package", "Cancel"),
    QT_TRANSLATE_NOOP("Package", "Select Platforms"),
    QT_TRANSLATE_NOOP("Package", "Featured Files"),
    QT_TRANSLATE_NOOP("Package", "Please specify the action"),
    QT_TRANSLATE_NOOP("Package", "Warning: This action could remove any file entry that you "
                                 "manually added to the target configurations and platforms."),
    QT_TRANSLATE_NOOP("Package", "Revert to default options:"),
    QT_TRANSLATE_NOOP("Package", "Revert for all configurations of the active platform"),
    QT_TRANSLATE_NOOP("Package", "Revert for all configurations and platforms"),
    QT_TRANSLATE_NOOP("Package", "Keep added files"),
    QT_TRANSLATE_NOOP("Package", "Remote Path"),
    QT_TRANSLATE_NOOP("Package", "Enter the new Remote Path"),
    QT_TRANSLATE_NOOP("Package",
                      "Are you sure you want to change the value for the selected items ?"),
    QT_TRANSLATE_NOOP("Package", "Local Path"),
    QT_TRANSLATE_NOOP("Package", "Local Name"),
    QT_TRANSLATE_NOOP("Package", "Type"),
    QT_TRANSLATE_NOOP("Package", "Configuration"),
    QT_TRANSLATE_NOOP("Package", "Platforms"),
    QT_TRANSLATE_NOOP("Package", "Remote Name"),
    QT_TRANSLATE_NOOP("Package", "Remote Status"),
    QT_TRANSLATE_NOOP("Package", "Overwrite"),
    QT_TRANSLATE_NOOP("Package", "Reconcile"),
    QT_TRANSLATE_NOOP("Package", "Add Files"),
    QT_TRANSLATE_NOOP("Package", "Delete Selected Files"),
    QT_TRANSLATE_NOOP("Package", "Add Featured Files"),
    QT_TRANSLATE_NOOP("Package", "Deploy"),
    QT_TRANSLATE_NOOP("Package", "Connect"),
    QT_TRANSLATE_NOOP("Package", "Connect to Remote Machine"),
    QT_TRANSLATE_NOOP("Package", "Revert to Default"),
    QT_TRANSLATE_NOOP("Package", "Check All Items"),
    QT_TRANSLATE_NOOP("Package", "Uncheck All Items"),
    QT_TRANSLATE_NOOP("Package", "Check Selected Items"),
    QT_TRANSLATE_NOOP("Package", "Uncheck Selected Items"),
    QT_TRANSLATE_NOOP("Package", "Change Remote Path for Selected Items"),
    QT_TRANSLATE_NOOP("Package", "Change Overwrite value for selected items"),
    QT_TRANSLATE_NOOP("Package", "Always"),
    QT_TRANSLATE_NOOP("Package", "Never"),
    QT_TRANSLATE_NOOP("Package", "Same"),
    QT_TRANSLATE_NOOP("Package", "Newer"),
    QT_TRANSLATE_NOOP("Package", "Older"),
    QT_TRANSLATE_NOOP("Package", "Not Found"),
    QT_TRANSLATE_NOOP("Package", "Not Connected"),
    QT_TRANSLATE_NOOP("Package", "Unknown"),
};

// Those with names in them; "%s" stands for a name.
constexpr std::array Questions{
    QT_TRANSLATE_NOOP("Package", "A connection profile is required for deployment. Would you like "
                                 "to create one and assign it to the \"%s\" platform?"),
    QT_TRANSLATE_NOOP("Package", "Are you sure you want to delete file \"%s\"?"),
    QT_TRANSLATE_NOOP("Package", "The active platform is \"%s\". Would you like to set the \"%s\" "
                                 "platform as the active platform?"),
};

constexpr QLatin1String Name("%s");

// A question as a pattern, with a group for each name.
QRegularExpression PatternOf(const QString& question) {
  QStringList pieces = question.split(Name);
  for (QString& piece : pieces)
    piece = QRegularExpression::escape(piece);
  return QRegularExpression(
      QRegularExpression::anchoredPattern(pieces.join(QStringLiteral("(.*)"))),
      QRegularExpression::DotMatchesEverythingOption);
}

// One after the other, so that a name which looks like a place for a name is left alone.
QString WithNames(const QString& question, const QStringList& names) {
  const QStringList pieces = question.split(Name);
  QString text = pieces.front();
  for (TQtSize i = 1; i < pieces.size(); ++i)
    text += names.value(i - 1) + pieces[i];
  return text;
}

} // namespace

// Cells of lists ask for each text that is painted, and no cell is a question.
QString PackageText(std::string_view text) {
  const std::string plain(text);
  if (!text.ends_with('?'))
    return QCoreApplication::translate(Context, plain.c_str());
  static const std::vector<QRegularExpression> patterns = [] {
    std::vector<QRegularExpression> made;
    made.reserve(Questions.size());
    for (const char* question : Questions)
      made.push_back(PatternOf(QString::fromUtf8(question)));
    return made;
  }();
  for (std::size_t i = 0; i < patterns.size(); ++i) {
    const QRegularExpressionMatch match = patterns[i].match(ToQString(text));
    if (match.hasMatch())
      return WithNames(QCoreApplication::translate(Context, Questions[i]),
                       match.capturedTexts().mid(1));
  }
  return QCoreApplication::translate(Context, plain.c_str());
}

} // namespace workbench
