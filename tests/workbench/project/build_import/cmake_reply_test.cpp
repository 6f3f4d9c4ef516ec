#include "tests/workbench/project/build_import/build_place.h"

#include <chrono>
#include <sstream>

namespace workbench {
namespace {

const std::string Reply = "build/.cmake/api/v1/reply/";

// A build directory with a recorded reply: one directory, the installers as given.
class CMakeReply : public ::testing::Test {
protected:
  CMakeReply() {
    Place.Write("build/CMakeCache.txt",
                "# cache\nCMAKE_INSTALL_PREFIX:PATH=/opt/harbour\nX:BOOL=ON\n");
    WriteIndex("codemodel-v2-1.json", 2);
    WriteModel(
        R"({"name":"Debug","directories":[{"build":".","source":".","jsonFile":"directory-1.json"}],
      "targets":[{"jsonFile":"target-harbour.json"},{"jsonFile":"target-tide.json"}]})");
    Place.Write(Reply + "target-harbour.json", R"({"name":"harbour","type":"EXECUTABLE"})");
    Place.Write(Reply + "target-tide.json", R"({"name":"tide","type":"SHARED_LIBRARY"})");
    WriteInstallers("");
  }

  void WriteIndex(const std::string& model, int version) {
    Place.Write(Reply + "index-2026-01-01.json",
                R"({"objects":[{"kind":"cache","version":{"major":2,"minor":0},"jsonFile":"c.json"},
                {"kind":"codemodel","version":{"major":)" +
                    std::to_string(version) + R"(,"minor":4},"jsonFile":")" + model + R"("}]})");
  }
  void WriteModel(const std::string& configurations) {
    Place.Write(Reply + "codemodel-v2-1.json",
                R"({"kind":"codemodel","paths":{"build":")" + Place.Path("build").string() +
                    R"(","source":")" + Place.Path("source").string() + R"("},"configurations":[)" +
                    configurations + "]}");
  }
  void WriteInstallers(const std::string& installers,
                       const std::string& name = "directory-1.json") {
    Place.Write(Reply + name,
                R"({"paths":{"build":".","source":"."},"backtraceGraph":{"commands":["install"],
                "files":["CMakeLists.txt","deep/CMakeLists.txt"],
                "nodes":[{"file":0},{"command":0,"file":0,"line":9,"parent":0},
                         {"command":0,"file":1,"line":3,"parent":0}]},"installers":[)" +
                    installers + "]}");
  }
  std::string ErrorOfInstaller(const std::string& installer) {
    WriteInstallers(installer);
    return Place.ErrorOf();
  }

  testing::TBuildPlace Place;
  using TLines = std::vector<std::string>;
};

TEST_F(CMakeReply, TellsProgramsLibrariesWithTheirLinksAndFiles) {
  WriteInstallers(
      R"({"type":"target","component":"tools","destination":"bin","paths":["harbour"],"targetIndex":0,"backtrace":1},
      {"type":"target","component":"libs","destination":"lib","paths":["libtide.so.1.2.3","libtide.so.1"],"targetIndex":1,"backtrace":1},
      {"type":"file","component":"Unspecified","destination":"share/harbour","paths":[{"from":"data/levels.dat","to":"levels2.dat"}],"backtrace":2},
      {"type":"file","component":"Unspecified","destination":".","paths":["readme.txt"],"backtrace":1})");
  const TInstallPlan plan = Place.Read();
  EXPECT_EQ(plan.Tool, "CMake");
  EXPECT_EQ(plan.Configurations, TLines{"Debug"});
  EXPECT_EQ(Place.LinesOf(plan),
            (TLines{"Base tools build/harbour -> bin/harbour program @9",
                    "Base libs build/libtide.so.1.2.3 -> lib/libtide.so.1.2.3 @9",
                    "Base libs build/libtide.so.1 -> lib/libtide.so.1 @9",
                    "Base Unspecified source/data/levels.dat -> share/harbour/levels2.dat @3",
                    "Base Unspecified source/readme.txt -> /readme.txt @9"}));
  EXPECT_EQ(plan.Files[3].Rule.File, Place.Path("source/deep/CMakeLists.txt").string());
  EXPECT_EQ(Place.WarningsOf(plan), TLines());
}

TEST_F(CMakeReply, TellsTheFilesOfDirectories) {
  Place.Write("source/tree/b/x.txt", "");
  Place.Write("source/tree/a.txt", "");
  std::filesystem::create_symlink("a.txt", Place.Path("source/tree/link"));
  std::filesystem::create_directory_symlink("..", Place.Path("source/tree/ring"));
  WriteInstallers(
      R"({"type":"directory","component":"d","destination":"share","paths":["tree"],"backtrace":1},
      {"type":"directory","component":"d","destination":"flat","paths":[{"from":"tree","to":"."}],"backtrace":1})");
  const TInstallPlan plan = Place.Read();
  EXPECT_EQ(Place.LinesOf(plan), (TLines{"Base d source/tree/a.txt -> share/tree/a.txt @9",
                                         "Base d source/tree/b/x.txt -> share/tree/b/x.txt @9",
                                         "Base d source/tree/link -> share/tree/link @9",
                                         "Base d source/tree/a.txt -> flat/a.txt @9",
                                         "Base d source/tree/b/x.txt -> flat/b/x.txt @9",
                                         "Base d source/tree/link -> flat/link @9"}));
  EXPECT_EQ(Place.WarningsOf(plan).front(),
            "source/CMakeLists.txt:9: \"source/tree/ring\" is a link to a directory; what is "
            "behind it is left out");
}

TEST_F(CMakeReply, SaysWhatItCannotTell) {
  Place.Write("source/CMakeLists.txt",
              "\n\n\n\n\n\n\n\ninstall(DIRECTORY tree\n FILES_MATCHING PATTERN *.h)\n");
  Place.Write("source/tree/a.txt", "");
  std::filesystem::last_write_time(Place.Path("source/CMakeLists.txt"),
                                   std::filesystem::file_time_type::clock::now() -
                                       std::chrono::hours(1));
  WriteInstallers(R"({"type":"code","component":"Unspecified","backtrace":1},
      {"type":"export","component":"Unspecified","destination":"lib","paths":["x.cmake"],"backtrace":1},
      {"type":"file","component":"Unspecified","destination":"lib","isOptional":true,"paths":["none"],"backtrace":1},
      {"type":"directory","component":"Unspecified","destination":"share","paths":["tree"],"backtrace":1})");
  const TInstallPlan plan = Place.Read();
  EXPECT_EQ(Place.LinesOf(plan),
            TLines{"Base Unspecified source/tree/a.txt -> share/tree/a.txt @9"});
  EXPECT_EQ(Place.WarningsOf(plan),
            (TLines{"source/CMakeLists.txt:9: the build runs a script when it installs; what that "
                    "does is not in the list",
                    "source/CMakeLists.txt:9: a rule of the type \"export\" makes no entry",
                    "source/CMakeLists.txt:9: the rule is optional and \"source/none\" is not "
                    "there; it is left out",
                    "source/CMakeLists.txt:9: the rule chooses files by patterns, which CMake does "
                    "not tell; all files of the directory are taken"}));
}

TEST_F(CMakeReply, OlderThanTheBuildsFilesIsWarnedOf) {
  WriteInstallers(
      R"({"type":"file","component":"a","destination":"x","paths":["f"],"backtrace":1})");
  Place.Write("source/CMakeLists.txt", "");
  std::filesystem::last_write_time(Place.Path("source/CMakeLists.txt"),
                                   std::filesystem::file_time_type::clock::now() +
                                       std::chrono::hours(1));
  EXPECT_EQ(Place.WarningsOf(Place.Read()),
            TLines{"source/CMakeLists.txt: the file changed after CMake ran; run \"cmake build\" "
                   "to have its rules"});
}

TEST_F(CMakeReply, IsTakenByComponent) {
  WriteInstallers(R"({"type":"file","component":"a","destination":"x","paths":["f"],"backtrace":1},
      {"type":"file","component":"b","destination":"/etc","paths":["g"],"backtrace":1},
      {"type":"file","component":"c","destination":"x","isExcludeFromAll":true,"paths":["h"],"backtrace":1},
      {"type":"file","isForAllComponents":true,"destination":"x","paths":["i"],"backtrace":1})");
  EXPECT_EQ(Place.LinesOf(Place.Read({"a"})),
            (TLines{"Base a source/f -> x/f @9", "Base Unspecified source/i -> x/i @9"}));
  EXPECT_EQ(Place.LinesOf(Place.Read({"c"})),
            (TLines{"Base c source/h -> x/h @9", "Base Unspecified source/i -> x/i @9"}));
  EXPECT_EQ(Place.ErrorOf({"nope"}),
            ": the build has no component \"nope\"; known are: Unspecified, a, b, c");
}

TEST_F(CMakeReply, OfAGeneratorWithConfigurationsTellsEachByItself) {
  WriteModel(R"({"name":"Debug","directories":[{"jsonFile":"directory-1.json"}],"targets":[]},
             {"name":"Release","directories":[{"jsonFile":"directory-2.json"}],"targets":[]})");
  WriteInstallers(
      R"({"type":"file","component":"a","destination":"x","paths":["f"],"backtrace":1})");
  WriteInstallers(
      R"({"type":"file","component":"a","destination":"x","paths":["g"],"backtrace":1})",
      "directory-2.json");
  const TInstallPlan plan = Place.Read();
  EXPECT_EQ(plan.Configurations, (TLines{"Debug", "Release"}));
  EXPECT_EQ(Place.LinesOf(plan),
            (TLines{"Debug a source/f -> x/f @9", "Release a source/g -> x/g @9"}));
}

TEST_F(CMakeReply, TakesAbsoluteDestinationsBelowThePrefixOnly) {
  WriteInstallers(
      R"({"type":"file","component":"a","destination":"/opt/harbour/lib","paths":["f"],"backtrace":1})");
  EXPECT_EQ(Place.LinesOf(Place.Read()), TLines{"Base a source/f -> lib/f @9"});
  EXPECT_EQ(
      ErrorOfInstaller(
          R"({"type":"file","component":"conf","destination":"/etc/harbour","paths":["f"],"backtrace":2})"),
      "source/deep/CMakeLists.txt:3: the destination \"/etc/harbour\" is absolute and not below "
      "the "
      "install prefix \"/opt/harbour\"; make it relative, or name the components to be taken and "
      "leave \"conf\" out");
  EXPECT_EQ(
      ErrorOfInstaller(
          R"({"type":"file","component":"a","destination":"/opt/harbour/../x","paths":["f"],"backtrace":1})")
          .substr(0, 27),
      "source/CMakeLists.txt:9: th");
}

TEST_F(CMakeReply, WithHostileNamesIsRefusedWithTheRule) {
  const auto file = [&](const std::string& destination, const std::string& path) {
    return ErrorOfInstaller(R"({"type":"file","component":"a","destination":")" + destination +
                            R"(","paths":[)" + path + R"(],"backtrace":1})");
  };
  EXPECT_EQ(file("../up", "\"f\""), "source/CMakeLists.txt:9: the rule installs to \"../up\", "
                                    "which is above the install prefix");
  EXPECT_EQ(file("a/../../up", "\"f\""), "source/CMakeLists.txt:9: the rule installs to "
                                         "\"a/../../up\", which is above the install prefix");
  EXPECT_EQ(file("x", R"({"from":"f","to":"../../f"})"),
            "source/CMakeLists.txt:9: the rule installs to \"x/../..\", which is above the install "
            "prefix");
  EXPECT_EQ(file("x", R"({"from":"f","to":"/etc/f"})"),
            "source/CMakeLists.txt:9: the rule installs to \"/etc\", which is above the install "
            "prefix");
  EXPECT_EQ(file("x", R"({"from":"f","to":".."})"), "source/CMakeLists.txt:9: the rule installs a "
                                                    "file as \"..\", which is no name of a file");
  for (const char* name : {R"("a\\b")", R"("a\nb")", "\"$(X)\"", R"("a\u0001b")"})
    EXPECT_TRUE(file("x", name).ends_with("a name that a project cannot hold")) << file("x", name);
}

TEST_F(CMakeReply, OfAnotherVersionIsRefused) {
  WriteIndex("codemodel-v3-1.json", 3);
  EXPECT_EQ(Place.ErrorOf(), Reply + "index-2026-01-01.json: the reply of CMake: "
                                     "\"objects[1].version\" is 3; known is 2");
}

TEST_F(CMakeReply, ThatIsCutAnywhereIsRefusedWithItsFile) {
  WriteInstallers(
      R"({"type":"target","component":"tools","destination":"bin","paths":["harbour"],"targetIndex":0,"backtrace":1})");
  for (const char* name : {"index-2026-01-01.json", "codemodel-v2-1.json", "directory-1.json",
                           "target-harbour.json"}) {
    const std::string file = Reply + name;
    std::stringstream whole;
    whole << std::ifstream(Place.Path(file)).rdbuf();
    for (std::size_t size = 0; size < whole.str().size(); size += 7) {
      Place.Write(file, whole.str().substr(0, size));
      const std::string error = Place.ErrorOf();
      EXPECT_TRUE(error.starts_with(file + ":")) << error;
      EXPECT_NE(error.find("the reply of CMake cannot be read: it is no JSON"), std::string::npos) << error;
    }
    Place.Write(file, whole.str());
  }
  EXPECT_EQ(Place.Read().Files.size(), 1U);
}

TEST_F(CMakeReply, ThatLacksSomethingIsRefusedWithTheMember) {
  EXPECT_EQ(ErrorOfInstaller(R"({"type":"file","paths":["f"],"backtrace":1})"),
            Reply + "directory-1.json: the reply of CMake: \"installers[0]\" has no member "
                    "\"destination\"");
  EXPECT_EQ(ErrorOfInstaller(R"({"type":"file","destination":7,"paths":["f"],"backtrace":1})"),
            Reply +
                "directory-1.json: the reply of CMake: \"installers[0].destination\" is no text");
  EXPECT_EQ(ErrorOfInstaller(R"({"type":"file","destination":"x","paths":["f"],"backtrace":99})"),
            Reply +
                "directory-1.json: the reply of CMake: \"backtraceGraph.nodes\" has no value of "
                "number 99");
  EXPECT_EQ(
      ErrorOfInstaller(
          R"({"type":"target","destination":"x","paths":["f"],"targetIndex":5,"backtrace":1})"),
      Reply + "codemodel-v2-1.json: the reply of CMake: \"configurations[0].targets\" has no value "
              "of number 5");
  WriteIndex("../../../../../outside.json", 2);
  EXPECT_EQ(Place.ErrorOf(), Reply + "index-2026-01-01.json: the reply of CMake: "
                                     "\"objects[1].jsonFile\" is no name of a file");
}

TEST_F(CMakeReply, OfTheLastRunCounts) {
  Place.Write(Reply + "index-2025-12-31.json", "cut");
  EXPECT_EQ(Place.Read().Files.size(), 0U);
}

TEST(BuildDirectory, OfNoToolIsRefused) {
  const testing::TBuildPlace place;
  std::filesystem::create_directory(place.Path("build"));
  EXPECT_EQ(place.ErrorOf(),
            "build: this is no build directory of CMake or Meson: it has neither a "
            "CMakeCache.txt nor a directory meson-info");
}

TEST(BuildDirectory, WithoutAReplyIsNotAskedInADryRun) {
  const testing::TBuildPlace place;
  place.Write("build/CMakeCache.txt", "");
  EXPECT_EQ(place.ErrorOf(), "build: CMake has not told the install rules of this directory yet, "
                             "and a dry run does not ask it");
  EXPECT_FALSE(std::filesystem::exists(place.Path("build/.cmake")));
}

} // namespace
} // namespace workbench
