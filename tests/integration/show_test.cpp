#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

constexpr std::string_view Section = R"(    <Deployment Version="2">
      <DeployFile LocalName="data\a.dat" Configuration="Debug" Class="File" Condition="'$(X)'=='1'" Required="true">
        <Platform Name="Win32"><RemoteDir>d</RemoteDir><Operation>1</Operation><LocalCommand>l</LocalCommand><RemoteCommand>r</RemoteCommand><Enabled>false</Enabled><RemoteName>b.dat</RemoteName><Overwrite>false</Overwrite></Platform>
        <Platform Name="Android"/>
      </DeployFile>
      <DeployClass Name="File" Description="Files">
        <Platform Name="Android"><RemoteDir>assets\</RemoteDir><Extensions>.a;.b</Extensions></Platform>
      </DeployClass>
      <ProjectRoot Platform="Win32" Name="App"/>
    </Deployment>)";

TEST(Show, PrintsTheDocumentThatScriptsRelyOn) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(Section));
  const TRun run = place.Run({"show", "p.vproj", "--json"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Json(), nlohmann::ordered_json::parse(R"({
    "project": "p.vproj", "version": 2,
    "files": [{"localName": "data\\a.dat", "configuration": "Debug", "class": "File",
      "platform": "Android", "condition": "'$(X)'=='1'", "required": true,
      "platforms": {
        "Win32": {"enabled": false, "overwrite": false, "remoteDir": "d", "remoteName": "b.dat",
                  "operation": 1, "localCommands": ["l"], "remoteCommands": ["r"]},
        "Android": {"enabled": true, "overwrite": true, "remoteDir": "", "remoteName": "",
                    "operation": 6, "localCommands": [], "remoteCommands": []}}}],
    "classes": [{"name": "File", "description": "Files", "condition": "", "required": false,
      "platforms": {"Android": {"remoteDir": "assets\\", "operation": 6, "extensions": ".a;.b",
                                "localCommands": [], "remoteCommands": []}}}],
    "projectRoots": {"Win32": "App"}})"));
}

TEST(Show, FillsAProjectWithoutAListWithTheDefaultClassesInMemoryOnly) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.Run({"show", "p.vproj", "--json"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Json()["version"], 0);
  EXPECT_TRUE(run.Json()["files"].empty());
  EXPECT_GT(run.Json()["classes"].size(), 60U);
  EXPECT_EQ(place.Read("p.vproj"), ProjectWith(""));
  EXPECT_EQ(place.Files(), std::vector<std::string>({"p.vproj"}));
}

TEST(Show, FillsAnEmptyListWithTheDefaultClasses) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith("<Deployment Version=\"2\"/>"));
  EXPECT_GT(place.Run({"show", "p.vproj", "--json"}).Json()["classes"].size(), 60U);
}

TEST(Show, SpeaksTheUsersLanguage) {
  TWorkplace place;
  place.SetVariable("LANGUAGE=de");
  place.SetVariable("LC_ALL=de_DE.UTF-8");
  const TRun run = place.Run({"classes", "--json"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(run.Output.find("Ausgabe"), std::string::npos);
}

TEST(Show, NarrowsByConfigurationAndPlatform) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(Section));
  EXPECT_EQ(place.Run({"show", "p.vproj", "--json", "-p", "Win64"}).Json()["files"].size(), 0U);
  EXPECT_EQ(place.Run({"show", "p.vproj", "--json", "-p", "Win32"}).Json()["files"].size(), 1U);
  EXPECT_EQ(place.Run({"show", "p.vproj", "--json", "-p", "all"}).Json()["files"].size(), 1U);
  EXPECT_EQ(place.Run({"show", "p.vproj", "--json", "-c", "Release"}).Json()["files"].size(), 0U);
}

TEST(Show, MakesControlCharactersOfNamesVisible) {
  TWorkplace place;
  place.Write("p.vproj",
              ProjectWith("<Deployment Version=\"2\"><DeployFile LocalName=\"a&#x9;b\xE2\x80\xAE\" "
                          "Configuration=\"\" Class=\"File\"/></Deployment>"));
  const TRun run = place.Run({"show", "p.vproj"});
  EXPECT_NE(run.Output.find("a\\x09b\\xE2\\x80\\xAE"), std::string::npos) << run.Output;
}

TEST(Tables, AreShownWithoutAProject) {
  TWorkplace place;
  const auto platforms = place.Run({"platforms", "--json"}).Json()["platforms"];
  ASSERT_EQ(platforms.size(), 9U);
  EXPECT_EQ(platforms[2], nlohmann::ordered_json::parse(R"({"name":"OSX32","mobile":false,
      "defaultRemoteDir":"Contents\\MacOS\\","requiresProfile":true,
      "outputs":{"Application":{"prefix":"","extension":""},
                 "Library":{"prefix":"lib","extension":".dylib"},
                 "Package":{"prefix":"vpk","extension":".dylib"}},
      "symbols":{"Ardent.Personality":".qds","Corvane.Personality":".vcp"}})"));
  EXPECT_GT(place.Run({"classes", "--json"}).Json()["classes"].size(), 60U);
}

TEST(Tables, ShowAPlatformThatWasAddedToTheFile) {
  TWorkplace place;
  std::filesystem::create_directories(place.Path("root"));
  std::filesystem::copy(std::filesystem::path(SOURCE_TREE) / "ObjRepos",
                        place.Path("root/ObjRepos"), std::filesystem::copy_options::recursive);
  std::string table = place.Read("root/ObjRepos/Deploy/platforms.xml");
  const std::size_t android = table.find("<Platform Name=\"Android\"");
  ASSERT_NE(android, std::string::npos);
  std::string copy = table.substr(android, table.find("</Platform>", android) + 11 - android);
  copy.replace(copy.find("Android"), 7, "Orbit");
  table.insert(android, copy + "\n");
  place.Write("root/ObjRepos/Deploy/platforms.xml", table);
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.Run(
      {"add", "p.vproj", "x.so", "-p", "Orbit", "--root", "root", "--missing-ok", "--quiet"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(place.Read("p.deployproj").find("'$(Platform)'=='Orbit'"), std::string::npos);
}

} // namespace
} // namespace integration
