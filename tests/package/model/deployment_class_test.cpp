#include "package/model/deployment_class.h"
#include "tests/package/model/recording_owner.h"
#include "tests/support/memory_xml.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

TEST(DeploymentClass, MatchesExtensionsIgnoringCase) {
  TDeploymentClass entry;
  EXPECT_FALSE(entry.MatchesExtension("a.so", "Android"));
  entry.SetExtensions("Android", ".so;.dylib");
  EXPECT_TRUE(entry.MatchesExtension("a.SO", "Android"));
  EXPECT_TRUE(entry.MatchesExtension(R"(lib\a.dylib)", "Android"));
  EXPECT_FALSE(entry.MatchesExtension("a.s", "Android"));
  EXPECT_FALSE(entry.MatchesExtension("so", "Android"));
  EXPECT_FALSE(entry.MatchesExtension("a.so", "Win32"));
}

TEST(DeploymentClass, MatchesThroughTheAllRecord) {
  TDeploymentClass entry;
  entry.SetExtensions("All", ";;.dll");
  EXPECT_TRUE(entry.MatchesExtension("a.dll", "Win32"));
  EXPECT_FALSE(entry.MatchesExtension("a.exe", "Win32"));
  EXPECT_EQ(entry.GetExtensions("Win32"), ";;.dll");
  entry.SetExtensions("Win64", "");
  EXPECT_FALSE(entry.MatchesExtension("a.dll", "Win64"));
  EXPECT_EQ(entry.GetExtensions("Win64"), "");
}

TEST(DeploymentClass, SignalsOnlyRealChanges) {
  TDeploymentClass entry;
  TRecordingOwner owner;
  entry.SetOwner(&owner);
  entry.SetClassId("");
  entry.SetDescription("");
  entry.SetExtensions("Win32", "");
  EXPECT_EQ(owner.Modified, 0);
  entry.SetClassId("File");
  entry.SetDescription("d");
  entry.SetExtensions("Win32", ".dll");
  EXPECT_EQ(owner.Modified, 3);
}

TEST(DeploymentClass, ReadsBackWhatItWrites) {
  const std::string text = R"(<DeployClass Required="true" Name="Icon" Description="An icon">)"
                           R"(<Platform Name="Win32"><RemoteDir>res</RemoteDir>)"
                           R"(<Operation>0</Operation><Extensions>.png;.ico</Extensions>)"
                           R"(</Platform><Platform Name="All"/></DeployClass>)";
  TDeploymentClass entry;
  entry.Read(*ParseMemoryXML(text));
  EXPECT_EQ(entry.GetClassId(), "Icon");
  EXPECT_EQ(entry.GetDescription(), "An icon");
  EXPECT_EQ(entry.GetExtensions("Win32"), ".png;.ico");
  // An element that says nothing of a platform gives a class no record for it.
  EXPECT_EQ(entry.GetPlatforms(), std::vector<std::string>{"Win32"});
  entry.GetData("All", true);
  TMemoryXMLNode node("DeployClass");
  entry.Write(node);
  EXPECT_EQ(node.ToText(), text);
}

TEST(DeploymentClass, WritesItsNameAlsoWhenEmpty) {
  TDeploymentClass entry;
  TMemoryXMLNode node("DeployClass");
  entry.Write(node);
  EXPECT_EQ(node.ToText(), R"(<DeployClass Name=""/>)");
}

TEST(DeploymentClass, ReadsEmptyExtensionsIntoARecord) {
  TDeploymentClass entry;
  entry.SetClassId("old");
  entry.Read(
      *ParseMemoryXML(R"(<DeployClass><Platform Name="W"><Extensions/></Platform></DeployClass>)"));
  EXPECT_EQ(entry.GetPlatforms(), std::vector<std::string>{"W"});
  EXPECT_EQ(entry.GetClassId(), "");
}

} // namespace
} // namespace deployment
