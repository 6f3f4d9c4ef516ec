// The rows of the Deployment Manager on a terminal.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace integration {
namespace {

using TTexts = std::vector<std::string>;

constexpr const char* ListedProject = "tide-logger/TideLogger.vproj";

// A project with these properties besides.
std::string WithProperties(const std::string& properties) {
  std::string text = ProjectWith(ListOf(""));
  return text.insert(text.rfind("</Project>"),
                     "<PropertyGroup>" + properties + "</PropertyGroup>\n");
}

class List : public testing::Test {
protected:
  List() { Place.CopyOf(Tree / "examples/tide-logger"); }
  // One text of each row.
  TTexts Column(const TTexts& options, const std::string& key) {
    TTexts command{"list", ListedProject, "--json"};
    command.insert(command.end(), options.begin(), options.end());
    const TRun run = Place.Run(command);
    EXPECT_EQ(run.Status, 0) << run.Errors;
    TTexts texts;
    const auto document = run.Json();
    for (const auto& row : document["rows"])
      texts.push_back(row[key]);
    return texts;
  }

  TWorkplace Place;
};

TEST_F(List, ShowsTheRowsOfTheActiveTarget) {
  const auto document = Place.Run({"list", ListedProject, "--json"}).Json();
  EXPECT_EQ(document["platform"], "Win64");
  EXPECT_EQ(document["configuration"], "Debug");
  EXPECT_EQ(document["connected"], false);
  ASSERT_FALSE(document["rows"].empty());
  EXPECT_EQ(document["rows"][0],
            nlohmann::ordered_json::parse(
                R"({"localPath":"Win64\\Debug\\","localName":"TideLogger.dll",)"
                R"("type":"ProjectOutput","configuration":"Debug","platforms":"[Win64]",)"
                R"("remotePath":".\\","remoteName":"TideLogger.dll",)"
                R"("remoteStatus":"Not Connected","localStatus":"Not Connected",)"
                R"("overwrite":"Always","checked":true,"dimmed":false})"));
}

TEST_F(List, ShowsWhatTheConfigurationInherits) {
  const TTexts field = Column({"-p", "Win32", "-c", "Field"}, "configuration");
  EXPECT_NE(std::ranges::find(field, "Base"), field.end());
  EXPECT_NE(std::ranges::find(field, "Release"), field.end());
  EXPECT_EQ(std::ranges::find(field, "Debug"), field.end());
}

TEST_F(List, SavesNothingAndReconcilesInMemory) {
  const std::string before = Place.Read(ListedProject);
  const TTexts types = Column({"-p", "Android"}, "type");
  EXPECT_NE(std::ranges::find(types, "ProjectAndroidManifest"), types.end());
  EXPECT_EQ(Place.Read(ListedProject), before);
}

TEST_F(List, SortsByAnyTextBothWays) {
  TTexts up = Column({"--sort", "remoteName"}, "remoteName");
  TTexts down = Column({"--sort", "remoteName:desc"}, "remoteName");
  EXPECT_GT(up.size(), 3U);
  std::ranges::reverse(down);
  EXPECT_EQ(up, down);
  EXPECT_EQ(Column({"--sort", "overwrite"}, "overwrite").front(), "Always");
  EXPECT_EQ(Column({"--sort", "overwrite:desc"}, "overwrite").front(), "Never");
}

TEST_F(List, KnowsTheTextsThatItSortsBy) {
  const TRun run = Place.Run({"list", ListedProject, "--sort", "size"});
  EXPECT_EQ(run.Status, 2);
  EXPECT_EQ(run.Errors,
            "deploymgr: rows are not sorted by \"size\"; known are: localPath, localName, type, "
            "configuration, platforms, remotePath, remoteName, remoteStatus, localStatus, "
            "overwrite\n");
}

TEST_F(List, ShowsEveryPlatformAtOnce) {
  const auto document = Place.Run({"list", ListedProject, "-p", "all", "--json"}).Json();
  EXPECT_EQ(document["platform"], "All Platforms");
  TTexts platforms;
  for (const auto& row : document["rows"])
    platforms.push_back(row["platforms"]);
  EXPECT_NE(std::ranges::find(platforms, "[Win32,Win64,Android]"), platforms.end());
  EXPECT_NE(std::ranges::find(platforms, "[OSX32]"), platforms.end());
}

TEST_F(List, DimsRowsWhoseLocalFileIsMissing) {
  std::filesystem::remove(Place.Path("tide-logger/data/levels.dat"));
  const auto document = Place.Run({"list", ListedProject, "--json"}).Json();
  for (const auto& row : document["rows"])
    EXPECT_EQ(row["dimmed"], row["localName"] == "levels.dat") << row;
}

TEST_F(List, PrintsOneLineForEachFile) {
  const TRun run = Place.Run({"list", ListedProject});
  EXPECT_EQ(CountOf(run.Output, "\n"), Column({}, "localName").size());
  EXPECT_TRUE(run.Output.starts_with("[x] Win64\\Debug\\")) << run.Output;
}

TEST_F(List, KeepsRowsOfDisabledFilesUnchecked) {
  const auto document =
      Place.Run({"list", ListedProject, "-p", "Android", "-c", "Release", "--json"}).Json();
  bool found = false;
  for (const auto& row : document["rows"]) {
    if (row["localName"] == "Gezeiten für Anfänger.txt") {
      found = true;
      EXPECT_EQ(row["checked"], false);
    }
  }
  EXPECT_TRUE(found);
}

TEST_F(List, WarnsOfATargetThatIsNotSetUp) {
  const TRun run = Place.Run({"list", ListedProject, "-p", "OSX32", "-c", "Field"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_NE(run.Errors.find("has not set up configuration \"Field\" for platform \"OSX32\""),
            std::string::npos)
      << run.Errors;
}

TEST_F(List, OfOddNamesShowsThemEscaped) {
  Place.Write("p.vproj", ProjectWith(ListOf(Entry("[a], ü$(Nobody).dat", "Debug", "Win32") +
                                            Entry(std::string(4000, 'x'), "Debug", "Win32"))));
  const TRun run = Place.Run({"list", "p.vproj"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(run.Output.find("[a], ü$(Nobody).dat"), std::string::npos);
  EXPECT_NE(run.Output.find(std::string(4000, 'x')), std::string::npos);
}

TEST_F(List, ConnectsToOnePlatformOnly) {
  EXPECT_EQ(Place.Run({"status", ListedProject, "-p", "all"}).Status, 2);
  const TRun run = Place.Run({"status", ListedProject});
  EXPECT_EQ(run.Status, 5);
  EXPECT_EQ(run.Errors, "deploymgr: the project has no profile for this platform\n");
  EXPECT_EQ(Place.Run({"list", ListedProject, "--connect", "-p", "Android"}).Status, 5);
}

// A reconcile warns each time, so the warnings count them.
TEST_F(List, ReconcilesItsTargetOnce) {
  Place.Write("p.vproj", WithProperties("<Android_LauncherIcon36>i.png</Android_LauncherIcon36>"
                                        "<Android_LauncherIcon48>i.png</Android_LauncherIcon48>"));
  EXPECT_EQ(CountOf(Place.Run({"list", "p.vproj", "-p", "Android"}).Errors, "two roles"), 1U);
  EXPECT_EQ(
      CountOf(Place.Run({"deploy", "p.vproj", "-p", "Android", "--dry-run"}).Errors, "two roles"),
      1U);
}

TEST_F(List, EndsWithTheReasonWhenTheTargetCannotBeComputed) {
  Place.Write("p.vproj", WithProperties("<PXC_GenerateUniversalBinaryFile>maybe"
                                        "</PXC_GenerateUniversalBinaryFile>"));
  for (const std::string command : {"list", "status", "deploy"}) {
    const TRun run = Place.Run({command, "p.vproj", "-p", "iOSDevice64"});
    EXPECT_EQ(run.Status, 3) << command;
    EXPECT_NE(run.Errors.find("\"maybe\""), std::string::npos) << run.Errors;
    EXPECT_EQ(run.Output, "");
  }
}

} // namespace
} // namespace integration
