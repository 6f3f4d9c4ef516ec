// An MSBuild engine sees what the list says.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace integration {
namespace {

// Prints an item as "name|metadata|...". xbuild turns "\" into "/".
constexpr std::string_view PrintingTarget = R"XML(<Target Name="Build">
    <Message Importance="high" Text="ITEM %(DeployFile.Identity)|%(DeployFile.RemoteDir)|%(DeployFile.RemoteName)|%(DeployFile.DeployClass)|%(DeployFile.Operation)|%(DeployFile.LocalCommand)|%(DeployFile.Overwrite)|%(DeployFile.Required)" Condition="'%(DeployFile.Identity)'!=''"/>
  </Target>)XML";

class Build : public testing::Test {
protected:
  void SetUp() override {
    if (FPlace.RunProgram({"sh", "-c", "command -v xbuild"}).Status != 0)
      GTEST_SKIP() << "xbuild (package mono-xbuild) is not installed";
    std::string project = ProjectWith(R"XML(<Deployment Version="2">
      <DeployFile LocalName="data\Ä &amp; Ö.dat" Configuration="Debug" Class="File" Required="true">
        <Platform Name="Win32"><RemoteDir>levels</RemoteDir><RemoteName>x.dat</RemoteName><LocalCommand>echo 1</LocalCommand><Overwrite>false</Overwrite></Platform>
        <Platform Name="Android"><Enabled>false</Enabled><Overwrite>true</Overwrite></Platform>
      </DeployFile>
      <DeployFile LocalName="lib\b.so" Configuration="" Class="DependencyModule">
        <Platform Name="All"><Overwrite>true</Overwrite></Platform>
      </DeployFile>
      <DeployFile LocalName="c.txt" Configuration="Release" Class="File" Condition="'$(WithC)'=='yes'">
        <Platform Name="Android"><RemoteDir>..\up</RemoteDir><Operation>2</Operation><Overwrite>true</Overwrite></Platform>
      </DeployFile>
      <DeployClass Name="DependencyModule"><Platform Name="Android"><RemoteDir>library\lib\</RemoteDir><Operation>1</Operation></Platform></DeployClass>
      <ProjectRoot Platform="Android" Name="App"/>
    </Deployment>)XML");
    const std::string target = "<Target Name=\"Build\"/>";
    project.replace(project.find(target), target.size(), PrintingTarget);
    FPlace.Write("p.vproj", project);
    const TRun run = FPlace.Run({"export", "p.vproj"});
    ASSERT_EQ(run.Status, 0) << run.Errors;
  }

  std::vector<std::string> Items(const std::string& platform, const std::string& configuration,
                                 const std::string& extra = "X=1") {
    const TRun run = FPlace.RunProgram({"xbuild", "/nologo", "/v:m", "/p:Platform=" + platform,
                                        "/p:Config=" + configuration, "/p:" + extra, "p.vproj"});
    EXPECT_EQ(run.Status, 0) << run.Output << run.Errors;
    std::vector<std::string> items;
    std::istringstream lines(run.Output);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t item = line.find("ITEM ");
      if (item != std::string::npos)
        items.push_back(line.substr(item + 5));
    }
    std::sort(items.begin(), items.end());
    return items;
  }

  TWorkplace FPlace;
};

using TItems = std::vector<std::string>;

TEST_F(Build, SeesTheFilesOfEachPlatformAndConfiguration) {
  const std::string first = "data/\xC3\x84 & \xC3\x96.dat|p/levels/|x.dat|File|6|echo 1|False|True";
  EXPECT_EQ(Items("Win32", "Debug"), TItems({first, "lib/b.so|p/|b.so|DependencyModule|6||True|"}));
  EXPECT_EQ(Items("Win32", "Release"), TItems({"lib/b.so|p/|b.so|DependencyModule|6||True|"}));
  EXPECT_EQ(Items("Android", "Debug"),
            TItems({"lib/b.so|App/library/lib/|b.so|DependencyModule|1||True|"}));
  EXPECT_EQ(Items("iOSDevice64", "Debug"), TItems({"lib/b.so|p/|b.so|DependencyModule|6||True|"}));
}

TEST_F(Build, JoinsTheConditionOfAnEntry) {
  EXPECT_EQ(Items("Android", "Release", "WithC=yes"),
            TItems({"c.txt|up/|c.txt|File|2||True|",
                    "lib/b.so|App/library/lib/|b.so|DependencyModule|1||True|"}));
  EXPECT_EQ(Items("Android", "Release", "WithC=no"),
            TItems({"lib/b.so|App/library/lib/|b.so|DependencyModule|1||True|"}));
}

TEST_F(Build, FindsAnEqualSideFileUntouched) {
  const auto time = std::filesystem::last_write_time(FPlace.Path("p.deployproj"));
  EXPECT_EQ(FPlace.Run({"export", "p.vproj"}).Output, "up to date: p.deployproj\n");
  EXPECT_EQ(std::filesystem::last_write_time(FPlace.Path("p.deployproj")), time);
}

} // namespace
} // namespace integration
