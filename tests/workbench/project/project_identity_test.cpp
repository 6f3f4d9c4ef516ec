#include "tests/workbench/files/save_fixture.h"
#include "workbench/project/project_identity.h"

namespace workbench {
namespace {

using ProjectIdentity = testing::TSaveTest;

TEST_F(ProjectIdentity, IsOfTheFullPath) {
  Write(FFile, "");
  const auto relative = std::filesystem::relative(FFile);
  EXPECT_TRUE(IsSameProject(FFile, relative));
  EXPECT_TRUE(IsSameProject(FDirectory / "." / "x" / ".." / FFile.filename(), FFile));
  EXPECT_FALSE(IsSameProject(FFile, FDirectory / "other.vproj"));
}

TEST_F(ProjectIdentity, IgnoresTheCaseOfLettersInFileAndDirectory) {
  EXPECT_TRUE(IsSameProject("/d/App.vproj", "/d/APP.VPROJ"));
  EXPECT_TRUE(IsSameProject("/d1/App.vproj", "/D1/App.vproj"));
  EXPECT_TRUE(IsSameProject("/d/Ärger.vproj", "/d/ärger.vproj"));
}

TEST_F(ProjectIdentity, FollowsLinks) {
  Write(FFile, "");
  std::filesystem::create_symlink(FFile, FDirectory / "link.vproj");
  EXPECT_TRUE(IsSameProject(FDirectory / "link.vproj", FFile));
}

TEST_F(ProjectIdentity, NeedsNoFile) {
  EXPECT_FALSE(IsSameProject(FDirectory / "gone.vproj", FDirectory / "away.vproj"));
}

} // namespace
} // namespace workbench
