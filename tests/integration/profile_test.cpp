#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

TEST(Profile, IsAddedListedTestedAndRemoved) {
  const TWorkplace place;
  ASSERT_EQ(place
                .Run({"profile", "add", "box", "--platform", "Win32", "--kind", "folder", "--path",
                      "target", "--default"})
                .Status,
            0);
  const auto listed = place.Run({"profile", "list", "--json"}).Json();
  ASSERT_EQ(listed["profiles"].size(), 1U);
  EXPECT_EQ(listed["profiles"][0]["name"], "box");
  EXPECT_EQ(listed["profiles"][0]["platform"], "Win32");
  EXPECT_EQ(listed["profiles"][0]["kind"], "folder");
  EXPECT_EQ(listed["profiles"][0]["path"], place.Path("target").string());
  EXPECT_EQ(listed["profiles"][0]["default"], true);
  EXPECT_EQ(place.Run({"profile", "test", "box"}).Output, "connected: box\n");
  std::filesystem::remove(place.Path("target"));
  EXPECT_EQ(place.Run({"profile", "test", "box"}).Status, 5);
  EXPECT_EQ(place.Run({"profile", "remove", "box"}).Status, 0);
  EXPECT_EQ(place.Run({"profile", "list"}).Output, "");
}

TEST(Profile, TakesTheDefaultFromTheOneBefore) {
  const TWorkplace place;
  for (const std::string name : {"one", "two"})
    ASSERT_EQ(place.Run({"profile", "add", name, "-p", "Win32", "--path", "t", "--default"}).Status,
              0);
  const auto listed = place.Run({"profile", "list", "--json"}).Json();
  EXPECT_EQ(listed["profiles"][0]["default"], false);
  EXPECT_EQ(listed["profiles"][1]["default"], true);
}

TEST(Profile, RefusesWhatCannotBe) {
  const TWorkplace place;
  const auto errors = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "profile");
    const TRun run = place.Run(arguments);
    EXPECT_EQ(run.Status, 2) << run.Errors;
    return run.Errors;
  };
  EXPECT_EQ(errors({"add", "box", "-p", "Win32", "--path", "/"}),
            "deploymgr: the path of the profile \"box\" is the root of the file system\n");
  EXPECT_EQ(errors({"add", "box", "-p", "Win32", "--kind", "tape", "--path", "t"}),
            "deploymgr: there are no profiles of kind \"tape\"; known are: folder, ssh\n");
  EXPECT_EQ(errors({"add", "box", "--path", "t"}),
            "deploymgr: profile add needs a platform; name it with --platform\n");
  EXPECT_EQ(errors({"test", "box"}),
            "deploymgr: there is no profile \"box\"; none was added yet\n");
  ASSERT_EQ(place.Run({"profile", "add", "box", "-p", "Win32", "--path", "t"}).Status, 0);
  EXPECT_EQ(errors({"add", "box", "-p", "Win32", "--path", "t"}),
            "deploymgr: there is a profile \"box\" already\n");
}

TEST(Profile, IsAssignedInTheProjectsItemAndNowhereElse) {
  const TWorkplace place;
  const std::string before = ProjectWith("");
  place.Write("demo.vproj", before);
  ASSERT_EQ(place.Run({"profile", "add", "box", "-p", "Win32", "--path", "t"}).Status, 0);
  const TRun run = place.Run({"profile", "assign", "box", "demo.vproj", "-p", "Win32"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(Replaced(place.Read("demo.vproj"), "\n", ""),
            Replaced(Replaced(before, "<TargetPlatform Include=\"Win32\"/>",
                              "<TargetPlatform Include=\"Win32\">      "
                              "<Profile>box</Profile>    </TargetPlatform>"),
                     "\n", ""));
  EXPECT_EQ(place.Run({"profile", "assign", "box", "demo.vproj", "-p", "Win32"}).Output,
            "nothing to do\n");
  EXPECT_EQ(place.Run({"profile", "assign", "box", "demo.vproj", "-p", "Android"}).Status, 2);
}

TEST(Profile, IsAssignedInAProjectWithoutItems) {
  const TWorkplace place;
  place.Write("demo.vproj", "<Project>\n  <ItemGroup>\n"
                            "    <BuildConfiguration Include=\"Debug\">"
                            "<Platforms>Win32;OSX32</Platforms></BuildConfiguration>\n"
                            "  </ItemGroup>\n</Project>\n");
  ASSERT_EQ(place.Run({"profile", "add", "mac", "-p", "OSX32", "--path", "t"}).Status, 0);
  const TRun run = place.Run({"profile", "assign", "mac", "demo.vproj", "-p", "OSX32"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(place.Read("demo.vproj"), "<Project>\n  <ItemGroup>\n"
                                      "    <BuildConfiguration Include=\"Debug\">"
                                      "<Platforms>Win32;OSX32</Platforms></BuildConfiguration>\n"
                                      "  </ItemGroup>\n"
                                      "  <ItemGroup>\n"
                                      "    <TargetPlatform Include=\"Win32\"/>\n"
                                      "    <TargetPlatform Include=\"OSX32\">\n"
                                      "      <Profile>mac</Profile>\n"
                                      "    </TargetPlatform>\n"
                                      "  </ItemGroup>\n</Project>\n");
}

} // namespace
} // namespace integration
