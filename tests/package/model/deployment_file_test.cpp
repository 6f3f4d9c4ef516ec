#include "package/model/deployment_file.h"
#include "tests/package/model/recording_owner.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

TEST(DeploymentFile, AnswersEveryPlatformFromTheAllRecord) {
  TDeploymentFile file;
  file.SetEnabled("All", true);
  file.SetRemoteDir("All", "lib");
  file.SetRemoteName("All", "x");
  file.SetOverwrite("All", false);
  file.SetOperation("All", TDeployOperation::Run);
  EXPECT_TRUE(file.GetEnabled("Android"));
  EXPECT_EQ(file.GetRemoteName("Android"), "x");
  EXPECT_FALSE(file.GetOverwrite("Android"));

  file.SetEnabled("Android", false);
  EXPECT_FALSE(file.GetEnabled("Android"));
  EXPECT_TRUE(file.GetOverwrite("Android"));
  EXPECT_EQ(file.GetOperation("Android"), TDeployOperation::Default);
  EXPECT_EQ(file.GetRemoteDir("Android"), "");
  EXPECT_EQ(file.GetRemoteDir("Win32"), "lib");
  EXPECT_TRUE(file.GetEnabled("All"));
}

TEST(DeploymentFile, IsDisabledButOverwritesWithoutAnyRecord) {
  TDeploymentFile file;
  EXPECT_FALSE(file.GetEnabled("Win32"));
  EXPECT_TRUE(file.GetOverwrite("Win32"));
  EXPECT_EQ(file.GetFileData("Win32", false), nullptr);
  EXPECT_TRUE(file.GetPlatforms().empty());
}

TEST(DeploymentFile, NamesTheFileOnTheTargetLikeTheLocalOne) {
  TDeploymentFile file("Debug", "OSX32", R"(lib\b.dylib)");
  EXPECT_EQ(file.GetRemoteName("OSX32"), "b.dylib");
  file.SetRemoteName("OSX32", "c.dylib");
  EXPECT_EQ(file.GetRemoteName("OSX32"), "c.dylib");
  file.SetRemoteName("OSX32", "");
  EXPECT_EQ(file.GetRemoteName("OSX32"), "b.dylib");
}

TEST(DeploymentFile, HandsOutItsRecordSilently) {
  TDeploymentFile file;
  TRecordingOwner owner;
  file.SetOwner(&owner);
  TFileData* data = file.GetFileData("Win32", true);
  ASSERT_NE(data, nullptr);
  EXPECT_TRUE(data->Enabled);
  EXPECT_TRUE(data->Overwrite);
  data->RemoteName = "r";
  EXPECT_EQ(file.GetRemoteName("Win32"), "r");
  EXPECT_EQ(owner.Modified, 0);
}

TEST(DeploymentFile, SignalsOnlyRealChanges) {
  TDeploymentFile file("Debug", "Win32", "a");
  TRecordingOwner owner;
  file.SetOwner(&owner);
  file.SetLocalName("a");
  file.SetConfiguration("Debug");
  file.SetFilePlatform("Win32");
  file.SetDeploymentClass("");
  file.SetEnabled("Win32", true);
  file.SetOverwrite("Win32", true);
  file.SetRemoteName("Win32", "");
  EXPECT_EQ(owner.Modified, 0);
  EXPECT_TRUE(owner.Changing.empty());

  file.SetLocalName("A");
  file.SetConfiguration("Base");
  file.SetFilePlatform("Win64");
  file.SetDeploymentClass("File");
  EXPECT_EQ(owner.Modified, 4);
  EXPECT_EQ(owner.Changing, (std::vector<std::string>{"A", "Base", "Win64", "File"}));
  file.SetEnabled("Win32", false);
  file.SetOverwrite("Win32", false);
  file.SetRemoteName("Win32", "r");
  EXPECT_EQ(owner.Modified, 7);
  EXPECT_EQ(owner.Changing.size(), 4U);
}

TEST(DeploymentFile, TakesAPartOfItsOwnTextAsNewText) {
  TDeploymentFile file("", "", R"(a-long-directory-name\and-a-long-file-name)");
  file.SetLocalName(std::string_view(file.GetLocalName()).substr(22));
  EXPECT_EQ(file.GetLocalName(), "and-a-long-file-name");
}

} // namespace
} // namespace deployment
