// Projects that are made from the install rules of a build.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace integration {
namespace {

namespace fs = std::filesystem;

using TTexts = std::vector<std::string>;

// A build directory as Meson leaves it, which needs no tool to be made: files of the source
// directory and where they go, each with its tag.
class TMesonPlace : public TWorkplace {
public:
  TMesonPlace() {
    WriteInfo("meson-info", R"({"directories":{"source":")" + Path("source").string() +
                                R"("},"introspection":{"version":{"major":1}}})");
    WriteInfo("intro-buildoptions",
              R"([{"name":"prefix","value":"/usr"},{"name":"datadir","value":"share"},
                 {"name":"buildtype","value":"release"}])");
    WriteInfo("intro-targets",
              R"([{"type":"executable","filename":[")" + Path("source/post").string() + R"("]}])");
  }
  void WriteInfo(const std::string& name, const std::string& text) const {
    Write("build/meson-info/" + name + ".json", text);
  }
  struct TInstalled {
    std::string Name;
    std::string Destination;
    std::string Tag = "data";
  };
  void Install(const std::vector<TInstalled>& files) const {
    std::string entries;
    for (const TInstalled& file : files) {
      Write("source/" + file.Name, "content of " + file.Name);
      entries += (entries.empty() ? "" : ",") + ("\"" + Path("source/" + file.Name).string()) +
                 R"(":{"destination":")" + file.Destination + R"(","tag":")" + file.Tag + "\"}";
    }
    WriteInfo("intro-install_plan", "{\"data\":{" + entries + "}}");
  }
  TRun New(std::vector<std::string> more = {}) const {
    std::vector<std::string> arguments{"new",   "post.vproj", "--from-build",
                                       "build", "-p",         "Linux64"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Run(arguments);
  }
  /// "local name -> directory name [class]" for each entry.
  TTexts Entries() const {
    TTexts lines;
    for (const auto& file : FilesOf("post.vproj")) {
      const auto& record = file["platforms"]["Linux64"];
      lines.push_back(
          file["localName"].get<std::string>() + " -> " + record["remoteDir"].get<std::string>() +
          record["remoteName"].get<std::string>() + " [" + file["class"].get<std::string>() + "]");
    }
    return lines;
  }
};

TEST(FromBuild, MakesAProjectOfTheInstallRules) {
  TMesonPlace place;
  place.Install({{"post", "{prefix}/bin/post", "runtime"}, {"levels.dat", "{datadir}/post/l.dat"}});
  const TRun run = place.New();
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Output, "wrote post.vproj with 2 files that Meson installs\n");
  EXPECT_EQ(place.Entries(), (TTexts{"source\\post -> bin\\post [Install.runtime]",
                                     "source\\levels.dat -> share\\post\\l.dat [Install.data]"}));
  const auto shown = place.Run({"show", "post.vproj", "--json"}).Json();
  EXPECT_EQ(shown["files"][0]["configuration"], "Base");
  EXPECT_EQ(shown["files"][0]["platforms"]["Linux64"]["operation"], 1);
  const auto& classes = shown["classes"];
  const auto runtime = std::ranges::find_if(
      classes, [](const auto& each) { return each["name"] == "Install.runtime"; });
  ASSERT_NE(runtime, classes.end());
  EXPECT_EQ((*runtime)["description"], "runtime");
  EXPECT_TRUE(fs::exists(place.Path("post.deployproj")));
  EXPECT_EQ(place.Run({"refresh", "post.vproj"}).Output, "nothing to do\n");
}

TEST(FromBuild, ListsAndDeploysWhatTheBuildInstallsAndNothingElse) {
  TMesonPlace place;
  place.Install({{"post", "{prefix}/bin/post", "runtime"}, {"levels.dat", "{datadir}/post/l.dat"}});
  ASSERT_EQ(place.New().Status, 0);
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Linux64", "--path", "target", "--default"}).Status,
      0);
  EXPECT_EQ(place.Run({"list", "post.vproj", "--json"}).Json()["rows"].size(), 2U);
  const TRun run = place.Run({"deploy", "post.vproj"});
  ASSERT_EQ(run.Status, 0) << run.Output << run.Errors;
  EXPECT_EQ(place.Read("target/post/bin/post"), "content of post");
  EXPECT_EQ(place.Read("target/post/share/post/l.dat"), "content of levels.dat");
  EXPECT_NE(fs::status(place.Path("target/post/bin/post")).permissions() & fs::perms::owner_exec,
            fs::perms::none);
  EXPECT_EQ(place.Run({"reconcile", "post.vproj"}).Status, 4);
}

TEST(FromBuild, TakesTheComponentsThatAreNamed) {
  TMesonPlace place;
  place.Install({{"post", "{prefix}/bin/post", "runtime"}, {"unit", "/etc/unit", "systemd"}});
  const TRun all = place.New();
  EXPECT_EQ(all.Status, 3);
  EXPECT_EQ(all.Errors,
            "deploymgr: " + place.Path("source/meson.build").string() +
                ": the destination \"/etc\" is absolute and not below the install prefix "
                "\"/usr\"; make it relative, or name the components to be taken and "
                "leave \"systemd\" out\n");
  EXPECT_FALSE(fs::exists(place.Path("post.vproj")));
  ASSERT_EQ(place.New({"--component", "runtime"}).Status, 0);
  EXPECT_EQ(place.Entries(), TTexts{"source\\post -> bin\\post [Install.runtime]"});
  EXPECT_EQ(place.Run({"refresh", "post.vproj"}).Output, "nothing to do\n");
}

TEST(FromBuild, SaysInADryRunWhatItWouldDo) {
  TMesonPlace place;
  place.Install({{"post", "{prefix}/bin/post", "runtime"}});
  const TRun run = place.New({"--dry-run", "--json"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Json()["dryRun"], true);
  EXPECT_EQ(run.Json()["files"][0]["localName"], "source\\post");
  EXPECT_EQ(run.Json()["files"][0]["action"], "added");
  EXPECT_FALSE(fs::exists(place.Path("post.vproj")));
}

TEST(FromBuild, WantsThePlatformAndNothingThatTheBuildSays) {
  TMesonPlace place;
  place.Install({});
  EXPECT_EQ(place.Run({"new", "post.vproj", "--from-build", "build"}).Errors,
            "deploymgr: --from-build wants the platform that the build is for: -p NAME\n");
  EXPECT_EQ(place.New({"--platforms", "Win32"}).Errors,
            "deploymgr: --platforms does not go with --from-build, which names it itself\n");
  EXPECT_EQ(place.Run({"new", "a.vproj", "--component", "x"}).Errors,
            "deploymgr: --component goes with --from-build\n");
  EXPECT_EQ(place.Run({"new", "a.vproj", "--from-build", ".", "-p", "Linux64"}).Status, 3);
  EXPECT_FALSE(fs::exists(place.Path("post.vproj")));
}

TEST(Refresh, FollowsTheBuild) {
  TMesonPlace place;
  place.Install({{"a", "{datadir}/a"}, {"b", "{datadir}/b"}, {"c", "{datadir}/c"}});
  ASSERT_EQ(place.New().Status, 0);
  place.Install({{"a", "{datadir}/a"}, {"b", "{datadir}/deep/b2", "docs"}, {"d", "{datadir}/d"}});
  const TRun dry = place.Run({"refresh", "post.vproj", "--dry-run"});
  EXPECT_EQ(dry.Output, "would change source\\b for Base, Linux64\n"
                        "would add source\\d for Base, Linux64\n"
                        "would remove source\\c for Base, Linux64\n");
  const TRun run = place.Run({"refresh", "post.vproj"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Output, "changed source\\b for Base, Linux64\n"
                        "added source\\d for Base, Linux64\n"
                        "removed source\\c for Base, Linux64\n");
  EXPECT_EQ(place.Entries(), (TTexts{"source\\a -> share\\a [Install.data]",
                                     "source\\b -> share\\deep\\b2 [Install.docs]",
                                     "source\\d -> share\\d [Install.data]"}));
  const std::string saved = place.Read("post.vproj");
  EXPECT_EQ(place.Run({"refresh", "post.vproj"}).Output, "nothing to do\n");
  EXPECT_EQ(place.Read("post.vproj"), saved);
}

TEST(Refresh, KeepsWhatAPersonChanged) {
  TMesonPlace place;
  place.Install(
      {{"a", "{datadir}/a"}, {"b", "{datadir}/b"}, {"c", "{datadir}/c"}, {"d", "{datadir}/d"}});
  ASSERT_EQ(place.New().Status, 0);
  const auto run = [&](std::vector<std::string> arguments) {
    const TRun done = place.Run(std::move(arguments));
    EXPECT_EQ(done.Status, 0) << done.Errors;
  };
  run({"set", "post.vproj", "source/a", "--remote-dir", "mine/", "--enabled", "false", "-c",
       "Base"});
  run({"set", "post.vproj", "source/b", "--overwrite", "false", "-c", "Base"});
  run({"remove", "post.vproj", "source/c", "--yes", "-c", "Base"});
  place.Write("own.txt", "");
  run({"add", "post.vproj", "own.txt", "-c", "Base"});
  place.Install({{"a", "{datadir}/new/a2"}, {"c", "{datadir}/c"}, {"d", "{datadir}/d"}});
  const TRun done = place.Run({"refresh", "post.vproj"});
  ASSERT_EQ(done.Status, 0) << done.Errors;
  EXPECT_EQ(done.Output, "changed source\\a for Base, Linux64\n");
  EXPECT_NE(done.Errors.find("the build does not install \"source\\b\" any more; its entry was "
                             "changed by hand and stays"),
            std::string::npos)
      << done.Errors;
  const auto files = place.FilesOf("post.vproj");
  ASSERT_EQ(files.size(), 4U);
  EXPECT_TRUE(files[0]["platforms"]["Linux64"]["remoteDir"].get<std::string>().starts_with("mine"));
  EXPECT_EQ(files[0]["platforms"]["Linux64"]["remoteName"], "a2");
  EXPECT_EQ(files[0]["platforms"]["Linux64"]["enabled"], false);
  EXPECT_EQ(files[1]["localName"], "source\\b");
  EXPECT_EQ(files[3]["localName"], "own.txt");
  EXPECT_EQ(place.Run({"refresh", "post.vproj"}).Output, "nothing to do\n");
}

TEST(Refresh, ChangesTheListAndItsOwnItemsAndNothingElse) {
  TMesonPlace place;
  place.Install({{"a%41;b", "{datadir}/a"}, {"ü & <x>.dat", "{datadir}/u"}});
  ASSERT_EQ(place.New().Status, 0);
  place.Write("post.vproj", Replaced(place.Read("post.vproj"), "  <ProjectExtensions>",
                                     "  <!-- mine -->\n  <ProjectExtensions>"));
  EXPECT_EQ(place.Run({"refresh", "post.vproj"}).Output, "nothing to do\n");
  const std::string before = place.Read("post.vproj");
  place.Install({{"a%41;b", "{datadir}/a"}, {"ü & <x>.dat", "{datadir}/u2"}});
  ASSERT_EQ(place.Run({"refresh", "post.vproj"}).Status, 0);
  EXPECT_EQ(Replaced(place.Read("post.vproj"), "<RemoteName>u2<", "<RemoteName>u<"), before);
}

TEST(Refresh, ThatCannotReadTheBuildSavesNothing) {
  TMesonPlace place;
  place.Install({{"a", "{datadir}/a"}});
  ASSERT_EQ(place.New().Status, 0);
  const std::string before = place.Read("post.vproj");
  for (const std::string plan :
       {"{", "[]", R"({"data":{"/x":{}}})", R"({"data":{"/x":{"destination":"../../x"}}})"}) {
    place.WriteInfo("intro-install_plan", plan);
    const TRun run = place.Run({"refresh", "post.vproj"});
    EXPECT_EQ(run.Status, 3) << plan;
    EXPECT_EQ(place.Read("post.vproj"), before);
  }
  fs::remove_all(place.Path("build"));
  EXPECT_EQ(
      place.Run({"refresh", "post.vproj"}).Errors,
      "deploymgr: " + place.Path("build").string() +
          ": this is no build directory of CMake or Meson: it has neither a CMakeCache.txt nor "
          "a directory meson-info\n");
  place.Write("other.vproj", ProjectWith(""));
  EXPECT_EQ(place.Run({"refresh", "other.vproj"}).Errors,
            "deploymgr: other.vproj: the project was not made from a build: it has no item "
            "\"BuildDirectory\" with a platform\n");
}

constexpr const char* Rules = R"(cmake_minimum_required(VERSION 3.16)
project(harbour VERSION 1.2.3 LANGUAGES C)
add_library(tide SHARED tide.c)
set_target_properties(tide PROPERTIES VERSION 1.2.3 SOVERSION 1)
add_executable(harbour main.c)
target_link_libraries(harbour tide)
set_target_properties(harbour PROPERTIES INSTALL_RPATH "\$ORIGIN/../lib")
install(TARGETS harbour tide RUNTIME DESTINATION bin COMPONENT tools
  LIBRARY DESTINATION lib COMPONENT libs)
install(FILES levels.dat DESTINATION share/harbour COMPONENT data)
)";

TEST(FromCMake, MakesAProjectThatDeploysAndRuns) {
  TWorkplace place;
  if (place.RunProgram({"cmake", "--version"}).Status != 0)
    GTEST_SKIP() << "cmake is not installed";
  place.Write("source/CMakeLists.txt", Rules);
  place.Write("source/main.c", "int tide(void);\nint main(void) { return tide(); }\n");
  place.Write("source/tide.c", "int tide(void) { return 7; }\n");
  place.Write("source/levels.dat", "1 2 3");
  const TRun configured =
      place.RunProgram({"cmake", "-S", "source", "-B", "build", "-DCMAKE_BUILD_TYPE=Debug",
                        "-DCMAKE_BUILD_WITH_INSTALL_RPATH=ON"});
  ASSERT_EQ(configured.Status, 0) << configured.Errors;
  // CMake was not asked for its rules: the dry run says so, the run itself asks.
  EXPECT_EQ(
      place.Run({"new", "h.vproj", "--from-build", "build", "-p", "Linux64", "--dry-run"}).Status,
      3);
  const TRun made = place.Run({"new", "h.vproj", "--from-build", "build", "-p", "Linux64"});
  ASSERT_EQ(made.Status, 0) << made.Errors;
  EXPECT_EQ(made.Output, "wrote h.vproj with 5 files that CMake installs\n");
  EXPECT_EQ(made.Errors, "");
  ASSERT_EQ(place.RunProgram({"cmake", "--build", "build"}).Status, 0);
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Linux64", "--path", "target", "--default"}).Status,
      0);
  const TRun deployed = place.Run({"deploy", "h.vproj"});
  ASSERT_EQ(deployed.Status, 0) << deployed.Output << deployed.Errors;
  EXPECT_EQ(place.Read("target/h/share/harbour/levels.dat"), "1 2 3");
  EXPECT_EQ(place.RunProgram({place.Path("target/h/bin/harbour").string()}).Status, 7);

  EXPECT_NE(place.Run({"explain", "h.vproj", "source/levels.dat"})
                .Output.find("the build installs it: " +
                             place.Path("source/CMakeLists.txt").string() + ":10\n"),
            std::string::npos);

  place.Write("source/CMakeLists.txt", Replaced(Rules, "share/harbour", "share/h2"));
  ASSERT_EQ(place.RunProgram({"cmake", "build"}).Status, 0);
  EXPECT_EQ(place.Run({"refresh", "h.vproj"}).Output,
            "changed source\\levels.dat for Base, Linux64\n");
}

TEST(FromCMake, SaysWhyCMakeDoesNotTell) {
  TWorkplace place;
  if (place.RunProgram({"cmake", "--version"}).Status != 0)
    GTEST_SKIP() << "cmake is not installed";
  place.Write("build/CMakeCache.txt", "");
  const TRun run = place.Run({"new", "h.vproj", "--from-build", "build", "-p", "Linux64"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_NE(run.Errors.find("which tells the install rules: "), std::string::npos) << run.Errors;
  EXPECT_FALSE(fs::exists(place.Path("h.vproj")));
}

} // namespace
} // namespace integration
