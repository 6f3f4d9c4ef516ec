#include "package/model/deployment_item.h"
#include "tests/package/model/recording_owner.h"
#include "tests/support/memory_xml.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TNames = std::vector<std::string>;

TEST(DeploymentItem, StartsEmpty) {
  TDeploymentItem item;
  EXPECT_TRUE(item.GetPlatforms().empty());
  EXPECT_EQ(item.GetCondition(), "");
  EXPECT_FALSE(item.GetRequired());
  EXPECT_EQ(item.GetRemoteDir("Win32"), "");
  EXPECT_EQ(item.GetOperation("Win32"), TDeployOperation::Default);
  EXPECT_EQ(item.GetLocalCommands("Win32"), nullptr);
  EXPECT_EQ(item.GetRemoteCommands("Win32"), nullptr);
  EXPECT_EQ(item.GetData("Win32", false), nullptr);
}

TEST(DeploymentItem, AnswersFromTheAllRecordUntilThePlatformHasItsOwn) {
  TDeploymentItem item;
  item.SetRemoteDir("All", "lib");
  item.GetLocalCommands("All")->push_back("sign");
  EXPECT_EQ(item.GetRemoteDir("Android"), "lib");
  EXPECT_EQ(item.GetLocalCommands("Android"), item.GetLocalCommands("All"));
  EXPECT_EQ(item.GetPlatforms(), TNames{"All"});

  item.SetOperation("Android", TDeployOperation::Copy);
  EXPECT_EQ(item.GetRemoteDir("Android"), "");
  EXPECT_TRUE(item.GetLocalCommands("Android")->empty());
  EXPECT_EQ(item.GetRemoteDir("android"), "lib");
  EXPECT_EQ(item.GetOperation("All"), TDeployOperation::Default);
}

TEST(DeploymentItem, CreatesARecordWithTheDefaults) {
  TDeploymentItem item;
  const TDeployData* data = item.GetData("Win64", true);
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(data->Operation, TDeployOperation::Default);
  EXPECT_EQ(data->RemoteDir, "");
  EXPECT_TRUE(data->LocalCommands.empty());
  EXPECT_TRUE(data->RemoteCommands.empty());
  EXPECT_EQ(item.GetData("Win64", true), data);
}

TEST(DeploymentItem, SignalsOnlyRealChanges) {
  TDeploymentItem item;
  TRecordingOwner owner;
  item.SetOwner(&owner);
  item.SetCondition("");
  item.SetRequired(false);
  EXPECT_EQ(owner.Modified, 0);
  item.SetCondition("x");
  item.SetCondition("x");
  EXPECT_EQ(owner.Modified, 1);
  item.SetCondition("X");
  item.SetRequired(true);
  EXPECT_EQ(owner.Modified, 3);
}

TEST(DeploymentItem, ComparesWithThePlatformsOwnRecord) {
  TDeploymentItem item;
  TRecordingOwner owner;
  item.SetRemoteDir("All", "lib");
  item.SetOwner(&owner);
  item.SetRemoteDir("Android", "");
  EXPECT_EQ(owner.Modified, 0);
  EXPECT_EQ(item.GetPlatforms(), (TNames{"All", "Android"}));
  item.SetRemoteDir("Android", "lib");
  EXPECT_EQ(owner.Modified, 1);
  item.SetOperation("Android", TDeployOperation::Default);
  EXPECT_EQ(owner.Modified, 1);
}

TEST(DeploymentItem, RemovesARecordWithASignal) {
  TDeploymentItem item;
  TRecordingOwner owner;
  item.SetRemoteDir("Win32", "a");
  item.SetRemoteDir("Win64", "b");
  item.SetOwner(&owner);
  item.RemovePlatform("Win32");
  EXPECT_EQ(item.GetPlatforms(), TNames{"Win64"});
  EXPECT_EQ(owner.Modified, 1);
  item.RemovePlatform("Win32");
  EXPECT_EQ(owner.Modified, 1);
}

TEST(DeploymentItem, ReadsConditionAndRequired) {
  TDeploymentItem item;
  item.Read(*ParseMemoryXML(R"(<E Condition="'$(A)'==''" Required="TRUE"/>)"));
  EXPECT_EQ(item.GetCondition(), "'$(A)'==''");
  EXPECT_TRUE(item.GetRequired());
}

TEST(DeploymentItem, WritesOnlyWhatIsNotDefault) {
  TDeploymentItem item;
  TMemoryXMLNode empty("E");
  item.Write(empty);
  EXPECT_EQ(empty.ToText(), "<E/>");

  item.SetCondition("c");
  item.SetRequired(true);
  item.GetData("Win32", true);
  item.SetOperation("Win64", TDeployOperation::Copy);
  TMemoryXMLNode node("E");
  item.Write(node);
  EXPECT_EQ(node.ToText(), R"(<E Condition="c" Required="true"><Platform Name="Win32"/>)"
                           R"(<Platform Name="Win64"><Operation>0</Operation></Platform></E>)");
}

TEST(DeploymentItem, GivesNoRecordToAPlatformElementThatSaysNothing) {
  TDeploymentItem item;
  item.Read(*ParseMemoryXML(R"(<E><Platform Name="A"><RemoteDir/></Platform></E>)"));
  EXPECT_TRUE(item.GetPlatforms().empty());
}

} // namespace
} // namespace deployment
