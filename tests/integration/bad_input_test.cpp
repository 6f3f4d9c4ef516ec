// Bad projects: status 3, one sentence with file and line, and the file on disk as it was.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace integration {
namespace {

struct TBadInput {
  std::string Name;
  std::string Text;
  std::string Error; // behind "deploymgr: p.vproj:"
};

std::string In(std::string_view section) {
  return ProjectWith("<Deployment Version=\"2\">\n" + std::string(section) + "\n</Deployment>");
}

std::string Nested(std::size_t levels) {
  std::string text;
  for (std::size_t i = 0; i < levels; ++i)
    text += "<a>";
  for (std::size_t i = 0; i < levels; ++i)
    text += "</a>";
  return text;
}

std::string ManyAttributes(int count) {
  std::string text = "<Project";
  for (int i = 0; i < count; ++i)
    text += " a" + std::to_string(i) + "=''";
  return text + "/>";
}

std::vector<TBadInput> BadInputs() {
  const std::string bom = "\xEF\xBB\xBF";
  return {
      {"Empty", "", "1: the file is empty"},
      {"OnlyAByteOrderMark", bom, "1: the file is empty"},
      {"OnlyBlanks", " \n\t\r\n", "1: the file is empty"},
      {"ZeroBytes", std::string(100, '\0'), "1: the file holds nothing but zero bytes"},
      {"NotXml", "hello\n", "1: not well-formed XML: syntax error"},
      {"Truncated", ProjectWith("").substr(0, 300), "6: not well-formed XML: unclosed token"},
      {"AnotherRoot", "<Solution/>",
       "1: the root element is \"Solution\", so this is not an MSBuild project"},
      {"TwoRoots", "<Project/>\n<Project/>", "2: not well-formed XML: junk after document element"},
      {"TextBehindTheRoot", "<Project/>\nx", "2: not well-formed XML: junk after document element"},
      {"AttributeTwice", "<Project a='1' a='2'/>", "1: not well-formed XML: duplicate attribute"},
      {"UndeclaredPrefix", "<Project><x:a/></Project>",
       "1: not well-formed XML: the prefix of \"x:a\" is not declared"},
      {"UndeclaredEntity", "<Project>&nbsp;</Project>", "1: not well-formed XML: undefined entity"},
      {"EntityBomb", "<!DOCTYPE p [<!ENTITY a 'a'><!ENTITY b '&a;&a;'>]>\n<Project>&b;</Project>",
       "1: a document type declaration (DOCTYPE) is not allowed in such a file"},
      {"ExternalEntity", "<!DOCTYPE p [<!ENTITY a SYSTEM '/etc/passwd'>]><Project>&a;</Project>",
       "1: a document type declaration (DOCTYPE) is not allowed in such a file"},
      {"BareDoctype", "<!DOCTYPE Project><Project/>",
       "1: a document type declaration (DOCTYPE) is not allowed in such a file"},
      {"InvalidUtf8", "<Project>\n\xFF</Project>",
       "2: not well-formed XML: not well-formed (invalid token)"},
      {"ZeroCharacter", "<Project>&#0;</Project>",
       "1: not well-formed XML: reference to invalid character number"},
      {"UnknownEncoding", "<?xml version='1.0' encoding='klingon'?><Project/>",
       "1: not well-formed XML: unknown encoding (the file declares \"klingon\")"},
      {"DeepNesting", "<Project>" + Nested(100'000) + "</Project>",
       "1: elements are nested deeper than 256 levels"},
      {"ManyAttributes", ManyAttributes(1'025),
       "1: element \"Project\" has more than 1024 attributes"},
      {"LongName", "<Project><" + std::string(50'001, 'n') + "/></Project>",
       "1: an element's name is longer than 50000 bytes"},
      {"LongAttribute", "<Project a='" + std::string(11'000'000, 'x') + "'/>",
       "1: attribute \"a\" is longer than 10485760 bytes"},
      {"PlatformWithoutName", In("<DeployFile LocalName='a'><Platform/></DeployFile>"),
       "18: element \"Platform\" lacks the required attribute \"Name\""},
      {"ProjectRootWithoutAttributes", In("<ProjectRoot/>"),
       "18: element \"ProjectRoot\" lacks the required attribute \"Name\""},
      {"VersionOfLetters", ProjectWith("<Deployment Version=\"two\"/>"),
       "17: element \"Deployment\": attribute \"Version\" is \"two\", which is not an integer"},
      {"OperationOfLetters",
       In("<DeployFile LocalName='a'>\n<Platform "
          "Name='W'><Operation>copy</Operation></Platform></DeployFile>"),
       "19: element \"Operation\": its text is \"copy\", which is not an integer"},
      {"OperationBeyondTheLast",
       In("<DeployFile LocalName='a'><Platform "
          "Name='W'><Operation>7</Operation></Platform></DeployFile>"),
       "18: element \"Operation\": its text is \"7\", which is not an operation (0 to 6)"},
      {"BooleanOfLetters",
       In("<DeployFile LocalName='a'><Platform "
          "Name='W'><Enabled>perhaps</Enabled></Platform></DeployFile>"),
       "18: element \"Enabled\": its text is \"perhaps\", which is not a Boolean (true or false)"},
      {"RequiredOfLetters", In("<DeployFile LocalName='a' Required='very'/>"),
       "18: element \"DeployFile\": attribute \"Required\" is \"very\", which is not a Boolean "
       "(true or false)"},
      {"TwoSections", ProjectWith("<Deployment Version=\"2\"/>\n<deployment/>"),
       "18: the project holds a second section \"deployment\"; the first one stands in line 17"},
  };
}

class BadInput : public testing::TestWithParam<TBadInput> {};

TEST_P(BadInput, IsRefusedWithOneSentenceAndLeftAsItIs) {
  TWorkplace place;
  place.Write("p.vproj", GetParam().Text);
  const std::string error = "deploymgr: p.vproj:" + GetParam().Error + "\n";
  for (const std::vector<std::string>& command : {std::vector<std::string>{"show", "p.vproj"},
                                                  {"add", "p.vproj", "x.dat"},
                                                  {"upgrade", "p.vproj"},
                                                  {"export", "p.vproj"}}) {
    const TRun run = place.Run(command);
    EXPECT_EQ(run.Status, 3) << command[0];
    EXPECT_EQ(run.Errors, error);
    EXPECT_EQ(run.Output, "");
  }
  EXPECT_EQ(place.Read("p.vproj"), GetParam().Text);
  EXPECT_EQ(place.Files(), std::vector<std::string>({"p.vproj"}));
}

INSTANTIATE_TEST_SUITE_P(Inputs, BadInput, testing::ValuesIn(BadInputs()),
                         [](const auto& input) { return input.param.Name; });

TEST(BadInputs, AreToldAsADocumentToo) {
  TWorkplace place;
  place.Write("p.vproj", "<Project>\n<x></Project>");
  const TRun run = place.Run({"show", "p.vproj", "--json"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_EQ(run.Json().dump(), R"({"error":{"code":3,"message":"not well-formed XML: mismatched )"
                               R"(tag","file":"p.vproj","line":2}})");
}

TEST(Documents, HaveASchemaAndTheWarningsOfTheRun) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const std::string warning =
      R"([{"text":"the side file holds every target; --config and --platform change nothing",)"
      R"("file":"","line":0}])";
  const TRun run = place.Run({"export", "p.vproj", "-p", "Win32", "--json"});
  EXPECT_EQ(run.Document().begin().key(), "schema");
  EXPECT_EQ(run.Document()["schema"], 1);
  EXPECT_EQ(run.Document()["warnings"].dump(), warning);
  EXPECT_EQ(place.Run({"export", "p.vproj", "-p", "Win32", "--json", "--quiet"}).Errors, "");
  EXPECT_EQ(place.Run({"export", "p.vproj", "-p", "Win32", "--json", "--quiet"})
                .Document()["warnings"]
                .dump(),
            warning);
  const TRun failed = place.Run({"show", "gone.vproj", "--json"});
  EXPECT_EQ(failed.Document()["schema"], 1);
  EXPECT_EQ(failed.Document()["warnings"].dump(), "[]");
  EXPECT_EQ(failed.Document()["error"]["code"], 3);
  const TRun wrong = place.Run({"show", "--json"});
  EXPECT_EQ(wrong.Document()["schema"], 1);
  EXPECT_EQ(wrong.Document()["error"]["code"], 2);
  const TRun stream = place.Run({"show", "p.vproj", "--json"});
  EXPECT_EQ(stream.Document().begin().key(), "schema");
  EXPECT_EQ(stream.Document()["warnings"].dump(), "[]");
}

TEST(BadInputs, ThatAreNoPlainFilesAreRefusedAtOnce) {
  TWorkplace place;
  std::filesystem::create_directory(place.Path("folder"));
  ASSERT_EQ(::mkfifo(place.Path("pipe").c_str(), 0600), 0);
  for (const std::string name : {"folder", "pipe", "/dev/null", "missing"}) {
    const TRun run = place.Run({"add", name, "x.dat"});
    EXPECT_EQ(run.Status, 3) << name;
    EXPECT_NE(run.Errors.find("deploymgr: " + name + ": "), std::string::npos) << run.Errors;
  }
}

TEST(BadInputs, LargerThanTheLimitAreRefusedWithoutBeingRead) {
  TWorkplace place;
  place.Write("p.vproj", "<Project/>");
  std::filesystem::resize_file(place.Path("p.vproj"), std::uintmax_t{257} * 1024 * 1024);
  const TRun run = place.Run({"show", "p.vproj"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_NE(run.Errors.find("at most 268435456 are read"), std::string::npos) << run.Errors;
}

TEST(BadInputs, TruncatedAnywhereAreRefusedOrLoadWhole) {
  const std::string text = In("<DeployFile LocalName='a' Configuration='' Class='File'/>");
  TWorkplace place;
  for (std::size_t length = 0; length < text.size() - 1; length += text.size() / 20) {
    place.Write("p.vproj", text.substr(0, length));
    EXPECT_EQ(place.Run({"show", "p.vproj"}).Status, 3) << length;
  }
}

TEST(BadDefaults, AreNamedAndNothingIsSaved) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  place.Write("root/ObjRepos/Deploy/defaults.xml", "<Deployment Version='2'>\n<DeployClass>\n");
  const TRun run = place.Run({"add", "p.vproj", "x.dat", "--missing-ok", "--root", "root"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_NE(run.Errors.find("root/ObjRepos/Deploy/defaults.xml:3: not well-formed XML"),
            std::string::npos)
      << run.Errors;
  EXPECT_EQ(place.Read("p.vproj"), ProjectWith(""));
}

TEST(Installation, ThatIsNotThereIsNamedAndNothingIsSaved) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a", "Debug", "Win32"))));
  const std::string before = place.Read("p.vproj");
  std::filesystem::create_directories(place.Path("root"));
  for (const std::vector<std::string>& command : {std::vector<std::string>{"show", "p.vproj"},
                                                  {"list", "p.vproj"},
                                                  {"classes"},
                                                  {"reconcile", "p.vproj"},
                                                  {"export", "p.vproj"},
                                                  {"new", "n.vproj"}}) {
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.end(), {"--root", "root"});
    const TRun run = place.Run(arguments);
    EXPECT_EQ(run.Status, 3) << command[0] << run.Errors;
    EXPECT_NE(run.Errors.find(place.Path("root/ObjRepos/Deploy").string()), std::string::npos)
        << run.Errors;
  }
  EXPECT_EQ(place.Run({"platforms", "--root", "root"}).Status, 0);
  EXPECT_EQ(place.Read("p.vproj"), before);
  EXPECT_EQ(place.Files(), std::vector<std::string>({"p.vproj"}));
}

// A root without one of the files; each command and the file that it cannot do without.
TEST(Installation, WithoutAFileThatASaveStoresOrWritesFromSavesNothing) {
  const std::vector<std::pair<const char*, std::vector<std::string>>> cases{
      {"defaults.xml", {"reconcile", "p.vproj"}},
      {"defaults.xml", {"add", "p.vproj", "$(X)\\a"}},
      {"defaults.xml", {"upgrade", "p.vproj"}},
      {"defaults.xml", {"revert", "p.vproj"}},
      {"defaults.xml", {"classes"}},
      {"deploymenttemplate.xml", {"reconcile", "p.vproj"}},
      {"deploymenttemplate.xml", {"reconcile", "p.vproj", "--check"}},
      {"deploymenttemplate.xml", {"add", "p.vproj", "$(X)\\a"}},
      {"deploymenttemplate.xml", {"export", "p.vproj"}},
      {"deploymenttemplate.xml", {"export", "p.vproj", "--dry-run"}},
  };
  for (const auto& [file, command] : cases) {
    TWorkplace place;
    place.CopyRoot();
    place.Write("p.vproj", ProjectWith(""));
    std::filesystem::remove(place.Path("root/ObjRepos/Deploy") / file);
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.end(), {"--root", "root"});
    const TRun run = place.Run(arguments);
    EXPECT_EQ(run.Status, 3) << file << " " << command[0];
    EXPECT_NE(run.Errors.find(std::string("root/ObjRepos/Deploy/") + file +
                              ": there is no such "
                              "file: the installation is not complete"),
              std::string::npos)
        << command[0] << run.Errors;
    EXPECT_EQ(place.Read("p.vproj"), ProjectWith(""));
    EXPECT_FALSE(std::filesystem::exists(place.Path("p.deployproj")));
  }
}

TEST(Installation, NeedsNeitherCatalogNorPlatformTable) {
  TWorkplace place;
  place.CopyRoot();
  place.Write("p.vproj", ProjectWith(""));
  std::filesystem::remove(place.Path("root/ObjRepos/Deploy/platforms.xml"));
  std::filesystem::remove(place.Path("root/ObjRepos/Deploy/featuredfiles.xml"));
  EXPECT_EQ(place.Run({"featured", "p.vproj", "--root", "root"}).Output, "there are no features\n");
  EXPECT_EQ(place.Run({"reconcile", "p.vproj", "--root", "root"}).Status, 0);
}

TEST(BadPlatformTable, IsNamedWithItsLine) {
  TWorkplace place;
  place.Write("root/ObjRepos/Deploy/platforms.xml",
              "<Platforms Version=\"1\">\n<Platform/>\n</Platforms>");
  const TRun run = place.Run({"platforms", "--root", "root"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_NE(run.Errors.find("root/ObjRepos/Deploy/platforms.xml:2: "), std::string::npos)
      << run.Errors;
}

} // namespace
} // namespace integration
