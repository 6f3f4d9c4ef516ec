// Projects that other people's tools wrote, and the examples that ship.
#include "tests/integration/temporary_project.h"
#include "tests/support/sanitized.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace integration {
namespace {

std::vector<std::filesystem::path> RealProjects() {
  std::vector<std::filesystem::path> projects;
  const auto folder = Tree.parent_path() / "shared" / "projects";
  std::error_code absent;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, absent)) {
    if (entry.path().extension() == ".vcxproj")
      projects.push_back(entry.path());
  }
  return projects;
}

std::string WithoutWhatWasAdded(std::string text) {
  const std::size_t start = text.find("<ProjectExtensions>");
  const std::size_t line = text.rfind('\n', start);
  const std::size_t import =
      text.find("<Import Project=\"$(MSBuildProjectName).deployproj\"", start);
  const std::size_t end = text.find("/>", import) + 2;
  const bool carriageReturn = text[line - 1] == '\r';
  return text.erase(line - (carriageReturn ? 1 : 0), end - line + (carriageReturn ? 1 : 0));
}

TEST(RealProject, GetsTheListAndTheImportLineAndNothingElse) {
  const auto projects = RealProjects();
  if (projects.empty())
    GTEST_SKIP() << "there are no foreign projects beside this tree";
  constexpr std::size_t Step = testing_support::IsSanitized ? 8 : 1;
  for (std::size_t i = 0; i < projects.size(); i += Step) {
    const auto& file = projects[i];
    TWorkplace place;
    const std::string name = place.CopyOf(file).filename().string();
    const std::string before = place.Read(name);
    const TRun run =
        place.Run({"add", name, "docs/manual.pdf", "-p", "Win64", "--missing-ok", "--quiet"});
    ASSERT_EQ(run.Status, 0) << run.Errors;
    const std::string after = place.Read(name);
    EXPECT_EQ(WithoutWhatWasAdded(after), before) << name;
    ASSERT_EQ(
        place.Run({"add", name, "second.txt", "-p", "Win64", "--missing-ok", "--quiet"}).Status, 0);
    EXPECT_EQ(WithoutSection(place.Read(name)), WithoutSection(after));
    EXPECT_EQ(place.Run({"upgrade", name}).Output, "nothing to do\n");
    const auto shown = place.Run({"show", name, "--json"}).Json();
    EXPECT_EQ(shown["version"], 2);
    EXPECT_EQ(shown["files"].size(), 2U);
    EXPECT_GT(shown["classes"].size(), 60U);
  }
}

TEST(Example, WithTheOldListIsUpgraded) {
  TWorkplace place;
  place.CopyOf(Tree / "examples" / "sky-chart");
  const std::string project = "sky-chart/SkyChart.vproj";
  const auto before = place.Run({"show", project, "--json"}).Json();
  EXPECT_EQ(before["version"], 0);
  EXPECT_EQ(before["files"][0]["localName"], "iOSDevice32\\Debug\\SkyChart");
  const TRun run = place.Run({"upgrade", project});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Output, "the list upgraded from version 0 to 2\n");
  auto after = place.Run({"show", project, "--json"}).Json();
  EXPECT_EQ(after["version"], 2);
  EXPECT_EQ(after["projectRoots"]["iOSDevice64"], "SkyChart.app");
  EXPECT_EQ(after["files"].size(), before["files"].size());
  for (const auto& file : after["files"]) {
    EXPECT_FALSE(file["platforms"].contains("iOSDevice"));
    const bool unwinder = file["localName"].get<std::string>().ends_with("libtqunwind.1.0.dylib");
    EXPECT_FALSE(unwinder && file["platforms"].contains("iOSSimulator"));
  }
  EXPECT_EQ(place.Run({"upgrade", project}).Output, "nothing to do\n");
}

TEST(Example, WithTheNewListIsShownWithoutAWarning) {
  TWorkplace place;
  place.CopyOf(Tree / "examples" / "tide-logger");
  const TRun run = place.Run({"show", "tide-logger/TideLogger.vproj", "--json"});
  EXPECT_EQ(run.Errors, "");
  EXPECT_EQ(run.Json()["version"], 2);
  EXPECT_EQ(run.Json()["files"].size(), 7U);
}

TEST(ShippedDefaults, AreTheSameInEveryLanguageButForDescriptions) {
  TWorkplace place;
  auto english = place.Run({"classes", "--json"}).Json();
  place.SetVariable("LANGUAGE=de");
  place.SetVariable("LC_ALL=de_DE.UTF-8");
  auto german = place.Run({"classes", "--json"}).Json();
  EXPECT_NE(english, german);
  for (auto* document : {&english, &german}) {
    for (auto& entry : (*document)["classes"])
      entry["description"] = "";
  }
  EXPECT_EQ(english, german);
}

TEST(ShippedDefaults, HoldEveryClassOnceAndKnowEveryPlatformTheyName) {
  TWorkplace place;
  std::vector<std::string> platforms;
  const auto table = place.Run({"platforms", "--json"}).Json();
  for (const auto& platform : table["platforms"])
    platforms.push_back(platform["name"]);
  std::vector<std::string> names;
  const auto classes = place.Run({"classes", "--json"}).Json();
  for (const auto& entry : classes["classes"]) {
    names.push_back(entry["name"]);
    for (const auto& [platform, record] : entry["platforms"].items())
      EXPECT_NE(std::find(platforms.begin(), platforms.end(), platform), platforms.end())
          << names.back() << " " << platform;
  }
  std::vector<std::string> once = names;
  std::sort(once.begin(), once.end());
  EXPECT_EQ(std::unique(once.begin(), once.end()), once.end());
  for (const std::string name :
       {"ProjectOutput", "DebugSymbols", "File", "DependencyPackage", "DependencyModule",
        "DependencyFramework", "ProjectFile", "AndroidServiceOutput", "iPone_Spotlight58",
        "iPone_Spotlight80", "iPad_SpotLight100", "Android_SplashImage960", "ProjectOutput_iOS32"})
    EXPECT_NE(std::find(names.begin(), names.end(), name), names.end()) << name;
}

} // namespace
} // namespace integration
