#include "workbench/desktop/text/engine_text.h"
#include "workbench/explain/reason_text.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTranslator>
#include <QXmlStreamReader>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace workbench {
namespace {

// The translators' table itself, as no program has to be built for.
class TGermanTable final : public QTranslator {
public:
  TGermanTable() {
    QFile file("workbench/desktop/translations/deployment_manager_de.ts");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    QString context;
    QString source;
    while (!reader.atEnd()) {
      if (!reader.readNextStartElement() && reader.atEnd())
        break;
      if (reader.name() == u"name")
        context = reader.readElementText();
      else if (reader.name() == u"source")
        source = reader.readElementText();
      else if (reader.name() == u"translation" && context == u"Engine")
        FTexts[source] = reader.readElementText();
    }
  }
  QString translate(const char* context, const char* source, const char*, int) const override {
    return QString::fromLatin1(context) == "Engine" ? FTexts.value(QString::fromUtf8(source))
                                                    : QString();
  }
  bool isEmpty() const override { return false; }

private:
  QHash<QString, QString> FTexts;
};

// Words that every English sentence of some length has, and no German one.
bool HasEnglish(const QString& text) {
  static const QRegularExpression word(
      "\\b(the|it|is|not|of|and|there|that|which|has|cannot|for|to|be|with|from|as|no)\\b");
  return word.match(text).hasMatch();
}

class TEngineText : public ::testing::Test {
protected:
  void SetUp() override { QCoreApplication::installTranslator(&FGerman); }
  void TearDown() override { QCoreApplication::removeTranslator(&FGerman); }
  static std::string German(std::string_view text) { return EngineText(text).toStdString(); }

  TGermanTable FGerman;
};

TEST_F(TEngineText, PutsNamesIntoTheGermanSentenceAndLeavesThemAlone) {
  EXPECT_EQ(German("there is no profile \"the %2 lab\""), "es gibt kein Profil „the %2 lab“");
  EXPECT_EQ(German("the local file /a/b.dat is missing, and it is required"),
            "die lokale Datei /a/b.dat fehlt, und sie ist erforderlich");
  EXPECT_EQ(German("the profile \"a\" is one of the platform \"b\", not of \"c\""),
            "das Profil „a“ gehört zur Plattform „b“, nicht zu „c“");
}

TEST_F(TEngineText, TranslatesSentencesThatArePutTogether) {
  EXPECT_EQ(German("making a temporary file beside it: No space left on device"),
            "Anlegen einer temporären Datei daneben: kein Platz mehr auf dem Gerät");
  EXPECT_EQ(German("was copied, but \"chmod\" cannot be run: the machine runs no commands"),
            "wurde kopiert, aber „chmod“ kann nicht laufen: der Rechner führt keine Befehle aus");
  EXPECT_EQ(German("putting it in place: permission denied; what stood there has the name x~ now"),
            "Einsetzen an ihren Platz: Zugriff verweigert; was dort stand, heißt jetzt x~");
}

TEST_F(TEngineText, NamesProfileAndPlace) {
  EXPECT_EQ(German("profile making it (eva@lab:/srv)"), "Profil making it (eva@lab:/srv)");
}

TEST_F(TEngineText, ACommandStaysWordForWord) {
  EXPECT_EQ(German("on this machine: echo reading it; cp a file"),
            "auf diesem Rechner: echo reading it; cp a file");
}

TEST_F(TEngineText, WhatNobodyKnowsStays) {
  EXPECT_EQ(German("kex_exchange_identification: banner line"),
            "kex_exchange_identification: banner line");
  EXPECT_EQ(EngineLines("one\ntwo").toStdString(), "one\ntwo");
}

TEST_F(TEngineText, EverySentenceHasAGermanOneWithTheSamePlaces) {
  const QStringList sentences = EngineSentences();
  EXPECT_GT(sentences.size(), 400);
  for (const QString& sentence : sentences) {
    const QString german = QCoreApplication::translate("Engine", sentence.toUtf8().constData());
    EXPECT_FALSE(HasEnglish(german)) << sentence.toStdString() << "\n" << german.toStdString();
    for (int place = 1; place <= 6; ++place) {
      const QString mark = QStringLiteral("%%1").arg(place);
      EXPECT_EQ(sentence.count(mark), german.count(mark)) << german.toStdString();
    }
  }
}

TEST_F(TEngineText, NoReasonThatAReconcileGivesStaysEnglish) {
  deployment::TReconcileReason reason;
  for (int step = 0; step < 8; ++step)
    for (int outcome = 0; outcome < 5; ++outcome)
      for (int source = 0; source < 11; ++source)
        for (int cause = 0; cause < 15; ++cause) {
          reason.Step = static_cast<deployment::TReconcileStep>(step);
          reason.Outcome = static_cast<deployment::TReconcileOutcome>(outcome);
          reason.Source = static_cast<deployment::TReasonSource>(source);
          reason.Cause = static_cast<deployment::TReasonCause>(cause);
          for (const char* name : {"", "Win64"}) {
            reason.ClassName = reason.SourceName = reason.SourceValue = name;
            const QString text = EngineText(ReasonSentence(reason));
            ASSERT_FALSE(HasEnglish(text)) << text.toStdString();
          }
        }
}

std::string TextOf(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file).rdbuf();
  return text.str();
}

// The literals of a source, neighbours joined as the compiler joins them.
QStringList LiteralsOf(const std::filesystem::path& file) {
  static const QRegularExpression noise(
      R"(//[^\n]*|^\s*#[^\n]*|R"(\w*)\((?:.|\n)*?\)\1"|'(?:[^'\\]|\\.)')",
      QRegularExpression::MultilineOption);
  static const QRegularExpression joined(
      R"re("((?:[^"\\\n]|\\.)*)"((?:\s*"(?:[^"\\\n]|\\.)*")*))re");
  const QString source = QString::fromStdString(TextOf(file)).remove(noise);
  QStringList literals;
  for (auto match = joined.globalMatch(source); match.hasNext();) {
    const QRegularExpressionMatch found = match.next();
    QString text = found.captured(0);
    text.remove(QRegularExpression(R"re((?<!\\)"\s*(?<!\\)")re"));
    text = text.mid(1, text.size() - 2);
    literals += text.replace("\\\"", "\"").replace("\\n", "\n").replace("\\\\", "\\");
  }
  return literals;
}

// What is no sentence for a person though it has words: commands, and answers of other programs.
bool IsNoSentence(const QString& literal) {
  static const std::array<const char*, 17> signs{
      "xargs",          "command -v",   "test -f",
      "test ! -h",      "rm -f",        "cp -p",
      "cp --",          "Set-Location", "exit 1",
      "echo deploymgr", "revision of ", "deployment-manager ",
      "Host key ",      "cd /d ",       "Permission denied (",
      "Too many auth",  "%ComSpec%"};
  return std::ranges::any_of(signs, [&](const char* sign) { return literal.contains(sign); });
}

// Whoever gives the engine a new sentence is told here that it has no translation.
TEST_F(TEngineText, NoSentenceOfTheEnginesSourcesIsMissing) {
  const QString known = EngineSentences().join('\n');
  static const QRegularExpression joint("[:;] *$|[:;] ");
  static const QRegularExpression words("[a-z]{2,},? [a-z]{2,}");
  for (const char* room :
       {"explain", "deploy", "deploy/plan", "deploy/record", "archive", "remote/folder",
        "remote/profile", "remote/sftp", "remote/ssh", "remote/target", "files", "process"}) {
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path("workbench") / room)) {
      if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h")
        continue;
      for (const QString& literal : LiteralsOf(entry.path()))
        for (const QString& part : literal.split(joint))
          EXPECT_TRUE(!words.match(part).hasMatch() || IsNoSentence(literal) ||
                      known.contains(literal) || known.contains(part))
              << entry.path() << ": " << part.toStdString();
    }
  }
}

} // namespace
} // namespace workbench
