#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>

namespace integration {
namespace {

namespace fs = std::filesystem;

using TTexts = std::vector<std::string>;

constexpr const char* Targets[] = {"Win32",       "Win64",       "OSX32",  "iOSSimulator",
                                   "iOSDevice32", "iOSDevice64", "Android"};

// A project of that kind with properties of its own, for all seven platforms.
std::string ProjectOf(std::string_view type, std::string_view personality,
                      std::string_view properties) {
  std::string project = R"XML(<?xml version="1.0" encoding="utf-8"?>
<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <PropertyGroup>
    <ProjectPersonality>)XML";
  project.append(personality).append("</ProjectPersonality>\n    <AppType>").append(type);
  project += R"XML(</AppType>
    <Config Condition="'$(Config)'==''">Debug</Config>
    <Platform Condition="'$(Platform)'==''">Win32</Platform>
    <OutputDir>$(Platform)\$(Config)</OutputDir>
  </PropertyGroup>
)XML";
  project.append(properties);
  return project + R"XML(
  <ItemGroup>
    <BuildConfiguration Include="Base"/>
    <BuildConfiguration Include="Debug"><Parent>Base</Parent></BuildConfiguration>
    <BuildConfiguration Include="Release"><Parent>Base</Parent></BuildConfiguration>
    <TargetPlatform Include="Win32"/><TargetPlatform Include="Win64"/><TargetPlatform Include="OSX32"/>
    <TargetPlatform Include="iOSSimulator"/><TargetPlatform Include="iOSDevice32"/>
    <TargetPlatform Include="iOSDevice64"/><TargetPlatform Include="Android"/>
  </ItemGroup>
</Project>
)XML";
}

// "class | local name | directory | remote name" of the default entries of a target, sorted.
TTexts LinesOf(const nlohmann::ordered_json& files, const std::string& configuration,
               const std::string& platform) {
  TTexts lines;
  for (const auto& file : files) {
    const std::string className = file["class"];
    if (file["configuration"] != configuration || !file["platforms"].contains(platform) ||
        className == "File" || className == "DependencyModule")
      continue;
    const auto& record = file["platforms"][platform];
    EXPECT_EQ(record["enabled"], true) << file;
    lines.push_back(className + " | " + file["localName"].get<std::string>() + " | " +
                    record["remoteDir"].get<std::string>() + " | " +
                    record["remoteName"].get<std::string>());
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

// The expected entries by "Configuration, Platform".
std::map<std::string, TTexts> GoldenOf(const std::string& name) {
  std::map<std::string, TTexts> golden;
  std::ifstream file(Tree / "tests/integration/golden" / name);
  std::string target;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('['))
      target = line.substr(1, line.size() - 2);
    else if (!line.empty())
      golden[target].push_back(line);
  }
  for (auto& [ignored, lines] : golden)
    std::sort(lines.begin(), lines.end());
  return golden;
}

void SetUpKit(const TWorkplace& place) {
  const auto set = [&place](const char* key, const char* value) {
    ASSERT_EQ(place.Run({"settings", "set", key, value}).Status, 0);
  };
  set("sdk.ndk-r21.platform", "Android");
  set("sdk.ndk-r21.ndk-base-path", "$(ZELK)\\ndk");
  set("sdk.ndk-r21.debugger-server", "$(NDKBasePath)\\prebuilt\\gdbserver");
}

class Examples : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(Examples, GetTheDefaultsOfEveryTarget) {
  const auto [directory, name] = GetParam();
  TWorkplace place;
  SetUpKit(place);
  place.CopyOf(Tree / "examples" / directory);
  const std::string project = std::string(directory) + "/" + name + ".vproj";
  const TRun run = place.Run({"reconcile", project, "--all"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  const auto files = place.FilesOf(project);
  const auto golden = GoldenOf(std::string(directory) + ".txt");
  ASSERT_FALSE(golden.empty());
  for (const auto& [target, lines] : golden) {
    const std::size_t comma = target.find(", ");
    EXPECT_EQ(LinesOf(files, target.substr(0, comma), target.substr(comma + 2)), lines) << target;
  }
  const std::string saved = place.Read(project);
  const TRun again = place.Run({"reconcile", project, "--all"});
  EXPECT_EQ(again.Output, "nothing to do\n");
  EXPECT_EQ(place.Read(project), saved);
}

INSTANTIATE_TEST_SUITE_P(Projects, Examples,
                         testing::Values(std::pair("sky-chart", "SkyChart"),
                                         std::pair("tide-logger", "TideLogger")),
                         [](const auto& each) { return std::string(each.param.second); });

TEST(Reconcile, OfTheActiveTargetSavesTheProjectAndItsSideFile) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.Run({"reconcile", "p.vproj"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Output, "added p.exe [ProjectOutput] for Debug, Win32\n");
  EXPECT_NE(place.Read("p.vproj").find("LocalName=\"p.exe\""), std::string::npos);
  EXPECT_NE(place.Read("p.deployproj").find("Include=\"p.exe\""), std::string::npos);
}

TEST(Reconcile, ChangesNothingTheSecondTime) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  ASSERT_EQ(place.Run({"reconcile", "p.vproj"}).Status, 0);
  const std::string saved = place.Read("p.vproj");
  const auto time = fs::last_write_time(place.Path("p.vproj"));
  const TRun run = place.Run({"reconcile", "p.vproj"});
  EXPECT_EQ(run.Output, "nothing to do\n");
  EXPECT_EQ(place.Read("p.vproj"), saved);
  EXPECT_EQ(fs::last_write_time(place.Path("p.vproj")), time);
}

TEST(Reconcile, AsADryRunSaysWhatItWouldDo) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run =
      place.Run({"reconcile", "p.vproj", "--dry-run", "-p", "Android", "-c", "Release"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Output.substr(0, run.Output.find('\n')),
            "would add libp.so [ProjectOutput] for Release, Android");
  EXPECT_EQ(place.Read("p.vproj"), ProjectWith(""));
  EXPECT_FALSE(fs::exists(place.Path("p.deployproj")));
}

TEST(Reconcile, PrintsOneResultForEachTarget) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const auto document = place.Run({"reconcile", "p.vproj", "--all", "--json"}).Json();
  TTexts targets;
  for (const auto& result : document["results"]) {
    EXPECT_EQ(result["result"], 0);
    EXPECT_EQ(result["modified"].size(), 0U);
    EXPECT_EQ(result["removed"].size(), 0U);
    targets.push_back(result["configuration"].get<std::string>() + ", " +
                      result["platform"].get<std::string>());
  }
  EXPECT_EQ(targets,
            (TTexts{"Debug, Win32", "Debug, Android", "Release, Win32", "Release, Android"}));
  EXPECT_EQ(document["results"][0]["added"],
            nlohmann::ordered_json::parse(R"([{"localName":"p.exe","class":"ProjectOutput"}])"));
}

TEST(Reconcile, ReportsWhatItRemovesAndModifies) {
  TWorkplace place;
  const std::string debug = "<PropertyGroup><RemoteDebugSymbols>true</RemoteDebugSymbols>"
                            "<OutputName>old</OutputName></PropertyGroup>";
  place.Write("p.vproj", ProjectOf("Application", "Ardent.Personality", debug));
  ASSERT_EQ(place.Run({"reconcile", "p.vproj"}).Status, 0);
  place.Write("p.vproj", Replaced(Replaced(place.Read("p.vproj"), ">true<", ">false<"),
                                  "<OutputName>old", "<OutputName>new"));
  const auto result = place.Run({"reconcile", "p.vproj", "--json"}).Json()["results"][0];
  EXPECT_EQ(result["added"].size(), 0U);
  EXPECT_EQ(result["modified"][0]["localName"], "Win32\\Debug\\new.exe");
  EXPECT_EQ(result["removed"][0]["class"], "DebugSymbols");
}

TEST(Reconcile, OfAPackageCannotBeForMobilePlatforms) {
  TWorkplace place;
  place.Write("p.vproj", ProjectOf("Package", "Ardent.Personality", ""));
  const TRun run = place.Run({"reconcile", "p.vproj", "-p", "Android", "--json"});
  EXPECT_EQ(run.Status, 4);
  EXPECT_EQ(run.Json()["results"][0]["result"], 4);
  EXPECT_EQ(place.Run({"reconcile", "p.vproj", "--all"}).Status, 0);
}

TEST(Reconcile, NeedsAPersonalityThatIsKnown) {
  TWorkplace place;
  place.Write("p.vproj", ProjectOf("Application", "Other.Personality", ""));
  const std::string before = place.Read("p.vproj");
  const TRun run = place.Run({"reconcile", "p.vproj", "--all"});
  EXPECT_EQ(run.Status, 4);
  EXPECT_EQ(place.Read("p.vproj"), before);
}

TEST(Reconcile, ForAllPlatformsOrTheRootConfigurationIsNoTarget) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  for (const TTexts& target : {TTexts{"-p", "all"}, TTexts{"-c", "Base"}}) {
    const TRun run = place.Run({"reconcile", "p.vproj", target[0], target[1]});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Output, "nothing to do\n");
  }
  EXPECT_EQ(place.Read("p.vproj"), ProjectWith(""));
}

TEST(Reconcile, TakesTheListOfPackagesForEmptyWhenToldSo) {
  TWorkplace place;
  place.Write("p.vproj", ProjectOf("Application", "Ardent.Personality",
                                   "<PropertyGroup><RuntimePackages> core.vpk ;; net.vpk ;"
                                   "</RuntimePackages></PropertyGroup>"));
  const TRun run = place.Run({"reconcile", "p.vproj"});
  EXPECT_EQ(run.Output, "added core.vpk [DependencyPackage] for Debug, Win32\n"
                        "added net.vpk [DependencyPackage] for Debug, Win32\n"
                        "added Win32\\Debug\\p.exe [ProjectOutput] for Debug, Win32\n");
  EXPECT_EQ(place.Run({"reconcile", "p.vproj", "--internal"}).Output,
            "removed core.vpk [DependencyPackage] for Debug, Win32\n"
            "removed net.vpk [DependencyPackage] for Debug, Win32\n");
}

TEST(Reconcile, FindsPackagesOfTheRightWidthOnThePath) {
  TWorkplace place;
  place.Write("p.vproj", ProjectOf("Application", "Ardent.Personality",
                                   "<PropertyGroup><RuntimePackages>Ephemeris.vpk"
                                   "</RuntimePackages></PropertyGroup>"));
  const fs::path packages = Tree / "examples/sky-chart/packages";
  fs::create_directories(place.Path("cut"));
  fs::copy_file(packages / "Win64/Ephemeris.vpk", place.Path("cut/Ephemeris.vpk"));
  fs::resize_file(place.Path("cut/Ephemeris.vpk"), 2);
  fs::create_directories(place.Path("directory/Ephemeris.vpk"));
  place.SetVariable("PATH=:relative:" + place.Path("directory").string() + ":" +
                    place.Path("cut").string() + ":" + (packages / "Win32").string() + ":" +
                    (packages / "Win64").string());
  const TRun run = place.Run({"reconcile", "p.vproj", "-p", "Win64"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(run.Output.find("added " + (packages / "Win64").string() +
                            "\\Ephemeris.vpk [DependencyPackage]"),
            std::string::npos)
      << run.Output;
  EXPECT_NE(run.Output.find("Win64\\Ephemeris.de [DependencyPackageResource]"), std::string::npos)
      << run.Output;
  const TRun why = place.Run({"explain", "p.vproj", "Ephemeris.vpk", "-p", "Win64"});
  EXPECT_NE(why.Output.find("32-bit Windows program for x86"), std::string::npos) << why.Output;
  EXPECT_NE(why.Output.find("no program"), std::string::npos) << why.Output;
}

TEST(Reconcile, GoesOnWhereAnInputIsMissing) {
  TWorkplace place;
  place.Write("p.vproj",
              ProjectOf("Application", "Ardent.Personality",
                        "<PropertyGroup><OutputDir>$(Nowhere)</OutputDir>"
                        "<BT_BuildType>Debug</BT_BuildType>"
                        "<Android_LauncherIcon36>art\\missing.png</Android_LauncherIcon36>"
                        "</PropertyGroup>"));
  const TRun run = place.Run({"reconcile", "p.vproj", "-p", "Android"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(run.Output.find("added libp.so [ProjectOutput]"), std::string::npos) << run.Output;
  EXPECT_NE(run.Output.find("added art\\missing.png [Android_LauncherIcon36]"), std::string::npos);
  EXPECT_EQ(run.Output.find("AndroidGDBServer"), std::string::npos);
}

TEST(Reconcile, NamesAPropertyThatIsNoBoolean) {
  TWorkplace place;
  place.Write("p.vproj", ProjectOf("Application", "Ardent.Personality",
                                   "<PropertyGroup><RemoteDebugSymbols>maybe"
                                   "</RemoteDebugSymbols></PropertyGroup>"));
  const std::string before = place.Read("p.vproj");
  const TRun run = place.Run({"reconcile", "p.vproj"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_NE(run.Errors.find("maybe"), std::string::npos);
  EXPECT_EQ(place.Read("p.vproj"), before);
}

TEST(Reconcile, KeepsDebugSymbolsOfTheTargetsThatWantThem) {
  TWorkplace place;
  place.Write("p.vproj",
              ProjectOf("Application", "Ardent.Personality",
                        "<PropertyGroup Condition=\"'$(Config)'=='Debug'\"><RemoteDebugSymbols>true"
                        "</RemoteDebugSymbols></PropertyGroup>"));
  ASSERT_EQ(place.Run({"reconcile", "p.vproj", "--all"}).Status, 0);
  TTexts symbols;
  const auto files = place.FilesOf("p.vproj");
  for (const auto& file : files) {
    if (file["class"] == "DebugSymbols")
      symbols.push_back(file["localName"]);
  }
  EXPECT_EQ(symbols, (TTexts{"Win32\\Debug\\p.qds", "Win64\\Debug\\p.qds", "OSX32\\Debug\\p.qds"}));
}

TEST(Reconcile, WarnsOfAFileWithTwoRoles) {
  TWorkplace place;
  place.Write("p.vproj",
              ProjectOf("Application", "Ardent.Personality",
                        "<PropertyGroup><Android_LauncherIcon36>i.png</Android_LauncherIcon36>"
                        "<Android_LauncherIcon48>i.png</Android_LauncherIcon48></PropertyGroup>"));
  const TRun run = place.Run({"reconcile", "p.vproj", "-p", "Android"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Errors,
            "deploymgr: " + place.Path("p.vproj").string() +
                ": warning: \"i.png\" has two roles for Debug, Android: "
                "\"Android_LauncherIcon36\" and \"Android_LauncherIcon48\"; one file has one "
                "entry, which is that of \"Android_LauncherIcon48\"\n");
}

TEST(Reconcile, NamesDottedOutputsAsEachPlatformDoes) {
  TWorkplace place;
  place.Write("p.v2.vproj", ProjectOf("Application", "Corvane.Personality", ""));
  ASSERT_EQ(place.Run({"reconcile", "p.v2.vproj", "--all"}).Status, 0);
  const auto files = place.FilesOf("p.v2.vproj");
  const TTexts phone = LinesOf(files, "Debug", "iOSDevice64");
  EXPECT_EQ(phone,
            (TTexts{"ProjectOutput | iOSDevice64\\Debug\\p.v2 |  | p.v2",
                    "ProjectiOSDeviceDebug | iOSDevice64\\Debug\\p.v2.dSYM |  | p",
                    "ProjectiOSDeviceResourceRules | iOSDevice64\\Debug\\ResourceRules.plist "
                    "|  | ResourceRules.plist",
                    "ProjectiOSEntitlements | iOSDevice64\\Debug\\p.v2.entitlements |  | ",
                    "ProjectiOSInfoPList | iOSDevice64\\Debug\\p.v2.info.plist |  | "
                    "Info.plist"}));
  EXPECT_EQ(LinesOf(files, "Debug", "Win32"),
            TTexts{"ProjectOutput | Win32\\Debug\\p.v2.exe |  | p.v2.exe"});
}

TEST(Reconcile, CoversEveryTargetOfBothPersonalities) {
  for (const char* personality : {"Ardent.Personality", "Corvane.Personality"}) {
    TWorkplace place;
    place.Write("p.vproj", ProjectOf("Library", personality, ""));
    ASSERT_EQ(place.Run({"reconcile", "p.vproj", "--all"}).Status, 0);
    const auto files = place.FilesOf("p.vproj");
    for (const char* platform : Targets) {
      for (const char* configuration : {"Debug", "Release"})
        EXPECT_FALSE(LinesOf(files, configuration, platform).empty())
            << personality << platform << configuration;
    }
  }
}

TEST(Revert, GoesBackToTheDefaultsOfAPlatform) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  ASSERT_EQ(place.Run({"reconcile", "p.vproj", "--all"}).Status, 0);
  const std::string saved = place.Read("p.vproj");
  ASSERT_EQ(place.Run({"add", "p.vproj", "mine.dat", "--missing-ok", "--yes"}).Status, 0);
  ASSERT_EQ(place.Run({"set", "p.vproj", "p.exe", "-c", "Debug", "--enabled", "false"}).Status, 0);
  const TRun run = place.Run({"revert", "p.vproj"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Output, "modified p.exe [ProjectOutput] for Debug, Win32\n");
  EXPECT_EQ(place.Run({"revert", "p.vproj"}).Output, "nothing to do\n");
  EXPECT_EQ(place.Run({"revert", "p.vproj", "--drop-added"}).Output,
            "removed mine.dat [File] for Debug, Win32\n");
}

TEST(Revert, AsADryRunChangesNothing) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("mine.dat", "Debug", "Win32"))));
  const std::string before = place.Read("p.vproj");
  const TRun run = place.Run({"revert", "p.vproj", "--drop-added", "--dry-run"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_NE(run.Output.find("would remove mine.dat [File]"), std::string::npos) << run.Output;
  EXPECT_EQ(place.Read("p.vproj"), before);
}

TEST(Revert, TakesOneWayToNameThePlatforms) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  EXPECT_EQ(place.Run({"revert", "p.vproj", "--all-platforms", "-p", "Win32"}).Status, 2);
  EXPECT_EQ(place.Run({"revert", "p.vproj", "--all-platforms", "-p", "all"}).Status, 0);
}

TEST(Reconcile, AsACheckChangesNothingAndEndsWithSeven) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.Run({"reconcile", "p.vproj", "--all", "--check", "--json"});
  EXPECT_EQ(run.Status, 7);
  EXPECT_EQ(run.Json()["results"][0]["added"].size(), 1U);
  EXPECT_EQ(place.Read("p.vproj"), ProjectWith(""));
  ASSERT_EQ(place.Run({"reconcile", "p.vproj", "--all"}).Status, 0);
  const TRun again = place.Run({"reconcile", "p.vproj", "--all", "--check"});
  EXPECT_EQ(again.Status, 0);
  EXPECT_EQ(again.Output, "nothing to do\n");
}

} // namespace
} // namespace integration
