#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace integration {
namespace {

using TTexts = std::vector<std::string>;

constexpr const char* Chart = "sky-chart/SkyChart.vproj";

std::string StateOf(const TWorkplace& place, const std::string& title) {
  const auto document = place.Run({"featured", Chart, "--json"}).Json();
  for (const auto& feature : document["features"]) {
    if (feature["title"] == title)
      return feature["state"];
  }
  return "none";
}

// The entries of that local name as "configuration, platform, class, directory".
TTexts EntriesOf(const TWorkplace& place, const std::string& localName) {
  TTexts entries;
  const auto files = place.FilesOf(Chart);
  for (const auto& file : files) {
    if (file["localName"] != localName)
      continue;
    const std::string platform = file["platform"];
    entries.push_back(file["configuration"].get<std::string>() + ", " + platform + ", " +
                      file["class"].get<std::string>() + ", " +
                      file["platforms"][platform]["remoteDir"].get<std::string>());
  }
  std::sort(entries.begin(), entries.end());
  return entries;
}

class Featured : public testing::Test {
protected:
  Featured() { Place.CopyOf(Tree / "examples/sky-chart"); }
  // A root of the test's own with this catalog.
  TRun RunWith(const std::string& catalog, TTexts arguments) {
    if (!std::filesystem::exists(Place.Path("root")))
      Place.CopyRoot();
    Place.Write("root/ObjRepos/Deploy/featuredfiles.xml", catalog);
    arguments.insert(arguments.end(), {"--root", "root"});
    return Place.Run(std::move(arguments));
  }

  TWorkplace Place;
};

TEST_F(Featured, CatalogThatShipsIsSound) {
  const auto document = Place.Run({"featured", Chart, "--json"}).Json();
  const auto platforms = Place.Run({"platforms", "--json"}).Json();
  const auto classes = Place.Run({"classes", "--json"}).Json();
  std::set<std::string> titles;
  std::set<std::string> knownPlatforms;
  std::set<std::string> knownClasses;
  std::set<std::string> usedPlatforms;
  for (const auto& platform : platforms["platforms"])
    knownPlatforms.insert(platform["name"]);
  for (const auto& each : classes["classes"])
    knownClasses.insert(each["name"]);
  ASSERT_GE(document["features"].size(), 6U);
  for (const auto& feature : document["features"]) {
    EXPECT_TRUE(titles.insert(feature["title"]).second) << feature["title"];
    EXPECT_FALSE(feature["classes"].empty()) << feature["title"];
    EXPECT_FALSE(feature["files"].empty()) << feature["title"];
    for (const auto& file : feature["files"]) {
      EXPECT_TRUE(knownClasses.contains(file["class"])) << file;
      for (const auto& platform : file["platforms"]) {
        EXPECT_TRUE(knownPlatforms.contains(platform)) << file;
        EXPECT_NE(file["remoteDirs"][platform.get<std::string>()], "") << file;
        usedPlatforms.insert(platform);
      }
    }
  }
  EXPECT_EQ(usedPlatforms, knownPlatforms);
  EXPECT_FALSE(titles.contains("Cluster agent"));
}

TEST_F(Featured, FilesThatTheExamplesBringAreThere) {
  EXPECT_TRUE(std::filesystem::exists(Tree / "examples/sky-chart/optional/BrightStars.dat"));
  EXPECT_TRUE(std::filesystem::exists(Tree / "examples/tide-logger/optional/Harbours.dat"));
  EXPECT_EQ(StateOf(Place, "Bright stars"), "unchecked");
  EXPECT_EQ(StateOf(Place, "Harbours"), "unchecked");
}

TEST_F(Featured, AreNarrowedByAnExtensionWithOrWithoutItsDot) {
  TTexts titles;
  for (const char* extension : {".ttf", "TTF"}) {
    const auto document = Place.Run({"featured", Chart, "--extension", extension, "--json"}).Json();
    ASSERT_EQ(document["features"].size(), 1U);
    EXPECT_EQ(document["features"][0]["title"], "Text fonts");
  }
  EXPECT_EQ(Place.Run({"featured", Chart, "--extension", ".nope"}).Output,
            "there are no features\n");
}

TEST_F(Featured, AreChosenForEveryConfigurationAndRecorded) {
  const TRun run = Place.Run({"featured", Chart, "--choose", "bright stars"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  const TTexts entries = EntriesOf(Place, "optional\\BrightStars.dat");
  ASSERT_EQ(entries.size(), 18U);
  EXPECT_EQ(entries.front(), "Debug, Android, File, assets\\internal\\tables\\");
  EXPECT_EQ(entries.back(), "Release, iOSSimulator, File, .\\tables\\");
  EXPECT_NE(Place.Read(Chart).find("<FeatureFilesAdded>Database</FeatureFilesAdded>"),
            std::string::npos);
  EXPECT_EQ(StateOf(Place, "Bright stars"), "checked");
  const std::string saved = Place.Read(Chart);
  EXPECT_EQ(Place.Run({"featured", Chart, "--choose", "Bright stars"}).Output, "nothing to do\n");
  EXPECT_EQ(Place.Read(Chart), saved);
}

TEST_F(Featured, AreDroppedAgain) {
  ASSERT_EQ(Place.Run({"featured", Chart, "--choose", "Bright stars"}).Status, 0);
  const TRun run = Place.Run({"featured", Chart, "--drop", "Bright stars", "--json"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(EntriesOf(Place, "optional\\BrightStars.dat"), TTexts{});
  EXPECT_EQ(StateOf(Place, "Bright stars"), "unchecked");
  EXPECT_EQ(Place.Run({"featured", Chart, "--drop", "Bright stars"}).Output, "nothing to do\n");
}

TEST_F(Featured, AreMixedWhenOnePlatformIsMissing) {
  ASSERT_EQ(Place.Run({"featured", Chart, "--choose", "Bright stars"}).Status, 0);
  for (const char* configuration : {"Debug", "Release"})
    ASSERT_EQ(Place
                  .Run({"remove", Chart, "optional\\BrightStars.dat", "-p", "Win64", "-c",
                        configuration, "--yes"})
                  .Status,
              0);
  EXPECT_EQ(StateOf(Place, "Bright stars"), "mixed");
}

TEST_F(Featured, OfAProjectWithoutConfigurationsAreNotTaken) {
  Place.Write("p.vproj", "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">"
                         "<ItemGroup><TargetPlatform Include=\"Win32\"/></ItemGroup></Project>");
  const TRun list = Place.Run({"featured", "p.vproj", "--extension", ".ttf"});
  EXPECT_EQ(list.Output, "unchecked  Text fonts  [Typography]\n");
  EXPECT_EQ(list.Errors, "deploymgr: p.vproj: warning: the project has no configuration but Base, "
                         "so it takes no optional files\n");
  const std::string before = Place.Read("p.vproj");
  EXPECT_EQ(Place.Run({"featured", "p.vproj", "--choose", "Text fonts"}).Output, "nothing to do\n");
  EXPECT_EQ(Place.Read("p.vproj"), before);
}

TEST_F(Featured, ChangeNothingInADryRun) {
  const std::string before = Place.Read(Chart);
  const TRun run = Place.Run({"featured", Chart, "--choose", "Text fonts", "--dry-run"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_NE(
      run.Output.find("would add $(ZELK)\\Redist\\common\\TextSans.ttf [File] for Debug, Win32"),
      std::string::npos)
      << run.Output;
  EXPECT_EQ(Place.Read(Chart), before);
}

TEST_F(Featured, ThatNobodyKnowsAreWrongUsage) {
  const TRun run = Place.Run({"featured", Chart, "--choose", "Text font"});
  EXPECT_EQ(run.Status, 2);
  EXPECT_EQ(run.Errors,
            "deploymgr: there is no feature \"Text font\"; did you mean \"Text fonts\"?\n");
  EXPECT_EQ(Place.Run({"featured", Chart, "--choose", "Text fonts", "--drop", "Text fonts"}).Status,
            2);
}

TEST_F(Featured, ComeFromACatalogThatIsUnderstoodOnly) {
  const std::string file = Place.Path("root/ObjRepos/Deploy/featuredfiles.xml").string();
  const std::string before = Place.Read(Chart);
  const std::pair<const char*, const char*> mistakes[] = {
      {"", ":1: "},
      {"no XML", ":1: "},
      {"<C>\n<FeatureClass ProductName=\"Deployment Manager\" Name=\"Data\"/>\n"
       "<FeatureClass ProductName=\"Deployment Manager\" Name=\"data\"/></C>",
       ":3: the feature class \"data\" stands twice"},
      {"<C>\n<Feature ProductName=\"Deployment Manager\"><Title><b/></Title></Feature></C>",
       ":2: the element \"Title\" holds elements where a text is wanted"},
  };
  for (const auto& [catalog, expected] : mistakes) {
    const TRun list = RunWith(catalog, {"featured", Chart});
    EXPECT_EQ(list.Status, 3) << catalog;
    EXPECT_EQ(list.Errors.find("deploymgr: " + file + expected), 0U) << list.Errors;
  }
  EXPECT_EQ(Place.Read(Chart), before);
}

TEST_F(Featured, CatalogWithAMistakeIsReportedByAReconcileWhichGoesOn) {
  const TRun run = RunWith("no XML", {"reconcile", Chart, "-p", "Win32"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_NE(run.Errors.find("featuredfiles.xml:1: warning: no optional files are offered: "),
            std::string::npos)
      << run.Errors;
  EXPECT_NE(run.Output.find("added data\\levels.dat [ProjectFile]"), std::string::npos);
  EXPECT_EQ(Place.Read(Chart).find("FeatureFilesAdded"), std::string::npos);
}

TEST_F(Featured, CatalogWithAMistakeIsReportedOnceForAllTargets) {
  const TRun run = RunWith("no XML", {"reconcile", Chart, "--all"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(CountOf(run.Errors, "no optional files are offered"), 1U) << run.Errors;
}

TEST_F(Featured, AreNotOfferedWhereNobodyCanAnswer) {
  const TRun run = Place.Run({"reconcile", Chart, "-p", "Win32"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Errors, "");
  EXPECT_EQ(Place.Read(Chart).find("FeatureFilesAdded"), std::string::npos);
}

TEST_F(Featured, AreOfferedAtATerminalAndRecorded) {
  std::size_t questions = 0;
  const TRun run = Place.RunAtTerminal(
      {"reconcile", Chart, "-p", "Win32"}, [&](const TQuestion& question) -> std::string {
        ++questions;
        const std::size_t last = question.Text.rfind("Deploy the optional files of");
        return question.Text.find("Bright stars", last) != std::string::npos ? "y" : "n";
      });
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_GT(questions, 1U);
  EXPECT_EQ(EntriesOf(Place, "optional\\BrightStars.dat").size(), 18U) << run.Errors;
  EXPECT_NE(Place.Read(Chart).find("<FeatureFilesAdded>Database"), std::string::npos);
  const TRun again = Place.RunAtTerminal({"reconcile", Chart, "-p", "Win32"},
                                         [](const TQuestion&) -> std::string { return "y"; });
  EXPECT_EQ(again.Output, "nothing to do\n") << again.Errors;
}

TEST_F(Featured, ProjectFileThatLeavesTheProjectLosesItsEntry) {
  ASSERT_EQ(Place.Run({"reconcile", Chart, "-p", "Win32"}).Status, 0);
  Place.Write(Chart,
              Replaced(Place.Read(Chart), "<ProjectFile Include=\"data\\levels.dat\"/>", ""));
  EXPECT_EQ(Place.Run({"reconcile", Chart, "-p", "Win32"}).Output,
            "removed data\\levels.dat [ProjectFile] for Debug, Win32\n");
}

} // namespace
} // namespace integration
