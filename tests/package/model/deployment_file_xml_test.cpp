#include "package/model/deployment_file.h"
#include "tests/package/model/recording_owner.h"
#include "tests/support/memory_xml.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TNames = std::vector<std::string>;

std::string Written(const TDeploymentFile& file) {
  TMemoryXMLNode node("DeployFile");
  file.Write(node);
  return node.ToText();
}

std::string RoundTrip(std::string_view text) {
  TDeploymentFile file;
  file.Read(*ParseMemoryXML(text));
  return Written(file);
}

std::string ReadError(std::string_view platformContent) {
  TDeploymentFile file;
  const auto node = ParseMemoryXML("<DeployFile LocalName=\"a\">\n<Platform Name=\"Win32\">" +
                                       std::string(platformContent) + "</Platform></DeployFile>",
                                   "App.vproj");
  try {
    file.Read(*node);
  } catch (const TInputError& error) {
    return error.Place().File + ":" + std::to_string(error.Place().Line) + ": " + error.what();
  }
  return {};
}

TEST(DeploymentFileXml, ReadsEveryValue) {
  TDeploymentFile file;
  file.Read(*ParseMemoryXML(R"(
    <DeployFile Condition="c" Required="true" LocalName="lib\a.so" Configuration="Debug" Class="F">
      <Platform Name="Win32"><RemoteDir>w</RemoteDir><Enabled>false</Enabled></Platform>
      <Platform Name="Android"><Operation>1</Operation><RemoteName>b.so</RemoteName>
        <Overwrite>False</Overwrite><LocalCommand>l1</LocalCommand><LocalCommand>l2</LocalCommand>
        <RemoteCommand>r1</RemoteCommand><Enabled>True</Enabled></Platform>
    </DeployFile>)"));
  EXPECT_EQ(file.GetCondition(), "c");
  EXPECT_TRUE(file.GetRequired());
  EXPECT_EQ(file.GetLocalName(), R"(lib\a.so)");
  EXPECT_EQ(file.GetConfiguration(), "Debug");
  EXPECT_EQ(file.GetDeploymentClass(), "F");
  EXPECT_EQ(file.GetFilePlatform(), "Android");
  EXPECT_EQ(file.GetPlatforms(), (TNames{"Win32", "Android"}));
  EXPECT_EQ(file.GetRemoteDir("Win32"), "w");
  EXPECT_FALSE(file.GetEnabled("Win32"));
  EXPECT_TRUE(file.GetOverwrite("Win32"));
  EXPECT_EQ(file.GetOperation("Android"), TDeployOperation::CopyExecutable);
  EXPECT_EQ(file.GetRemoteName("Android"), "b.so");
  EXPECT_FALSE(file.GetOverwrite("Android"));
  EXPECT_TRUE(file.GetEnabled("Android"));
  EXPECT_EQ(*file.GetLocalCommands("Android"), (TNames{"l1", "l2"}));
  EXPECT_EQ(*file.GetRemoteCommands("Android"), TNames{"r1"});
}

TEST(DeploymentFileXml, EnablesAPlatformThatOnlyHasARemoteDir) {
  TDeploymentFile file;
  file.Read(*ParseMemoryXML(
      R"(<DeployFile><Platform Name="Win32"><RemoteDir>x</RemoteDir></Platform></DeployFile>)"));
  ASSERT_NE(file.GetFileData("Win32", false), nullptr);
  EXPECT_TRUE(file.GetEnabled("Win32"));
  EXPECT_EQ(file.GetLocalName(), "");
  EXPECT_EQ(file.GetConfiguration(), "");
}

TEST(DeploymentFileXml, TakesEmptyTextsAsAbsent) {
  TDeploymentFile file("", "", "a.dll");
  file.SetRemoteDir("Win32", "kept");
  file.SetRemoteName("Win32", "kept.dll");
  file.SetOverwrite("Win32", false);
  file.Read(*ParseMemoryXML(R"(<DeployFile LocalName="a.dll"><Platform Name="Win32"><RemoteDir/>)"
                            R"(<RemoteName/><Overwrite></Overwrite></Platform></DeployFile>)"));
  EXPECT_EQ(file.GetRemoteDir("Win32"), "kept");
  EXPECT_EQ(file.GetRemoteName("Win32"), "kept.dll");
  EXPECT_FALSE(file.GetOverwrite("Win32"));
}

TEST(DeploymentFileXml, WritesAttributesInOrderAlsoWhenEmpty) {
  TDeploymentFile file;
  EXPECT_EQ(Written(file), R"(<DeployFile LocalName="" Configuration="" Class=""/>)");
  file.SetCondition("c");
  file.SetRequired(true);
  file.SetLocalName("a");
  EXPECT_EQ(Written(file), R"(<DeployFile Condition="c" Required="true" LocalName="a" )"
                           R"(Configuration="" Class=""/>)");
}

TEST(DeploymentFileXml, WritesChildrenInOrder) {
  TDeploymentFile file("Debug", "Win32", "a");
  TFileData& data = *file.GetFileData("Win32", true);
  EXPECT_EQ(Written(file),
            R"(<DeployFile LocalName="a" Configuration="Debug" Class="">)"
            R"(<Platform Name="Win32"><Overwrite>true</Overwrite></Platform></DeployFile>)");
  data.RemoteDir = "d";
  data.Operation = TDeployOperation::Remove;
  data.LocalCommands = {"l"};
  data.RemoteCommands = {"r"};
  data.Enabled = false;
  data.RemoteName = "n";
  data.Overwrite = false;
  EXPECT_EQ(Written(file),
            R"(<DeployFile LocalName="a" Configuration="Debug" Class=""><Platform Name="Win32">)"
            R"(<RemoteDir>d</RemoteDir><Operation>5</Operation><LocalCommand>l</LocalCommand>)"
            R"(<RemoteCommand>r</RemoteCommand><Enabled>false</Enabled>)"
            R"(<RemoteName>n</RemoteName><Overwrite>false</Overwrite></Platform></DeployFile>)");
}

TEST(DeploymentFileXml, KeepsTheLastCommandOfEachKind) {
  EXPECT_EQ(RoundTrip(R"(<DeployFile LocalName="a" Configuration="" Class=""><Platform Name="W">)"
                      R"(<LocalCommand>1</LocalCommand><LocalCommand>2</LocalCommand>)"
                      R"(<RemoteCommand>3</RemoteCommand><RemoteCommand>4</RemoteCommand>)"
                      R"(<Overwrite>true</Overwrite></Platform></DeployFile>)"),
            R"(<DeployFile LocalName="a" Configuration="" Class=""><Platform Name="W">)"
            R"(<LocalCommand>2</LocalCommand><RemoteCommand>4</RemoteCommand>)"
            R"(<Overwrite>true</Overwrite></Platform></DeployFile>)");
}

TEST(DeploymentFileXml, ReadsBackWhatItWrites) {
  const std::string text =
      R"(<DeployFile Condition="'$(X)'=='&lt;'" Required="true" LocalName="ä\b" )"
      R"(Configuration="Base" Class="File"><Platform Name="All"><RemoteDir>.\</RemoteDir>)"
      R"(<Operation>0</Operation><Enabled>false</Enabled><RemoteName>n</RemoteName>)"
      R"(<Overwrite>false</Overwrite></Platform><Platform Name="Win32">)"
      R"(<Overwrite>true</Overwrite></Platform></DeployFile>)";
  EXPECT_EQ(RoundTrip(text), text);
}

TEST(DeploymentFileXml, WritesTheAllPlatformsRecordIntoTheEntryAndDoesNotReadItThere) {
  TDeploymentFile file("", "", "a");
  file.SetRemoteDir("All Platforms", "d");
  file.SetEnabled("Win32", true);
  const std::string text = Written(file);
  EXPECT_EQ(text, R"(<DeployFile LocalName="a" Configuration="" Class="">)"
                  R"(<RemoteDir>d</RemoteDir><Overwrite>true</Overwrite>)"
                  R"(<Platform Name="Win32"><Overwrite>true</Overwrite></Platform></DeployFile>)");
  TDeploymentFile read;
  read.Read(*ParseMemoryXML(text));
  EXPECT_EQ(read.GetPlatforms(), TNames{"Win32"});
}

TEST(DeploymentFileXml, TellsNobodyTheClassThatItReads) {
  TDeploymentFile file;
  TRecordingOwner owner;
  file.SetOwner(&owner);
  file.Read(*ParseMemoryXML(R"(<DeployFile LocalName="" Class="Icon"/>)"));
  EXPECT_EQ(owner.Modified, 0);
  EXPECT_EQ(owner.Changing, TNames{"Icon"});
}

TEST(DeploymentFileXml, NamesElementAndValueOfWhatItCannotRead) {
  const std::string place = "App.vproj:2: ";
  EXPECT_EQ(ReadError("<Operation>seven</Operation>"),
            place + R"(element "Operation": its text is "seven", which is not an integer)");
  EXPECT_EQ(ReadError("<Operation/>"),
            place + R"(element "Operation": its text is "", which is not an integer)");
  EXPECT_EQ(ReadError("<Operation>7</Operation>"),
            place + R"(element "Operation": its text is "7", which is not an operation (0 to 6))");
  EXPECT_EQ(ReadError("<Operation>-1</Operation>"),
            place + R"(element "Operation": its text is "-1", which is not an operation (0 to 6))");
  EXPECT_EQ(ReadError("<Operation>6</Operation>"), "");
  EXPECT_EQ(ReadError("<Enabled/>"), place + R"(element "Enabled": its text is "", )"
                                             R"(which is not a Boolean (true or false))");
  EXPECT_EQ(ReadError("<Overwrite>maybe</Overwrite>"),
            place + R"(element "Overwrite": its text is "maybe", )"
                    R"(which is not a Boolean (true or false))");
}

TEST(DeploymentFileXml, RefusesAPlatformWithoutNameAndAnEmptyRequired) {
  TDeploymentFile file;
  try {
    file.Read(*ParseMemoryXML("<DeployFile><Platform/></DeployFile>"));
    FAIL();
  } catch (const TInputError& error) {
    EXPECT_STREQ(error.what(), R"(element "Platform" lacks the required attribute "Name")");
  }
  try {
    file.Read(*ParseMemoryXML(R"(<DeployFile Required=""/>)"));
    FAIL();
  } catch (const TInputError& error) {
    EXPECT_STREQ(error.what(), R"(element "DeployFile": attribute "Required" is "", )"
                               R"(which is not a Boolean (true or false))");
  }
}

} // namespace
} // namespace deployment
