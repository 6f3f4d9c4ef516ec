#include "tests/workbench/project/project_fixture.h"
#include "workbench/project/cpp/solution.h"

namespace workbench {
namespace {

constexpr std::string_view Text =
    "\xEF\xBB\xBF\r\n"
    "Solution File, Format Version 12.00\r\n"
    "# a comment\r\n"
    "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"app\", \"app\\app.vcxproj\", "
    "\"{aaaaaaaa-0000-0000-0000-000000000001}\"\r\n"
    "EndProject\r\n"
    "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"Folder\", \"Folder\", "
    "\"{AAAAAAAA-0000-0000-0000-000000000009}\"\r\n"
    "EndProject\r\n"
    "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"lib\", \"..\\lib\\lib.vcxproj\", "
    "\"{AAAAAAAA-0000-0000-0000-000000000002}\"\r\n"
    "EndProject\r\n"
    "Global\r\n"
    "\tGlobalSection(ProjectConfigurationPlatforms) = postSolution\r\n"
    "\t\t{AAAAAAAA-0000-0000-0000-000000000001}.Debug|x86.ActiveCfg = Debug|Win32\r\n"
    "\t\t{AAAAAAAA-0000-0000-0000-000000000001}.Debug|x86.Build.0 = Debug|Win32\r\n"
    "\t\t{AAAAAAAA-0000-0000-0000-000000000002}.Debug|x86.ActiveCfg = DebugDLL|Win32\r\n"
    "\tEndGlobalSection\r\n"
    "EndGlobal\r\n";

using SolutionFile = TProjectTest;

std::string ErrorOf(std::string_view text) {
  try {
    TSolution::Parse(text, "/s/a.sln");
  } catch (const deployment::TInputError& error) {
    return error.Place().File + ":" + std::to_string(error.Place().Line) + ": " + error.what();
  }
  return "no error";
}

TEST_F(SolutionFile, NamesItsProjectsInOrderWithoutItsFolders) {
  const TSolution solution = TSolution::Parse(Text, "/s/t/all.sln");
  ASSERT_EQ(solution.Projects().size(), 2U);
  EXPECT_EQ(solution.Projects()[0].Name, "app");
  EXPECT_EQ(solution.Projects()[0].StoredPath, "app\\app.vcxproj");
  EXPECT_EQ(solution.Projects()[0].File, "/s/t/app/app.vcxproj");
  EXPECT_EQ(solution.Projects()[0].Line, 4U);
  EXPECT_EQ(solution.Projects()[1].File, "/s/lib/lib.vcxproj");
}

TEST_F(SolutionFile, FindsAProjectIgnoringCase) {
  const TSolution solution = TSolution::Parse(Text, "/s/t/all.sln");
  EXPECT_NE(solution.FindProject("/s/LIB/Lib.vcxproj"), nullptr);
  EXPECT_EQ(solution.FindProject("/s/t/lib.vcxproj"), nullptr);
}

TEST_F(SolutionFile, TellsWhichTargetsAreBuiltTogether) {
  const TSolution solution = TSolution::Parse(Text, "/s/t/all.sln");
  const auto& app = solution.Projects()[0];
  const auto& lib = solution.Projects()[1];
  EXPECT_EQ(solution.TargetOf(lib, app, {"Debug", "Win32"}),
            (TSolutionTarget{"DebugDLL", "Win32"}));
  EXPECT_EQ(solution.TargetOf(lib, app, {"Release", "Win32"}), std::nullopt);
}

TEST_F(SolutionFile, TellsWhatItsOwnBuildsTakeOfAProject) {
  const TSolution solution = TSolution::Parse(Text, "/s/t/all.sln");
  const auto app = solution.BuildOf(solution.Projects()[0], {"debug", "X86"});
  ASSERT_TRUE(app);
  EXPECT_EQ(app->Target, (TSolutionTarget{"Debug", "Win32"}));
  EXPECT_TRUE(app->IsBuilt);
  const auto lib = solution.BuildOf(solution.Projects()[1], {"Debug", "x86"});
  ASSERT_TRUE(lib);
  EXPECT_EQ(lib->Target, (TSolutionTarget{"DebugDLL", "Win32"}));
  EXPECT_FALSE(lib->IsBuilt);
  EXPECT_FALSE(solution.BuildOf(solution.Projects()[0], {"Release", "x86"}));
}

std::string OrderErrorOf(std::string_view text) {
  try {
    TSolution::Parse(text, "/s/a.sln").CheckOrder();
  } catch (const deployment::TInputError& error) {
    return error.Place().File + ":" + std::to_string(error.Place().Line) + ": " + error.what();
  }
  return "no error";
}

TEST_F(SolutionFile, HasNoOrderWhenItsProjectsWaitForEachOther) {
  const std::string start = "Solution File, Format Version 12.00\n";
  const auto project = [](const std::string& name, const std::string& waitsFor) {
    return "Project(\"{1}\") = \"" + name + "\", \"" + name + ".vcxproj\", \"{" + name +
           "}\"\n ProjectSection(ProjectDependencies) = postProject\n  {" + waitsFor + "} = {" +
           waitsFor + "}\n EndProjectSection\nEndProject\n";
  };
  EXPECT_EQ(OrderErrorOf(start + project("a", "b") + project("b", "c")), "no error");
  EXPECT_EQ(OrderErrorOf(start + project("x", "a") + project("a", "B") + project("b", "a")),
            "/s/a.sln:14: projects wait for each other in a ring: \"a\", \"b\", \"a\"");
  EXPECT_EQ(OrderErrorOf(start + project("a", "a")),
            "/s/a.sln:4: projects wait for each other in a ring: \"a\", \"a\"");
  EXPECT_EQ(OrderErrorOf(start + "Global\nGlobalSection(NestedProjects) = preSolution\n"
                                 "{F} = {G}\n{G} = {F}\nEndGlobalSection\nEndGlobal\n"),
            "/s/a.sln:5: folders lie in each other in a ring: \"{F}\", \"{G}\", \"{F}\"");
}

TEST_F(SolutionFile, SaysWhatIsWrongWithIt) {
  EXPECT_EQ(ErrorOf(""), "/s/a.sln:0: the file is empty, so it is no solution");
  EXPECT_EQ(ErrorOf("\n<Project/>"), "/s/a.sln:2: this is no solution: \"<Project/>\" stands where "
                                     "the format is named");
  EXPECT_EQ(ErrorOf("Solution File, Format Version 12.00\nProject(\"{1}\") = \"a\", \"b"),
            "/s/a.sln:2: a quote of the project is not closed");
  EXPECT_EQ(ErrorOf("Solution File, Format Version 12.00\nProject(\"{1}\") = \"a\""),
            "/s/a.sln:2: the project lacks its type, name, path or id");
}

TEST_F(SolutionFile, IsFoundUpwardsWhereItNamesTheProject) {
  const auto write = [this](std::string_view name, std::string_view project) {
    MakeFile(name);
    std::ofstream(PathOf(name)) << "Solution File, Format Version 12.00\n"
                                << "Project(\"{1}\") = \"p\", \"" << project << "\", \"{2}\"\n";
  };
  write("a/near.sln", "other.vcxproj");
  write("one.sln", "a\\b\\P.vcxproj");
  write("two.SLN", "A/B/p.vcxproj");
  MakeFile("a/broken.sln");
  const TFoundSolution found = FindSolutionOf(Directory / "a" / "b" / "p.vcxproj");
  ASSERT_TRUE(found.Solution);
  EXPECT_EQ(found.Solution->File(), PathOf("one.sln"));
  EXPECT_EQ(found.Others, std::vector<std::string>{"two.SLN"});
  EXPECT_FALSE(FindSolutionOf(Directory / "a" / "q.vcxproj").Solution);
}

} // namespace
} // namespace workbench
