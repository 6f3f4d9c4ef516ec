#include "tests/workbench/files/save_fixture.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/completion/completion.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

constexpr std::string_view CompletedProject =
    R"(<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
<PropertyGroup><Config>Field</Config><Platform>OSX32</Platform></PropertyGroup>
<ItemGroup><BuildConfiguration Include="Field"/><TargetPlatform Include="OSX32"/></ItemGroup>
<ProjectExtensions><Deployment Version="2">
<DeployFile LocalName="data\two words.dat" Configuration="Base" Class="File"><Platform Name="OSX32"/></DeployFile>
<DeployFile LocalName="data\one.dat" Configuration="Base" Class="File"><Platform Name="OSX32"/></DeployFile>
<DeployFile LocalName="data\one.dat" Configuration="Field" Class="File"><Platform Name="OSX32"/></DeployFile>
</Deployment></ProjectExtensions></Project>)";

class Completion : public testing::TSaveTest {
protected:
  void SetUp() override {
    TSaveTest::SetUp();
    FEnvironment.Set("XDG_CONFIG_HOME", (FRoot / "config").string());
    FEnvironment.Set("PLATFORM", std::nullopt);
    FEnvironment.Set("CONFIG", std::nullopt);
    Write(FDirectory / "p.vproj", CompletedProject);
  }
  // "zsh" leaves words as they are.
  static std::string Complete(const std::vector<std::string>& words) {
    return CompletionsOf(AllCommands(), "zsh", words);
  }
  std::string File() const { return (FDirectory / "p.vproj").string(); }
};

TEST_F(Completion, KnowsTheCommandsWithTheirSummaries) {
  EXPECT_EQ(Complete({"unk"}), "words\n");
  EXPECT_EQ(Complete({"rev"}),
            "words\nrevert\tGo back to the default entries and classes of a platform\n");
  EXPECT_EQ(Complete({"help", "rev"}), Complete({"rev"}));
  EXPECT_TRUE(Complete({}).starts_with("words\nnew\t"));
}

TEST_F(Completion, KnowsTheOptionsOfTheCommandAndThoseOfAll) {
  EXPECT_EQ(Complete({"list", "--so"}),
            "words\n--sort\tSort by this text of the rows; \":desc\" turns the order\n");
  EXPECT_EQ(Complete({"--sort"}), "words\n");
  EXPECT_EQ(Complete({"list", "--js"}), "words\n--json\tPrint one JSON document\n");
  EXPECT_EQ(Complete({"profile", "--passw"}), "words\n") << "what is refused is not offered";
}

TEST_F(Completion, OffersNamesOfTheProjectThatTheLineNames) {
  EXPECT_EQ(Complete({"list", File(), "-p", "OS"}), "words\nOSX32\tplatform of the project\n");
  EXPECT_EQ(Complete({"list", File(), "-c", "F"}), "words\nField\n");
  EXPECT_EQ(Complete({"list", File(), "--config=F"}), "words\n--config=Field\n");
  EXPECT_EQ(Complete({"list", File(), "-p", "al"}), "words\nall\tevery platform\n");
}

TEST_F(Completion, OffersEachEntryOnceWithTheDelimiterThatIsTyped) {
  EXPECT_EQ(Complete({"set", File(), "data/"}),
            "words\ndata/two words.dat\tFile\ndata/one.dat\tFile\n");
  EXPECT_EQ(Complete({"set", File(), "data\\o"}), "words\ndata\\one.dat\tFile\n");
  EXPECT_EQ(Complete({"set", File(), "data/one.dat", "d"}), "words\ndata/two words.dat\tFile\n");
  EXPECT_EQ(Complete({"add", File(), "d"}), "files\n");
}

TEST_F(Completion, LeavesFilesToTheShell) {
  EXPECT_EQ(Complete({"list", ""}), "projects\n");
  EXPECT_EQ(Complete({"list", "--root", "x"}), "directories\n");
  EXPECT_EQ(Complete({"list", "--", "-x"}), "projects\n");
}

TEST_F(Completion, KnowsTheValuesOfOptionsAndArguments) {
  EXPECT_EQ(Complete({"set", File(), "x", "--enabled", ""}), "words\ntrue\nfalse\n");
  EXPECT_EQ(Complete({"profile", "a"}), "words\nadd\nassign\n");
  EXPECT_EQ(Complete({"list", File(), "--sort", "remoteP"}), "words\nremotePath\tRemote Path\n");
  EXPECT_EQ(Complete({"new", "x.vproj", "--platforms", "Win32,LinuxA"}),
            "words\nWin32,LinuxARM64\n");
  EXPECT_EQ(Complete({"settings", "get", "library-path.And"}), "words\nlibrary-path.Android\n");
}

TEST_F(Completion, IsSilentOnWhatCannotBeRead) {
  Write(FDirectory / "bad.vproj", "<Project");
  const std::string bad = (FDirectory / "bad.vproj").string();
  EXPECT_EQ(Complete({"set", bad, ""}), "words\n");
  EXPECT_EQ(Complete({"list", bad, "-p", "Andr"}), "words\nAndroid\n");
  EXPECT_EQ(Complete({"list", "absent.vproj", "-c", ""}), "words\n");
  Write(FRoot / "config/deployment-manager/profiles.json", "{");
  EXPECT_EQ(Complete({"profile", "test", ""}), "words\n");
  EXPECT_EQ(Complete({"list", File(), "more", "than", "it takes"}), "words\n");
}

} // namespace
} // namespace workbench
