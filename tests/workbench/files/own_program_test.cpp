#include "tests/workbench/files/save_fixture.h"
#include "workbench/files/machine_path.h"
#include "workbench/files/own_program.h"

namespace workbench {
namespace {

namespace fs = std::filesystem;

class OwnProgramTest : public testing::TSaveTest {
protected:
  fs::path Plugin() const { return FDirectory / "lib" / "plugins" / "ide" / "plugin.so"; }
};

TEST(OwnProgram, IsTheRunningOneWhereTheCodeIsPartOfIt) {
  EXPECT_EQ(OwnProgram(), RunningProgram());
}

TEST_F(OwnProgramTest, OfAPluginStandsInTheTreeThatThePluginWasInstalledIn) {
  fs::create_directories(FDirectory / "share" / "deployment-manager");
  EXPECT_EQ(ProgramAround(Plugin()), FDirectory / "bin" / "deploymgr");
}

TEST_F(OwnProgramTest, OfAPluginInABuildStandsInThatBuild) {
  fs::create_directories(FDirectory / "bin");
  Write(FDirectory / "bin" / "deployment-package.so", "");
  EXPECT_EQ(ProgramAround(Plugin()), FDirectory / "bin" / "deploymgr");
}

TEST_F(OwnProgramTest, OfAPluginIsThatOfTheNearestTree) {
  fs::create_directories(FDirectory / "share" / "deployment-manager");
  fs::create_directories(FDirectory / "lib" / "share" / "deployment-manager");
  EXPECT_EQ(ProgramAround(Plugin()), FDirectory / "lib" / "bin" / "deploymgr");
}

TEST_F(OwnProgramTest, OfAPluginThatStandsInNoTreeIsThatOfTheBuildsPrefix) {
  const fs::path found = ProgramAround(Plugin());
  EXPECT_TRUE(found.is_absolute());
  EXPECT_EQ(found.parent_path().filename(), "bin");
  EXPECT_NE(found, FDirectory / "bin" / "deploymgr");
}

} // namespace
} // namespace workbench
