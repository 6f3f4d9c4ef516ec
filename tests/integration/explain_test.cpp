// What explain says, and that it is true.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

namespace fs = std::filesystem;

constexpr const char* Logger = "tide-logger/TideLogger.vproj";

bool Says(const TRun& run, std::string_view text) {
  return run.Output.find(text) != std::string::npos;
}

TEST(Explain, SaysWhichOptionNamesAnIcon) {
  TWorkplace place;
  place.CopyOf(Tree / "examples/sky-chart");
  const TRun run = place.Run({"explain", "sky-chart/SkyChart.vproj", "art/ios/iPhone_AppIcon57.png",
                              "-p", "iOSDevice64", "--json"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  const auto document = run.Json();
  EXPECT_EQ(document["listed"], true);
  EXPECT_EQ(document["entries"][0]["saved"], false);
  EXPECT_EQ(document["entries"][0]["remoteFile"], "SkyChart.app\\iPhone_AppIcon57.png");
  EXPECT_EQ(document["reasons"][0]["step"], "artwork");
  EXPECT_EQ(document["reasons"][0]["source"], "option");
  EXPECT_EQ(document["reasons"][0]["sourceName"], "iPhone_AppIcon57");
}

constexpr const char* OutputProject =
    R"(<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
<ItemGroup><ProjectConfiguration Include="Debug|Win32"/></ItemGroup>
<Import Project="$(VCTargetsPath)\Microsoft.Cpp.Default.props"/>
<PropertyGroup><ConfigurationType>Application</ConfigurationType></PropertyGroup>
<Import Project="$(VCTargetsPath)\Microsoft.Cpp.props"/>
<PropertyGroup>
<OutDir>$(SolutionDir)bin\$(Configuration)\</OutDir>
</PropertyGroup>
<Import Project="$(VCTargetsPath)\Microsoft.Cpp.targets"/>
</Project>)";

// The step of that name; an empty object when there is none.
nlohmann::ordered_json StepOf(const nlohmann::ordered_json& steps, std::string_view name) {
  for (const auto& step : steps) {
    if (step["name"] == name)
      return step;
  }
  return nlohmann::ordered_json::object();
}

TEST(Explain, SaysStepByStepWhereThePathOfTheOutputComesFrom) {
  TWorkplace place;
  place.Write("src/app.vcxproj", OutputProject);
  place.Write("all.sln", "Solution File, Format Version 12.00\nProject(\"{1}\") = \"app\", "
                         "\"src\\app.vcxproj\", \"{2}\"\nEndProject\n");
  const auto document = place.Run({"explain", "src/app.vcxproj", "--output", "--json"}).Json();
  EXPECT_EQ(document["output"], place.Path("bin/Debug/app.exe").string());
  EXPECT_EQ(document["nothing"], "");
  const auto& steps = document["steps"];
  EXPECT_EQ(StepOf(steps, "Link.OutputFile")["text"], "$(OutDir)$(TargetName)$(TargetExt)");
  const auto directory = StepOf(steps, "OutDir");
  EXPECT_EQ(directory["text"], "$(SolutionDir)bin\\$(Configuration)\\");
  EXPECT_EQ(fs::path(directory["file"].get<std::string>()).filename(), "app.vcxproj");
  EXPECT_EQ(directory["line"], 7);
  EXPECT_EQ(StepOf(steps, "SolutionDir")["source"],
            "the solution " + place.Path("all.sln").string());
  EXPECT_EQ(StepOf(steps, "Configuration")["source"], "the target");
  EXPECT_EQ(StepOf(steps, "TargetExt")["file"], "built-in Microsoft.Cpp.props");
  const auto entry =
      place.Run({"explain", "src/app.vcxproj", "..\\bin\\Debug\\app.exe", "--json"}).Json();
  ASSERT_EQ(entry["entries"].size(), 1U) << entry;
  EXPECT_EQ(entry["entries"][0]["output"], steps);
}

TEST(Explain, SaysWhichStepOfTheOutputIsNotKnownAndWhy) {
  TWorkplace place;
  place.Write("app.vcxproj", Replaced(OutputProject, "$(SolutionDir)bin", "$(SolutionName)"));
  const TRun run = place.Run({"explain", "app.vcxproj", "--output", "--json"});
  EXPECT_EQ(run.Status, 0);
  const auto document = run.Json();
  EXPECT_EQ(document["output"], "");
  EXPECT_EQ(document["nothing"], "it is not known what a build of Debug, Win32 makes");
  EXPECT_EQ(StepOf(document["steps"], "SolutionName")["unknown"],
            "the property \"SolutionName\" is not known here: the build system sets it");
  EXPECT_EQ(place.Run({"explain", "app.vcxproj", "--output", "-p", "all"}).Status, 2);
  const auto given =
      place.Run({"explain", "app.vcxproj", "--output", "--json", "--property", "SolutionName=s"})
          .Json();
  EXPECT_EQ(given["output"], place.Path("s/Debug/app.exe").string());
  EXPECT_EQ(StepOf(given["steps"], "SolutionName")["source"], "given on the command line");
}

TEST(Explain, SaysWhichFamilyOfDevicesDoesNotShowAnImage) {
  TWorkplace place;
  place.CopyOf(Tree / "examples/sky-chart");
  const auto document = place
                            .Run({"explain", "sky-chart/SkyChart.vproj", "iPhone_AppIcon57", "-p",
                                  "iOSSimulator", "--json"})
                            .Json();
  EXPECT_EQ(document["listed"], false);
  EXPECT_EQ(document["reasons"][0]["sourceName"], "VerInfo_UIDeviceFamily");
  EXPECT_EQ(document["reasons"][0]["sourceValue"], "iPad");
  EXPECT_EQ(document["reasons"][0]["cause"], "otherDevices");
}

TEST(Explain, SaysWhatAPackageResourceFollows) {
  TWorkplace place;
  place.CopyOf(Tree / "examples/tide-logger");
  const TRun run = place.Run({"explain", "tide-logger/TideLogger.vproj",
                              "packages\\Win64\\TideTables.de", "-p", "Win64", "-c", "Debug"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(run.Output.find("as \"DependencyPackageResource\""), std::string::npos) << run.Output;
  EXPECT_NE(run.Output.find("it belongs to \"packages\\Win64\\TideTables.vpk\""), std::string::npos)
      << run.Output;
  const TRun french = place.Run(
      {"explain", "tide-logger/TideLogger.vproj", "packages\\Win64\\TideTables.fr", "-p", "Win64"});
  EXPECT_NE(french.Output.find("is not in the list"), std::string::npos) << french.Output;
  EXPECT_NE(french.Output.find("there is no such file"), std::string::npos) << french.Output;
}

TEST(Explain, TellsWhoseRecordEachValueComesFrom) {
  TWorkplace place;
  place.Write("p.vproj",
              ProjectWith("<Deployment Version=\"2\"><DeployFile LocalName=\"a.dat\" "
                          "Configuration=\"Debug\" Class=\"Data\"><Platform Name=\"Win32\">"
                          "<RemoteName>b.dat</RemoteName></Platform></DeployFile>"
                          "<DeployClass Name=\"Data\"><Platform Name=\"All\"><RemoteDir>store"
                          "</RemoteDir><Operation>1</Operation></Platform></DeployClass>"
                          "</Deployment>"));
  const auto entry =
      place.Run({"explain", "p.vproj", "a.dat", "--json"}).Json()["entries"][0]["values"];
  EXPECT_EQ(entry["remoteName"]["source"], "the entry's record for Win32");
  EXPECT_EQ(entry["remoteDir"]["value"], "store");
  EXPECT_EQ(entry["remoteDir"]["source"], "the class \"Data\", its record for \"All\"");
  EXPECT_EQ(entry["operation"]["value"], "copy-executable");
}

TEST(Explain, KnowsWhatAConfigurationInherits) {
  TWorkplace place;
  place.CopyOf(Tree / "examples/tide-logger");
  const TRun run = place.Run(
      {"explain", Logger, "docs/Gezeiten für Anfänger.txt", "-c", "Field", "-p", "Win32"});
  EXPECT_TRUE(Says(run, " is in the list for Field, Win32")) << run.Output;
  EXPECT_TRUE(Says(run, "it is an entry of \"Release\", which \"Field\" inherits from"));
  const TRun off = place.Run(
      {"explain", Logger, "docs/Gezeiten für Anfänger.txt", "-c", "Field", "-p", "Android"});
  EXPECT_TRUE(Says(off, "it is switched off for Android, so a deploy leaves it out")) << off.Output;
}

TEST(Explain, NamesADefaultThatIsSwitchedOffWithItsFileAndItsOption) {
  TWorkplace place;
  place.CopyOf(Tree / "examples/sky-chart");
  const TRun off = place.Run(
      {"explain", "sky-chart/SkyChart.vproj", "DebugSymbols", "-p", "OSX32", "-c", "Release"});
  EXPECT_TRUE(Says(off, "DebugSymbols is not in the list for Release, OSX32")) << off.Output;
  EXPECT_TRUE(Says(off, "makes no entry of class \"DebugSymbols\": the option "
                        "\"RemoteDebugSymbols\" is \"false\"; it is switched off "
                        "(OSX32\\Release\\SkyChart.qds)"))
      << off.Output;
}

TEST(Explain, SaysAddedByHandOfTheUsersFilesOnly) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a.dat", "Debug", "Win32") +
                                            Replaced(Entry("b.png", "Debug", "Win32"), "\"File\"",
                                                     "\"Android_LauncherIcon36\""))));
  EXPECT_TRUE(Says(place.Run({"explain", "p.vproj", "a.dat"}), "it was added by hand"));
  const TRun icon = place.Run({"explain", "p.vproj", "b.png"});
  EXPECT_FALSE(Says(icon, "by hand")) << icon.Output;
  EXPECT_TRUE(Says(icon, "no step of a reconcile asks for it any more")) << icon.Output;
}

TEST(Explain, OfAClassShowsItsEntries) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a.dat", "Debug", "Win32") +
                                            Entry("b.dat", "Base", "Win32"))));
  const auto document = place.Run({"explain", "p.vproj", "File", "--json"}).Json();
  EXPECT_EQ(document["listed"], true);
  ASSERT_EQ(document["entries"].size(), 2U);
  EXPECT_EQ(document["entries"][1]["localName"], "b.dat");
}

TEST(Explain, ComparesWithWhatIsSaved) {
  TWorkplace place;
  const std::string text =
      Replaced(ProjectWith(""), "<AppType>", "<OutputName>left</OutputName>\n    <AppType>");
  place.Write("p.vproj", text);
  ASSERT_EQ(place.Run({"reconcile", "p.vproj"}).Status, 0);
  place.Write("p.vproj", Replaced(place.Read("p.vproj"), "<OutputName>left", "<OutputName>neu"));
  const auto document = place.Run({"explain", "p.vproj", "neu.exe", "--json"}).Json();
  EXPECT_EQ(document["listed"], true);
  EXPECT_EQ(document["entries"][0]["saved"], false);
  const TRun left = place.Run({"explain", "p.vproj", "left.exe"});
  EXPECT_TRUE(Says(left, "left.exe is not in the list for Debug, Win32")) << left.Output;
  EXPECT_TRUE(Says(left, "left.exe is in the project file as \"ProjectOutput\"; a reconcile takes "
                         "it out"))
      << left.Output;
}

TEST(Explain, HasSentencesForBaseAndForAllPlatforms) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Replaced(Entry("a.png", "Base", "Win32"), "\"File\"",
                                                     "\"ProjectFile\""))));
  const TRun base = place.Run({"explain", "p.vproj", "a.png", "-c", "Base"});
  EXPECT_TRUE(Says(base, "no step of a reconcile works for \"Base\"")) << base.Output;
  EXPECT_FALSE(Says(base, "it names nothing")) << base.Output;
  const TRun all = place.Run({"explain", "p.vproj", "a.png", "-p", "all"});
  EXPECT_EQ(all.Status, 0) << all.Errors;
  EXPECT_TRUE(Says(all, "a.png is in the list for Debug, All Platforms")) << all.Output;
  EXPECT_TRUE(Says(all, "lands at p\\a.png on Win32")) << all.Output;
  EXPECT_TRUE(Says(place.Run({"explain", "p.vproj", "none", "-p", "all"}), "no platform has it"));
}

TEST(Explain, LeavesOutTheStepsOfOtherPlatforms) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.Run({"explain", "p.vproj", "nothing.dat"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Output, "nothing.dat is not in the list for Debug, Win32\n"
                        "  no step of a reconcile asks for it; \"deploymgr add\" puts it on the "
                        "list\n");
  EXPECT_EQ(place.Read("p.vproj"), ProjectWith(""));
}

TEST(Explain, NamesAConditionAndAMissingFile) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Replaced(Entry("a.dat", "Debug", "Win32"), "Class=",
                                                     "Condition=\"'$(X)'=='1'\" Class="))));
  const TRun run = place.Run({"explain", "p.vproj", "a.dat"});
  EXPECT_TRUE(Says(run, "builds take it under the condition '$(X)'=='1'")) << run.Output;
  EXPECT_TRUE(Says(run, "there is no such file now: ")) << run.Output;
}

} // namespace
} // namespace integration
