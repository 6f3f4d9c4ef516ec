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

TEST_F(TEngineText, TranslatesWhatFilesOfTheUserAreRefusedFor) {
  EXPECT_EQ(
      German("the settings file is damaged: \"undo-runs\" should be a text, but is 7; mend it or "
             "remove it"),
      "die Datei mit Einstellungen ist beschädigt: „undo-runs“ sollte ein Text sein, ist aber 7; "
      "reparieren oder entfernen Sie sie");
  EXPECT_EQ(German("element \"Operation\": its text is \"9\", which is not an operation (0 to 5)"),
            "Element „Operation“: der Text ist „9“, also keine Operation (0 bis 5)");
  EXPECT_EQ(German("not well-formed XML: mismatched tag"),
            "kein wohlgeformtes XML: schließendes Element passt nicht");
}

TEST_F(TEngineText, TranslatesWhatAProjectIsRefusedFor) {
  EXPECT_EQ(
      German("the condition \"'$(A' == ''\" is not valid: at character 2, a \"$(\" is not closed"),
      "die Bedingung „'$(A' == ''“ ist ungültig: bei Zeichen 2, ein „$(“ ist nicht geschlossen");
  EXPECT_EQ(
      German("the import \"the.props\" was skipped: it looks for files that are not on this "
             "machine"),
      "der Import „the.props“ wurde übersprungen: er sucht Dateien, die nicht auf diesem Rechner "
      "sind");
  EXPECT_EQ(
      German("a build of Debug, Win64 is a utility, which makes no program or library: there is "
             "nothing to deploy"),
      "ein Build von Debug, Win64 ist ein Hilfsprojekt, das weder Programm noch Bibliothek "
      "erzeugt: es gibt nichts zu verteilen");
  EXPECT_EQ(
      German("unknown element \"Extra\" in \"DeployFile\" is not kept when the project is saved"),
      "das unbekannte Element „Extra“ in „DeployFile“ geht beim Speichern des Projekts verloren");
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
  static const std::array<const char*, 19> signs{
      "xargs",          "command -v",   "test -f",
      "test ! -h",      "rm -f",        "cp -p",
      "cp --",          "Set-Location", "exit 1",
      "echo deploymgr", "revision of ", "deployment-manager ",
      "Host key ",      "cd /d ",       "Permission denied (",
      "Too many auth",  "%ComSpec%",    "<!-- made from ",
      "<?xml version"};
  return std::ranges::any_of(signs, [&](const char* sign) { return literal.contains(sign); });
}

// Whoever gives the engine a new sentence is told here that it has no translation.
TEST_F(TEngineText, NoSentenceOfTheEnginesSourcesIsMissing) {
  const QString known = EngineSentences().join('\n');
  static const QRegularExpression joint("[:;] *$|[:;] ");
  static const QRegularExpression words("[a-z]{2,},? [a-z]{2,}");
  for (const char* room : {"workbench/explain",
                           "workbench/deploy",
                           "workbench/deploy/plan",
                           "workbench/deploy/record",
                           "workbench/archive",
                           "workbench/remote/folder",
                           "workbench/remote/profile",
                           "workbench/remote/sftp",
                           "workbench/remote/ssh",
                           "workbench/remote/target",
                           "workbench/files",
                           "workbench/process",
                           "workbench/json",
                           "workbench/settings",
                           "workbench/xml",
                           "workbench/msbuild",
                           "workbench/msbuild/values",
                           "workbench/project",
                           "workbench/project/cpp",
                           "workbench/project/build_import",
                           "workbench/platforms",
                           "workbench/services",
                           "workbench/session",
                           "workbench/history",
                           "package/common",
                           "package/host/api",
                           "package/reconcile",
                           "package/featured",
                           "package/model"}) {
    for (const auto& entry : std::filesystem::directory_iterator(room)) {
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
