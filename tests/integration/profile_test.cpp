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

TEST(Profile, IsShownWithItsGroups) {
  const TWorkplace place;
  ASSERT_EQ(place.Run({"profile", "add", "box", "-p", "Win32", "--path", "t"}).Status, 0);
  ASSERT_EQ(place.Run({"profile", "group", "add", "hall", "box"}).Status, 0);
  const auto shown = place.Run({"profile", "show", "box", "--json"}).Json();
  EXPECT_EQ(shown["name"], "box");
  EXPECT_EQ(shown["path"], place.Path("t").string());
  EXPECT_EQ(shown["groups"].dump(), "[\"hall\"]");
  EXPECT_NE(place.Run({"profile", "show", "box"}).Output.find("platform: Win32\n"),
            std::string::npos);
  const TRun unknown = place.Run({"profile", "show", "bix"});
  EXPECT_EQ(unknown.Status, 2);
  EXPECT_EQ(unknown.Errors,
            "deploymgr: there is no profile \"bix\"; known are: box; did you mean \"box\"?\n");
}

TEST(Profile, KeepsWhatAnEditDoesNotGive) {
  const TWorkplace place;
  ASSERT_EQ(place
                .Run({"profile", "add", "lab", "-p", "Win32", "--kind", "ssh", "--host", "h",
                      "--user", "u", "--port", "2222", "--path", "~/apps", "--default"})
                .Status,
            0);
  const auto before = place.Run({"profile", "show", "lab", "--json"}).Json();
  EXPECT_EQ(place.Run({"profile", "edit", "lab"}).Output, "nothing to do\n");
  EXPECT_EQ(place.Run({"profile", "edit", "lab", "--port", "22", "--dry-run"}).Output,
            "would be changed: lab\n");
  EXPECT_EQ(place.Run({"profile", "show", "lab", "--json"}).Json(), before);
  ASSERT_EQ(place.Run({"profile", "edit", "lab", "--port", "22", "--after-deploy", "true"}).Status,
            0);
  auto after = place.Run({"profile", "show", "lab", "--json"}).Json();
  EXPECT_EQ(after["port"], 22);
  EXPECT_EQ(after["afterDeploy"], "true");
  after["port"] = 2222;
  after["afterDeploy"] = "";
  EXPECT_EQ(after, before);
  ASSERT_EQ(place.Run({"profile", "edit", "lab", "--default=false", "-p", "Win64"}).Status, 0);
  EXPECT_EQ(place.Run({"profile", "show", "lab", "--json"}).Json()["default"], false);
  EXPECT_EQ(place.Run({"profile", "show", "lab", "--json"}).Json()["platform"], "Win64");
}

TEST(Profile, BecomesOneOfAnotherKind) {
  const TWorkplace place;
  ASSERT_EQ(place
                .Run({"profile", "add", "lab", "-p", "Win32", "--kind", "ssh", "--host", "h",
                      "--identity", "key", "--path", "~/apps"})
                .Status,
            0);
  const TRun atHome = place.Run({"profile", "edit", "lab", "--kind", "folder"});
  EXPECT_EQ(atHome.Status, 2);
  EXPECT_EQ(atHome.Errors,
            "deploymgr: the path of the profile \"lab\" is not a full path: ~/apps\n");
  EXPECT_EQ(place.Run({"profile", "edit", "lab", "--kind", "folder", "--path", "t"}).Status, 0);
  EXPECT_TRUE(std::filesystem::is_directory(place.Path("t")));
  EXPECT_FALSE(place.Run({"profile", "show", "lab", "--json"}).Json().contains("host"));
  EXPECT_EQ(place.Run({"profile", "edit", "lab", "--host", "h"}).Errors,
            "deploymgr: --host is for profiles of kind ssh\n");
  EXPECT_EQ(place.Run({"profile", "edit", "lab", "--kind", "ssh"}).Status, 2);
  EXPECT_EQ(place.Run({"profile", "edit", "nobody", "--port", "1"}).Status, 2);
  EXPECT_EQ(place.Run({"profile", "test", "lab", "--kind", "ssh"}).Errors,
            "deploymgr: --kind is for profile add and edit only\n");
}

TEST(Profile, HasNoCommaInItsName) {
  const TWorkplace place;
  for (const bool dry : {false, true}) {
    std::vector<std::string> add{"profile", "add", "a,b", "-p", "Win32", "--path", "t"};
    if (dry)
      add.emplace_back("--dry-run");
    const TRun run = place.Run(add);
    EXPECT_EQ(run.Status, 2);
    EXPECT_EQ(run.Errors, "deploymgr: \"a,b\" cannot be the name of a profile: a comma stands "
                          "between names\n");
  }
}

TEST(ProfileGroup, IsMadeListedAndTakenApart) {
  const TWorkplace place;
  for (const std::string name : {"a", "b", "c"})
    ASSERT_EQ(place.Run({"profile", "add", name, "-p", "Win32", "--path", name}).Status, 0);
  EXPECT_EQ(place.Run({"profile", "group", "list", "--json"}).Json().dump(), "{\"groups\":[]}");
  EXPECT_EQ(place.Run({"profile", "group", "add", "hall", "c", "a", "--dry-run"}).Output,
            "would be added to: group hall\n");
  EXPECT_EQ(place.Run({"profile", "group", "list"}).Output, "");
  ASSERT_EQ(place.Run({"profile", "group", "add", "hall", "c", "a", "c"}).Status, 0);
  EXPECT_EQ(place.Run({"profile", "group", "add", "hall", "a"}).Output, "nothing to do\n");
  ASSERT_EQ(place.Run({"profile", "group", "add", "desk", "b"}).Status, 0);
  EXPECT_EQ(place.Run({"profile", "group", "list", "--json"}).Json().dump(),
            "{\"groups\":[{\"name\":\"hall\",\"profiles\":[\"c\",\"a\"]},"
            "{\"name\":\"desk\",\"profiles\":[\"b\"]}]}");
  EXPECT_EQ(place.Run({"profile", "group", "list", "desk"}).Output, "desk  b\n");
  ASSERT_EQ(place.Run({"profile", "group", "remove", "hall", "c"}).Status, 0);
  EXPECT_EQ(place.Run({"profile", "group", "list", "hall"}).Output, "hall  a\n");
  ASSERT_EQ(place.Run({"profile", "remove", "a"}).Status, 0);
  EXPECT_EQ(place.Run({"profile", "group", "list", "hall"}).Output, "hall  no profiles\n");
  ASSERT_EQ(place.Run({"profile", "group", "remove", "hall"}).Status, 0);
  EXPECT_EQ(place.Run({"profile", "group", "list"}).Output, "desk  b\n");
}

TEST(ProfileGroup, RefusesUnknownNames) {
  const TWorkplace place;
  ASSERT_EQ(place.Run({"profile", "add", "a", "-p", "Win32", "--path", "a"}).Status, 0);
  const auto errors = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"profile", "group"});
    const TRun run = place.Run(arguments);
    EXPECT_EQ(run.Status, 2) << run.Errors;
    return run.Errors;
  };
  EXPECT_EQ(errors({"add", "g", "a", "other"}),
            "deploymgr: there is no profile \"other\"; known are: a\n");
  EXPECT_EQ(errors({"add", "g"}), "deploymgr: profile group add needs a group and profiles\n");
  EXPECT_EQ(errors({"add", "g,h", "a"}),
            "deploymgr: \"g,h\" cannot be the name of a group: a comma stands between names\n");
  EXPECT_EQ(errors({"list", "g"}), "deploymgr: there is no group \"g\"; none was added yet\n");
  EXPECT_EQ(errors({"rename", "g"}),
            "deploymgr: profile group knows add, remove and list, not \"rename\"\n");
  EXPECT_EQ(errors({}), "deploymgr: profile group needs add, remove or list\n");
  ASSERT_EQ(place.Run({"profile", "group", "add", "g", "a"}).Status, 0);
  EXPECT_EQ(errors({"remove", "h"}), "deploymgr: there is no group \"h\"; known are: g; did you "
                                     "mean \"g\"?\n");
  EXPECT_EQ(errors({"remove", "g", "b"}),
            "deploymgr: the group \"g\" has no profile \"b\"; it has: a\n");
}

} // namespace
} // namespace integration
