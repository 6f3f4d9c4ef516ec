// Projects for Linux, and platforms that the user's own table adds.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/stat.h>

namespace integration {
namespace {

namespace fs = std::filesystem;

constexpr const char* OrbitTable = R"(<Platforms Version="1">
  <Platform Name="Orbit" Mobile="false" DefaultRemoteDir="deck\" RequiresProfile="true" IgnoresCase="false">
    <Output Kind="Application" Prefix="o-" Extension=".orb"/>
    <Personality Name="Ardent.Personality" SymbolExtension=".map" RequiresProfile="false"/>
  </Platform>
</Platforms>
)";

bool IsExecutable(const fs::path& file) {
  struct stat status = {};
  return ::stat(file.c_str(), &status) == 0 && (status.st_mode & 0111) == 0111;
}

TEST(Linux, GetsTheProgramItsSymbolsAndData) {
  TWorkplace place;
  ASSERT_EQ(place.Run({"new", "post.vproj", "--platforms", "Linux64,LinuxARM64"}).Status, 0);
  place.Write("post.vproj",
              Replaced(place.Read("post.vproj"), "<BT_BuildType>Debug",
                       "<RemoteDebugSymbols>true</RemoteDebugSymbols><BT_BuildType>Debug"));
  for (const char* name : {"Linux64/Debug/post", "Linux64/Debug/post.debug", "levels.dat"})
    place.Write(name, name);
  ASSERT_EQ(place.Run({"add", "post.vproj", "levels.dat", "-c", "Base"}).Status, 0);
  ASSERT_EQ(place.Run({"reconcile", "post.vproj", "--all"}).Status, 0);
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Linux64", "--path", "target", "--default"}).Status,
      0);
  const TRun run = place.Run({"deploy", "post.vproj"});
  ASSERT_EQ(run.Status, 0) << run.Output << run.Errors;
  EXPECT_EQ(place.Read("target/post/post"), "Linux64/Debug/post");
  EXPECT_TRUE(IsExecutable(place.Path("target/post/post")));
  EXPECT_EQ(place.Read("target/post/post.debug"), "Linux64/Debug/post.debug");
  EXPECT_FALSE(IsExecutable(place.Path("target/post/post.debug")));
  EXPECT_EQ(place.Read("target/post/levels.dat"), "levels.dat");
}

TEST(Linux, NamesLibrariesAsItsToolsDo) {
  TWorkplace place;
  ASSERT_EQ(
      place.Run({"new", "tide.vproj", "--platforms", "LinuxARM64", "--type", "Library"}).Status, 0);
  ASSERT_EQ(place.Run({"reconcile", "tide.vproj"}).Status, 0);
  const auto files = place.FilesOf("tide.vproj");
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0]["localName"], "LinuxARM64\\Debug\\libtide.so");
  EXPECT_EQ(files[0]["platforms"]["LinuxARM64"]["remoteName"], "libtide.so");
}

TEST(Linux, HasARecordInEveryClassOfPrograms) {
  TWorkplace place;
  const auto classes = place.Run({"classes", "--json"}).Json()["classes"];
  for (const char* name :
       {"ProjectOutput", "DebugSymbols", "File", "ProjectFile", "DependencyPackage",
        "DependencyPackageDebugSymbols", "DependencyPackageResource", "DependencyModule"}) {
    const auto found =
        std::ranges::find_if(classes, [&](const auto& each) { return each["name"] == name; });
    ASSERT_NE(found, classes.end()) << name;
    for (const char* platform : {"Linux64", "LinuxARM64"}) {
      ASSERT_TRUE((*found)["platforms"].contains(platform)) << name;
      EXPECT_EQ((*found)["platforms"][platform]["remoteDir"], ".\\") << name;
      EXPECT_EQ((*found)["platforms"][platform]["operation"],
                std::string(name) == "ProjectOutput" ? 1 : 0)
          << name;
    }
  }
}

TEST(UsersPlatform, WorksFromTheNewProjectToTheDeploy) {
  TWorkplace place;
  place.Write("home/.config/deployment-manager/platforms.xml", OrbitTable);
  ASSERT_EQ(place.Run({"new", "probe.vproj", "--platforms", "Orbit"}).Status, 0);
  place.Write("Orbit/Debug/o-probe.orb", "program");
  place.Write("a.dat", "data");
  ASSERT_EQ(place.Run({"add", "probe.vproj", "a.dat"}).Status, 0);
  ASSERT_EQ(place.Run({"reconcile", "probe.vproj"}).Status, 0);
  const auto rows = place.Run({"list", "probe.vproj", "--json"}).Json()["rows"];
  ASSERT_EQ(rows.size(), 2U);
  ASSERT_EQ(
      place.Run({"profile", "add", "pad", "-p", "Orbit", "--path", "target", "--default"}).Status,
      0);
  const TRun run = place.Run({"deploy", "probe.vproj"});
  ASSERT_EQ(run.Status, 0) << run.Output << run.Errors;
  EXPECT_EQ(place.Read("target/probe/o-probe.orb"), "program");
  EXPECT_EQ(place.Read("target/probe/deck/a.dat"), "data");
}

TEST(UsersPlatform, TakesThePlaceOfOneThatShips) {
  TWorkplace place;
  place.Write("home/.config/deployment-manager/platforms.xml",
              Replaced(OrbitTable, "\"Orbit\"", "\"Linux64\""));
  const auto platforms = place.Run({"platforms", "--json", "-p", "Linux64"}).Json()["platforms"];
  ASSERT_EQ(platforms.size(), 1U);
  EXPECT_EQ(platforms[0]["defaultRemoteDir"], "deck\\");
  EXPECT_EQ(place.Run({"platforms", "--json"}).Json()["platforms"].size(), 9U);
}

TEST(UsersPlatform, WithAMistakeIsNamedWithItsLine) {
  TWorkplace place;
  const fs::path file = place.Write("home/.config/deployment-manager/platforms.xml",
                                    "<Platforms Version=\"1\">\n<Platform/>\n</Platforms>");
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.Run({"list", "p.vproj"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_EQ(run.Errors, "deploymgr: " + file.string() +
                            ":2: element \"Platform\" lacks the required attribute \"Name\"\n");
  EXPECT_EQ(place.Run({"new", "q.vproj"}).Status, 3);
  EXPECT_FALSE(fs::exists(place.Path("q.vproj")));
}

TEST(Example, ForLinuxIsDeployedAndRuns) {
  TWorkplace place;
  fs::copy(Tree / "examples" / "wind-gauge", place.Path("wind-gauge"),
           fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Linux64", "--path", "opt", "--default"}).Status,
      0);
  for (const char* configuration : {"Debug", "Release"}) {
    const TRun run = place.Run({"deploy", "wind-gauge/WindGauge.vproj", "-c", configuration});
    ASSERT_EQ(run.Status, 0) << run.Output << run.Errors;
    if (place.RunProgram({"uname", "-m"}).Output == "x86_64\n") {
      const TRun gauge = place.RunProgram({place.Path("opt/WindGauge/bin/windgauge").string()});
      EXPECT_EQ(gauge.Status, 0);
      EXPECT_EQ(gauge.Output, "12.0 m/s is Beaufort  6\n");
    }
  }
  for (const char* name :
       {"bin/windgauge.debug", "lib/libbeaufort.so.1.2.3", "lib/libbeaufort.so.1",
        "lib/libbeaufort.so", "share/wind-gauge/stations.json",
        "lib/systemd/system/wind-gauge.service"})
    EXPECT_TRUE(fs::exists(place.Path("opt/WindGauge") / name)) << name;
}

} // namespace
} // namespace integration
