// What an entry says for one platform and for all of them.
#include "package/host/api/platforms.h"
#include "package/view/target_values.h"
#include "tests/package/host/api/entry_world.h"

namespace deployment {
namespace {

using TargetValues = EntryWorld;
using namespace target_values;

const std::string All(sAllPlatforms);

TEST_F(TargetValues, OfOnePlatformAreThoseOfItsRecord) {
  IProjectDeploymentFile& file = Add("a");
  SetRemoteDir(file, "Win32", "x");
  SetRemoteName(file, "Win32", "b");
  SetOverwrite(file, "Win32", false);
  SetEnabled(file, "Win32", false);
  EXPECT_EQ(GetRemoteDir(file, "Win32", Deployment), "x");
  EXPECT_EQ(GetRemoteName(file, "Win32"), "b");
  EXPECT_FALSE(GetOverwrite(file, "Win32"));
  EXPECT_FALSE(GetEnabled(file, "Win32"));
  EXPECT_TRUE(CanEdit(file, "Win32"));
  EXPECT_FALSE(CanEdit(file, "Android"));
}

TEST_F(TargetValues, OfAllPlatformsAreThoseThatTheyAgreeOn) {
  IProjectDeploymentFile& file = Add("a", "Debug", {"Win32", "Android"});
  file.SetRemoteDir("Win32", "x");
  file.SetRemoteName("Win32", "b");
  file.SetOverwrite("Win32", false);
  EXPECT_EQ(GetRemoteDir(file, All, Deployment), "");
  EXPECT_EQ(GetRemoteName(file, All), "a");
  EXPECT_TRUE(GetOverwrite(file, All));
  file.SetRemoteDir("Android", "x");
  file.SetRemoteName("Android", "b");
  file.SetOverwrite("Android", false);
  EXPECT_EQ(GetRemoteDir(file, All, Deployment), "x");
  EXPECT_EQ(GetRemoteName(file, All), "b");
  EXPECT_FALSE(GetOverwrite(file, All));
}

TEST_F(TargetValues, AreEnabledForAllPlatformsWhenEachIs) {
  IProjectDeploymentFile& file = Add("a", "Debug", {"Win32", "Android"});
  EXPECT_TRUE(GetEnabled(file, All));
  file.SetEnabled("Android", false);
  EXPECT_FALSE(GetEnabled(file, All));
  EXPECT_FALSE(GetEnabled(Add("b", "Debug", {}), All));
}

TEST_F(TargetValues, AreWrittenToEachPlatformAndNeverUnderTheNameOfAll) {
  IProjectDeploymentFile& file = Add("a", "Debug", {"Win32", "Android"});
  SetRemoteDir(file, All, "x");
  SetRemoteName(file, All, "b");
  SetOverwrite(file, All, false);
  SetEnabled(file, All, false);
  EXPECT_EQ(file.GetPlatforms(), (std::vector<std::string>{"Win32", "Android"}));
  for (const std::string& platform : file.GetPlatforms()) {
    EXPECT_EQ(file.GetRemoteDir(platform), "x");
    EXPECT_EQ(file.GetRemoteName(platform), "b");
    EXPECT_FALSE(file.GetOverwrite(platform));
    EXPECT_FALSE(file.GetEnabled(platform));
  }
}

TEST_F(TargetValues, OfAnEntryWithoutPlatformsCannotBeEditedForAll) {
  IProjectDeploymentFile& file = Add("a", "Debug", {});
  EXPECT_FALSE(CanEdit(file, All));
  SetEnabled(file, All, true);
  EXPECT_TRUE(file.GetPlatforms().empty());
  EXPECT_TRUE(CanEdit(Add("b"), All));
}

} // namespace
} // namespace deployment
