// Solutions named in the place of a project.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

constexpr std::string_view SolutionStart =
    "\nMicrosoft Visual Studio Solution File, Format Version 12.00\n";

std::string CppProjectOf(std::string_view type) {
  const auto pair = [](const std::string& configuration, const std::string& platform) {
    return "<ProjectConfiguration Include=\"" + configuration + "|" + platform +
           "\"><Configuration>" + configuration + "</Configuration><Platform>" + platform +
           "</Platform></ProjectConfiguration>";
  };
  return "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\"><ItemGroup>" +
         pair("Debug", "Win32") + pair("Release", "x64") +
         "</ItemGroup><Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.Default.props\"/>"
         "<PropertyGroup><ConfigurationType>" +
         std::string(type) +
         "</ConfigurationType></PropertyGroup>"
         "<Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.props\"/>"
         "<Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.targets\"/></Project>";
}

std::string LineOf(const std::string& path, const std::string& id) {
  return "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"p\", \"" + path + "\", \"{" + id +
         "}\"\nEndProject\n";
}

// A program, a static library and a DLL.
void WriteThree(const TWorkplace& place) {
  place.Write("s/app/app.vcxproj", CppProjectOf("Application"));
  place.Write("s/lib/lib.vcxproj", CppProjectOf("StaticLibrary"));
  place.Write("s/dll/dll.vcxproj", CppProjectOf("DynamicLibrary"));
  place.Write("s/all.sln", std::string(SolutionStart) + LineOf("app\\app.vcxproj", "A") +
                               LineOf("lib\\lib.vcxproj", "B") + LineOf("DLL\\Dll.vcxproj", "C"));
}

TEST(Solution, ListsItsProjectsThatHaveSomethingToDeployAsOneTable) {
  TWorkplace place;
  WriteThree(place);
  const TRun run = place.Run({"list", "s/all.sln"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Errors, "");
  EXPECT_EQ(run.Output,
            "app/app.vcxproj  [x] ..\\Debug\\  app.exe  ProjectOutput  Debug  [Win32]  .\\  "
            "app.exe  Not Connected  Not Connected  Always\n"
            "dll/dll.vcxproj  [x] ..\\Debug\\  dll.dll  ProjectOutput  Debug  [Win32]  .\\  "
            "dll.dll  Not Connected  Not Connected  Always\n");
}

TEST(Solution, GivesTheDocumentOfEachProjectWithItsStatus) {
  TWorkplace place;
  WriteThree(place);
  const auto document = place.Run({"list", "s/all.sln", "--json"}).Json();
  ASSERT_EQ(document["projects"].size(), 2U);
  EXPECT_EQ(document["projects"][0]["project"], "s/app/app.vcxproj");
  EXPECT_EQ(document["projects"][0]["exit"], 0);
  EXPECT_EQ(document["projects"][0]["document"],
            place.Run({"list", "s/app/app.vcxproj", "--json"}).Document());
  EXPECT_EQ(document["projects"][1]["document"]["rows"][0]["localName"], "dll.dll");
  EXPECT_EQ(document["nothingToDeploy"], nlohmann::json::array({"s/lib/lib.vcxproj"}));
}

TEST(Solution, TakesEntriesOfAProjectWhoseBuildMakesNothing) {
  TWorkplace place;
  WriteThree(place);
  place.Write("s/lib/notes.txt", "x");
  ASSERT_EQ(place.Run({"add", "s/lib/lib.vcxproj", "s/lib/notes.txt"}).Status, 0);
  const auto document = place.Run({"list", "s/all.sln", "--json"}).Json();
  ASSERT_EQ(document["projects"].size(), 3U);
  EXPECT_EQ(document["projects"][1]["document"]["rows"][0]["localName"], "notes.txt");
}

TEST(Solution, ReconcilesAndExportsEachProject) {
  TWorkplace place;
  WriteThree(place);
  const TRun run = place.Run({"reconcile", "s/all.sln", "--all"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(
      run.Output,
      "app/app.vcxproj  added ..\\Debug\\app.exe [ProjectOutput] for Debug, Win32\n"
      "app/app.vcxproj  added ..\\x64\\Release\\app.exe [ProjectOutput] for Release, Win64\n"
      "dll/dll.vcxproj  added ..\\Debug\\dll.dll [ProjectOutput] for Debug, Win32\n"
      "dll/dll.vcxproj  added ..\\x64\\Release\\dll.dll [ProjectOutput] for Release, Win64\n");
  EXPECT_EQ(place.Read("s/lib/lib.vcxproj"), CppProjectOf("StaticLibrary"));
  EXPECT_EQ(place.Run({"reconcile", "s/all.sln", "--all", "--check"}).Status, 0);
  EXPECT_EQ(place.Run({"export", "s/all.sln"}).Output,
            "app/app.vcxproj  up to date: s/app/app.deployproj\n"
            "dll/dll.vcxproj  up to date: s/dll/dll.deployproj\n");
}

TEST(Solution, DeploysEachProjectAndTellsTheStateOfAll) {
  TWorkplace place;
  WriteThree(place);
  place.Write("s/Debug/app.exe", "program");
  std::filesystem::create_directory(place.Path("there"));
  ASSERT_EQ(place
                .Run({"profile", "add", "here", "--platform", "Win32", "--kind", "folder", "--path",
                      place.Path("there").string(), "--default"})
                .Status,
            0);
  const TRun run = place.Run({"deploy", "s/all.sln"});
  EXPECT_EQ(run.Status, 1) << "the DLL is not built";
  EXPECT_EQ(place.Read("there/app/app.exe"), "program");
  EXPECT_NE(run.Errors.find("dll/dll.vcxproj: "), std::string::npos) << run.Errors;
  place.Write("s/Debug/dll.dll", "library");
  EXPECT_EQ(place.Run({"deploy", "s/all.sln"}).Status, 0);
  const auto document = place.Run({"status", "s/all.sln", "--json"}).Json();
  ASSERT_EQ(document["projects"].size(), 2U);
  for (const auto& project : document["projects"])
    EXPECT_EQ(project["document"]["rows"][0]["state"], "same");
}

TEST(Solution, NamesWhatItsBuildsMakeOfAProject) {
  TWorkplace place;
  WriteThree(place);
  place.Write("s/all.sln",
              place.Read("s/all.sln") +
                  "Global\n GlobalSection(ProjectConfigurationPlatforms) = postSolution\n"
                  "  {A}.Ship|x64.ActiveCfg = Release|x64\n  {A}.Ship|x64.Build.0 = Release|x64\n"
                  "  {C}.Ship|x64.ActiveCfg = Debug|Win32\n EndGlobalSection\nEndGlobal\n");
  const auto document =
      place.Run({"list", "s/all.sln", "-c", "Ship", "-p", "Win64", "--json"}).Json();
  ASSERT_EQ(document["projects"].size(), 2U) << document;
  EXPECT_EQ(document["projects"][0]["document"]["configuration"], "Release");
  EXPECT_EQ(document["projects"][0]["document"]["platform"], "Win64");
  EXPECT_EQ(document["projects"][1]["project"], "s/lib/lib.vcxproj") << "says nothing of it";
  EXPECT_EQ(document["projects"][1]["exit"], 2);
  EXPECT_EQ(document["nothingToDeploy"], nlohmann::json::array({"s/dll/dll.vcxproj"}));
}

TEST(Solution, GoesOnBehindAProjectThatIsNotThereOrCannotBeRead) {
  TWorkplace place;
  WriteThree(place);
  place.Write("s/bad.vcxproj", "<Project");
  place.Write("s/all.sln", std::string(SolutionStart) + LineOf("gone.vcxproj", "A") +
                               LineOf("bad.vcxproj", "B") + LineOf("all.sln", "D") +
                               LineOf("setup.vdproj", "E") + LineOf("dll\\dll.vcxproj", "C"));
  const TRun run = place.Run({"list", "s/all.sln", "--json"});
  EXPECT_EQ(run.Status, 3);
  const auto document = run.Document();
  ASSERT_EQ(document["projects"].size(), 4U);
  EXPECT_EQ(document["projects"][0]["document"]["error"]["message"],
            "the solution names a project that is not there: \"gone.vcxproj\"");
  EXPECT_EQ(document["projects"][0]["document"]["error"]["line"], 3);
  EXPECT_EQ(document["projects"][1]["exit"], 3);
  EXPECT_EQ(document["projects"][2]["document"]["error"]["message"],
            "the solution names \"all.sln\" as a project, which is a solution itself");
  EXPECT_EQ(document["projects"][3]["exit"], 0);
  EXPECT_EQ(document["warnings"][0]["text"],
            "\"setup.vdproj\" is no project that this program knows; it is left out");
  EXPECT_EQ(document["warnings"][0]["line"], 9);
}

TEST(Solution, WithARingIsRefusedWithItsLine) {
  TWorkplace place;
  WriteThree(place);
  place.Write("s/all.sln", place.Read("s/all.sln") +
                               "Global\nGlobalSection(NestedProjects) = preSolution\n{A} = {B}\n"
                               "{B} = {A}\nEndGlobalSection\nEndGlobal\n");
  const TRun run = place.Run({"reconcile", "s/all.sln"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_NE(run.Errors.find("all.sln:12: folders lie in each other in a ring: "), std::string::npos)
      << run.Errors;
  EXPECT_EQ(place.Read("s/app/app.vcxproj"), CppProjectOf("Application"));
}

TEST(Solution, IsNoProjectForCommandsThatTakeOne) {
  TWorkplace place;
  WriteThree(place);
  const TRun run = place.Run({"show", "s/all.sln"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_EQ(run.Errors,
            "deploymgr: s/all.sln: this is a solution; name one of the projects in it: "
            "app\\app.vcxproj, lib\\lib.vcxproj, DLL\\Dll.vcxproj (the whole is taken by list, "
            "status, reconcile, deploy, export and open)\n");
}

TEST(Solution, AmongSeveralIsARemarkThatInterruptsNobody) {
  TWorkplace place;
  WriteThree(place);
  place.Write("s/other.sln", place.Read("s/all.sln"));
  const TRun run = place.Run({"list", "s/app/app.vcxproj", "--json"});
  EXPECT_EQ(run.Errors, "");
  EXPECT_EQ(run.Document()["warnings"][0]["text"],
            "several solutions name the project: \"all.sln\" is taken, and not \"other.sln\"");
  EXPECT_NE(place.Run({"explain", "s/app/app.vcxproj", "--output"}).Errors.find("other.sln"),
            std::string::npos);
  EXPECT_EQ(place.Run({"list", "s/other.sln", "--json"})
                .Document()["projects"][0]["document"]["warnings"],
            nlohmann::json::array());
}

} // namespace
} // namespace integration
