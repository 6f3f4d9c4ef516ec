// Projects that are damaged or were made to do harm.
#include "tests/integration/bad_inputs.h"

namespace integration {
namespace {

std::string InvalidToken(int line) {
  return "p.vproj:" + std::to_string(line) +
         ": not well-formed XML: not well-formed (invalid token)";
}

constexpr const char* LoneHalf =
    "p.vproj:1: not well-formed XML: half of a character (a surrogate without its other one)";

std::string WideText(std::string_view ascii) {
  std::string text = "\xFF\xFE";
  for (const char c : ascii)
    text += {c, '\0'};
  return text;
}

std::string RepeatedText(std::string_view text, int times) {
  std::string result;
  for (int i = 0; i < times; ++i)
    result += text;
  return result;
}

TDamage TextDamage(const char* name, std::string text, const std::string& message) {
  return {name, {{"p.vproj", std::move(text)}}, {"list", "p.vproj"}, 3, message};
}

std::vector<TDamage> DamagedTexts() {
  return {
      TextDamage("ClosedWrongly", "<Project>\n<a></b></Project>",
                 "p.vproj:2: not well-formed XML: mism"),
      TextDamage("CommentWithDashes", "<Project>\n<!-- a -- b --></Project>", InvalidToken(2)),
      TextDamage("AmpersandAlone", "<Project>\n<a>x & y</a></Project>", InvalidToken(2)),
      TextDamage("LessThanInAnAttribute", "<Project a='<'/>", InvalidToken(1)),
      TextDamage("AttributeWithoutQuotes", "<Project a=1/>", InvalidToken(1)),
      TextDamage("ControlCharacter", "<Project>\x01</Project>", InvalidToken(1)),
      TextDamage("NoCharacter", "<Project>&#xFFFE;</Project>",
                 "reference to invalid character number"),
      TextDamage("DeclarationTooLate", "\n<?xml version='1.0'?><Project/>",
                 "p.vproj:2: not well-formed XML: XML or text declaration not at start of entity"),
      TextDamage("CdataWithoutEnd", "<Project><![CDATA[x</Project>", "unclosed CDATA section"),
      TextDamage("CommentWithoutEnd", "<Project><!-- x",
                 "p.vproj:1: not well-formed XML: unclosed"),
      TextDamage("ExternalDtd", "<!DOCTYPE p SYSTEM 'http://127.0.0.1:1/x.dtd'><Project/>",
                 "p.vproj:1: a document type declaration (DOCTYPE) is not allowed"),
      TextDamage("Utf16CutOff", WideText("<Project/>").substr(0, 21),
                 "p.vproj:1: not well-formed XML"),
      TextDamage("Utf16FirstHalf",
                 WideText("<Project>") + std::string("\x00\xD8", 2) +
                     WideText("</Project>").substr(2),
                 LoneHalf),
      TextDamage("Utf16SecondHalf",
                 WideText("<Project>") + std::string("\x00\xDC", 2) +
                     WideText("</Project>").substr(2),
                 LoneHalf),
      TextDamage(
          "Utf16CalledUtf8", WideText("<?xml version='1.0' encoding='utf-8'?><Project/>"),
          "encoding specified in XML declaration is incorrect (the file declares \"utf-8\")"),
      TextDamage(
          "Utf8CalledUtf16", "<?xml version='1.0' encoding='utf-16'?><Project/>",
          "encoding specified in XML declaration is incorrect (the file declares \"utf-16\")"),
      TextDamage("Utf32", std::string("<\0\0\0P\0\0\0/\0\0\0>\0\0\0", 16), InvalidToken(1)),
      TextDamage("Program",
                 std::string("\x7F"
                             "ELF\2\1\1\0\0\0\0",
                             11),
                 InvalidToken(1)),
      TextDamage("Packed", std::string("\x1F\x8B\x08\0\0\0", 6), InvalidToken(1)),
      TextDamage("MergeMarks", "<Project>\n<<<<<<< ours\n<a/>\n=======\n</Project>",
                 InvalidToken(2)),
      TextDamage("WebPage", "<html><body>404</body></html>",
                 "p.vproj:1: the root element is \"html\", so this is not an MSBuild project"),
      TextDamage("MillionOfLevels", "<Project>" + RepeatedText("<a>", 1'000'000),
                 "p.vproj:1: elements are nested deeper than 256 levels"),
  };
}

// What stands below the properties of a project, beside the files that it needs.
TDamage ContentDamage(const char* name, const std::string& text, int status, const char* message,
                      std::vector<std::pair<std::string, std::string>> files = {}) {
  files.emplace_back("p.vproj", ProjectHolding(text));
  return {name, std::move(files), {"show", "p.vproj"}, status, message};
}

std::vector<TDamage> DamagedContents() {
  std::vector<std::pair<std::string, std::string>> deep;
  for (int i = 0; i < 66; ++i)
    deep.emplace_back("a" + std::to_string(i),
                      "<Project><Import Project='a" + std::to_string(i + 1) + "'/></Project>");
  return {
      ContentDamage("ImportOfItself", "<Import Project='p.vproj'/>", 0,
                    "it is part of the project already"),
      ContentDamage("ImportOfADirectory", "<Import Project='d'/>", 3,
                    "the import \"%D/d\" is no file", {{"d/x", ""}}),
      ContentDamage("ImportThatIsNoXml", "<Import Project='a.props'/>", 3,
                    "%D/a.props:1: not well-formed XML: syntax error", {{"a.props", "no"}}),
      ContentDamage("ImportOfAnotherRoot", "<Import Project='a.props'/>", 3,
                    "%D/a.props:1: the root element is \"Sheet\", which is no MSBuild project",
                    {{"a.props", "<Sheet/>"}}),
      ContentDamage("ImportWithoutAName", "<Import/>", 3,
                    "element \"Import\" lacks the required attribute \"Project\""),
      ContentDamage("ImportOfAWebPage", "<Import Project='http://127.0.0.1:1/x'/>", 0,
                    "it is not a file of this machine"),
      ContentDamage("ImportOfAShare", "<Import Project='\\\\host\\share\\x'/>", 0,
                    "it is not a file of this machine"),
      ContentDamage("ImportsWithoutEnd", "<Import Project='a0'/>", 3,
                    "is nested deeper than 64 levels", std::move(deep)),
      ContentDamage("ImportOfAMegabyteOfStars",
                    "<Import Project='" + std::string(1'000'000, '*') + "x'/>", 0,
                    "it is longer than any path"),
      ContentDamage("ConditionCutOff", "<PropertyGroup Condition=\"'$(A)'==\"/>", 3,
                    "is not valid: at character 9, a value is missing"),
      ContentDamage("ConditionOfParentheses",
                    "<PropertyGroup Condition='" + std::string(10'000, '(') + "1==1" +
                        std::string(10'000, ')') + "'/>",
                    3, "is nested deeper than 256 levels"),
      ContentDamage("ConditionWithAnUnknownFunction", "<PropertyGroup Condition='Frob(1)'/>", 3,
                    "there is no function \"Frob\""),
      ContentDamage("ConditionWithAnOpenQuote", "<PropertyGroup Condition=\"'a==1\"/>", 3,
                    "at character 1, a quote is not closed"),
      ContentDamage("PropertyThatDoubles",
                    "<PropertyGroup><A>xxxxxxxx</A>" + RepeatedText("<A>$(A)$(A)</A>", 40) +
                        "</PropertyGroup>",
                    3, "element \"A\": with its references replaced, \"$(A)$(A)\" grows too long"),
      ContentDamage("ItemWithoutAName", "<ItemGroup><ProjectFile/></ItemGroup>", 3,
                    "the item \"ProjectFile\" lacks the attribute \"Include\""),
      ContentDamage("WildcardAboveTheProject",
                    "<ItemGroup><ProjectFile Include='..\\..\\**'/></ItemGroup>", 0,
                    "it walks through everything above the project's directory"),
      ContentDamage("WildcardElsewhere", "<ItemGroup><ProjectFile Include='/usr/**'/></ItemGroup>",
                    0, "it looks for files outside the project's directory"),
      ContentDamage(
          "ConfigurationsInACircle",
          "<ItemGroup><BuildConfiguration Include='A'><Parent>B</Parent></BuildConfiguration>"
          "<BuildConfiguration Include='B'><Parent>A</Parent></BuildConfiguration></ItemGroup>",
          0, "inherits from it in turn; it inherits from \"Base\""),
      ContentDamage(
          "ConfigurationOfAParentThatIsGone",
          "<ItemGroup><BuildConfiguration Include='A'><Parent>X</Parent></BuildConfiguration>"
          "</ItemGroup>",
          0, "the parent \"X\" of the configuration \"A\" is not in the project"),
  };
}

TDamage SectionDamage(const char* name, const std::string& section, int status,
                      const char* message) {
  return {name, {{"p.vproj", ProjectWith(section)}}, {"show", "p.vproj"}, status, message};
}

std::string RecordWith(const std::string& values) {
  return ListOf("<DeployFile LocalName='a' Configuration='Debug' Class='File'>\n"
                "<Platform Name='Win32'>" +
                values + "</Platform></DeployFile>");
}

std::vector<TDamage> DamagedSections() {
  return {
      SectionDamage("VersionOfTheFuture", "<Deployment Version='99'/>", 0,
                    "the list is of version 99, and this program knows version 2"),
      SectionDamage("VersionBeyondAllNumbers", "<Deployment Version='99999999999999999999'/>", 3,
                    "attribute \"Version\" is \"99999999999999999999\", which is not an integer"),
      SectionDamage("UnknownElement", ListOf("<Surprise/>"), 0,
                    "unknown element \"Surprise\" in \"Deployment\" is not kept"),
      SectionDamage("UnknownAttribute", ListOf("<DeployFile LocalName='a' Colour='red'/>"), 0,
                    "unknown attribute \"Colour\" of \"DeployFile\" is not kept"),
      SectionDamage("TextBetweenEntries", ListOf("hello"), 0,
                    "the text in \"Deployment\" is not kept"),
      SectionDamage("EntryTwice",
                    ListOf(Entry("a", "Debug", "Win32") + Entry("a", "Debug", "Win32")), 0,
                    "1 file entries have the same configuration, platform and name as a later one"),
      SectionDamage("OperationBelowTheFirst", RecordWith("<Operation>-1</Operation>"), 3,
                    "its text is \"-1\", which is not an operation (0 to 6)"),
      SectionDamage("OperationBeyondAllNumbers", RecordWith("<Operation>4294967296</Operation>"), 3,
                    "its text is \"4294967296\", which is not an integer"),
      SectionDamage("OverwriteOfLetters", RecordWith("<Overwrite>maybe</Overwrite>"), 3,
                    "its text is \"maybe\", which is not a Boolean"),
      SectionDamage("ClassWithAnOperationOfLetters",
                    ListOf("<DeployClass Name='X'><Platform Name='Win32'><Operation>x</Operation>"
                           "</Platform></DeployClass>"),
                    3, "its text is \"x\", which is not an integer"),
      SectionDamage(
          "RecordForAllPlatforms",
          ListOf("<DeployFile LocalName='a'><Platform Name='All Platforms'/></DeployFile>"), 0,
          "the record of an entry for \"All Platforms\" is not kept"),
  };
}

class DamagedProject : public testing::TestWithParam<TDamage> {};

TEST_P(DamagedProject, IsToldAndLeftAlone) {
  ExpectToldAndLeftAlone(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, DamagedProject, testing::ValuesIn(DamagedTexts()), NameOfDamage);
INSTANTIATE_TEST_SUITE_P(Contents, DamagedProject, testing::ValuesIn(DamagedContents()),
                         NameOfDamage);
INSTANTIATE_TEST_SUITE_P(Sections, DamagedProject, testing::ValuesIn(DamagedSections()),
                         NameOfDamage);

} // namespace
} // namespace integration
