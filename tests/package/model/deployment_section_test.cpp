#include "package/model/deployment_section.h"
#include "tests/package/model/stored_deployment.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TNames = std::vector<std::string>;

TEST(DeploymentSection, ReadsEveryKindOfElement) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment Version="2">
    <DeployFile LocalName="a.dat" Configuration="Debug" Class="File">
      <Platform Name="Win32"><RemoteDir>data\</RemoteDir></Platform></DeployFile>
    <DeployClass Name="File"><Platform Name="Win32"><Operation>1</Operation></Platform></DeployClass>
    <ProjectRoot Platform="Win32" Name="Demo"/></Deployment>)");
  const auto file = stored.Deployment().FindFile("Debug", "Win32", "a.dat");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->GetRemoteDir("Win32"), "data\\");
  const auto fileClass = stored.Deployment().FindClass("File");
  ASSERT_TRUE(fileClass);
  EXPECT_EQ(fileClass->GetOperation("Win32"), TDeployOperation::CopyExecutable);
  EXPECT_EQ(stored.Deployment().GetProjectRoot("Win32"), "Demo");
}

TEST(DeploymentSection, ReadsKindsInWhateverOrderTheyStand) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment Version="2"><ProjectRoot Platform="Win32" Name="Demo"/>
    <DeployClass Name="One"/><DeployFile LocalName="a"/><Unknown/><DeployClass Name="Two"/>
    <DeployFile LocalName="b"/></Deployment>)");
  EXPECT_EQ(stored.LocalNames(), (TNames{"a", "b"}));
  const auto classes = stored.Deployment().GetClasses();
  ASSERT_EQ(classes.size(), 2U);
  EXPECT_EQ(classes[0]->GetClassId(), "One");
  EXPECT_EQ(classes[1]->GetClassId(), "Two");
  EXPECT_EQ(stored.Deployment().GetProjectRoot("Win32"), "Demo");
}

TEST(DeploymentSection, IgnoresTheCaseOfItsName) {
  TStoredDeployment stored;
  stored.Load(R"(<dEPLOYment Version="2"><DeployFile LocalName="a"/></dEPLOYment>)");
  EXPECT_EQ(stored.LocalNames(), TNames{"a"});
}

TEST(DeploymentSection, IgnoresAnElementOfAnotherName) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployments Version="x"><DeployFile LocalName="a"/></Deployments>)");
  EXPECT_TRUE(stored.Deployment().IsEmpty());
}

TEST(DeploymentSection, KeepsTheLaterOfTwoFilesWithOneKey) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment Version="2">
    <DeployFile LocalName="a" Class="First"><Platform Name="Win32"/></DeployFile>
    <DeployFile LocalName="b" Class="Other"><Platform Name="Win32"/></DeployFile>
    <DeployFile LocalName="a" Class="Second"><Platform Name="Win32"/></DeployFile></Deployment>)");
  EXPECT_EQ(stored.LocalNames(), (TNames{"a", "b"}));
  EXPECT_EQ(stored.Files()[0]->GetDeploymentClass(), "Second");
}

TEST(DeploymentSection, KeepsFilesApartThatDifferInConfigurationOrPlatform) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment Version="2">
    <DeployFile LocalName="a" Configuration="Debug"><Platform Name="Win32"/></DeployFile>
    <DeployFile LocalName="a" Configuration="Release"><Platform Name="Win32"/></DeployFile>
    <DeployFile LocalName="a" Configuration="Debug"><Platform Name="Win64"/></DeployFile>
    </Deployment>)");
  EXPECT_EQ(stored.Files().size(), 3U);
}

TEST(DeploymentSection, KeepsTheLaterOfTwoRootsOfOnePlatform) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment Version="2"><ProjectRoot Platform="Win32" Name="A"/>
    <ProjectRoot Platform="Win32" Name="B"/></Deployment>)");
  EXPECT_EQ(stored.Deployment().GetProjectRoot("Win32"), "B");
}

TEST(DeploymentSection, RefusesAVersionThatIsNoInteger) {
  TStoredDeployment stored;
  EXPECT_EQ(
      ErrorOf([&] {
        stored.Load(R"(<Deployment Version="two"><DeployFile LocalName="a"/></Deployment>)");
      }),
      "App.vproj:1: element \"Deployment\": attribute \"Version\" is \"two\", which is not an "
      "integer");
  EXPECT_TRUE(stored.Deployment().IsEmpty());
}

TEST(DeploymentSection, RefusesAnEmptyVersion) {
  TStoredDeployment stored;
  EXPECT_EQ(ErrorOf([&] { stored.Load(R"(<Deployment Version=""/>)"); }),
            "App.vproj:1: element \"Deployment\": attribute \"Version\" is \"\", which is not an "
            "integer");
}

TEST(DeploymentSection, RefusesARootWithoutNameAndKeepsWhatCameBefore) {
  TStoredDeployment stored;
  EXPECT_EQ(ErrorOf([&] {
              stored.Load("<Deployment Version=\"2\"><DeployFile LocalName=\"a\"/>\n"
                          "<ProjectRoot Platform=\"Win64\" Name=\"Demo\"/>\n"
                          "<ProjectRoot Platform=\"Win32\"/></Deployment>");
            }),
            "App.vproj:3: element \"ProjectRoot\" lacks the required attribute \"Name\"");
  EXPECT_EQ(stored.LocalNames(), TNames{"a"});
  EXPECT_EQ(stored.Deployment().GetProjectRoot("Win64"), "Demo");
}

TEST(DeploymentSection, RefusesARootWithoutPlatform) {
  TStoredDeployment stored;
  EXPECT_EQ(ErrorOf([&] {
              stored.Load("<Deployment Version=\"2\">\n<ProjectRoot Name=\"Demo\"/></Deployment>");
            }),
            "App.vproj:2: element \"ProjectRoot\" lacks the required attribute \"Platform\"");
}

TEST(DeploymentSection, StopsAtAPlatformWithoutNameAndKeepsTheFilesBefore) {
  TStoredDeployment stored;
  EXPECT_EQ(ErrorOf([&] {
              stored.Load("<Deployment Version=\"2\"><DeployFile LocalName=\"a\"/>\n"
                          "<DeployFile LocalName=\"b\"><Platform/></DeployFile>\n"
                          "<DeployFile LocalName=\"c\"/></Deployment>");
            }),
            "App.vproj:2: element \"Platform\" lacks the required attribute \"Name\"");
  EXPECT_EQ(stored.LocalNames(), TNames{"a"});
}

TEST(DeploymentSection, WritesFilesThenClassesThenRoots) {
  TStoredDeployment stored;
  stored.Deployment().SetProjectRoot("Win32", "Demo");
  const auto deploymentClass = stored.Deployment().CreateClass();
  deploymentClass->SetClassId("File");
  stored.Deployment().AddClass(deploymentClass);
  stored.Deployment().AddFile("Debug", "Win32", "b.dat");
  stored.Deployment().AddFile("", "Win32", "a.dat")->SetRemoteDir("Win32", "data\\");
  EXPECT_EQ(stored.Save(), R"(<Deployment Version="2">)"
                           R"(<DeployFile LocalName="b.dat" Configuration="Debug" Class=""/>)"
                           R"(<DeployFile LocalName="a.dat" Configuration="" Class="">)"
                           R"(<Platform Name="Win32"><RemoteDir>data\</RemoteDir>)"
                           R"(<Overwrite>true</Overwrite></Platform></DeployFile>)"
                           R"(<DeployClass Name="File"/>)"
                           R"(<ProjectRoot Platform="Win32" Name="Demo"/></Deployment>)");
}

TEST(DeploymentSection, WritesWhatItReads) {
  constexpr std::string_view Text =
      R"(<Deployment Version="2"><DeployFile Condition="'$(X)'=='1'" Required="true" )"
      R"(LocalName="ä &amp; b.dat" Configuration="Debug" Class="File"><Platform Name="Win32">)"
      R"(<RemoteDir>data\</RemoteDir><Operation>3</Operation><LocalCommand>strip</LocalCommand>)"
      R"(<RemoteCommand>chmod</RemoteCommand><Enabled>false</Enabled>)"
      R"(<RemoteName>c.dat</RemoteName><Overwrite>false</Overwrite></Platform>)"
      R"(<Platform Name="All"><Overwrite>true</Overwrite></Platform></DeployFile>)"
      R"(<DeployClass Name="File" Description="Files"><Platform Name="Win32">)"
      R"(<Extensions>.a;.b</Extensions></Platform></DeployClass>)"
      R"(<ProjectRoot Platform="Win32" Name="Demo"/>)"
      R"(<ProjectRoot Platform="Android" Name=""/></Deployment>)";
  TStoredDeployment stored;
  stored.Load(Text);
  EXPECT_EQ(stored.Save(), Text);
}

TEST(DeploymentSection, OfAnEmptyDeploymentHasNeitherChildrenNorAttributes) {
  TStoredDeployment stored;
  stored.Deployment().SetProjectRoot("Win32", "Demo");
  const auto node = ParseMemoryXML(R"(<Deployment Version="2"><DeployFile/></Deployment>)");
  stored.Storage.ProjectSaving(stored.Project, *node);
  EXPECT_EQ(node->ToText(), "<Deployment/>");
}

TEST(DeploymentSection, ReplacesWhatTheNodeHeld) {
  TStoredDeployment stored;
  stored.Deployment().AddFile("", "Win32", "a");
  const auto node = ParseMemoryXML(R"(<Deployment Version="1"><DeployFile LocalName="old"/>)"
                                   R"(<Other/></Deployment>)");
  stored.Storage.ProjectSaving(stored.Project, *node);
  EXPECT_EQ(node->ToText(), R"(<Deployment Version="2"><DeployFile LocalName="a" )"
                            R"(Configuration="" Class=""/></Deployment>)");
}

TEST(DeploymentSection, IsWrittenWithoutAskingForTheDefaults) {
  TStoredDeployment stored;
  stored.Host.Files[R"(C:\ide\ObjRepos\Deploy\defaults.xml)"] =
      R"(<Deployment Version="2"><DeployClass Name="File"/></Deployment>)";
  EXPECT_EQ(stored.Save(), "<Deployment/>");
  stored.Deployment().AddFile("", "Win32", "a");
  EXPECT_EQ(stored.Save(), R"(<Deployment Version="2"><DeployFile LocalName="a" )"
                           R"(Configuration="" Class=""/></Deployment>)");
  EXPECT_TRUE(stored.Host.XMLDocuments.Loaded.empty());
}

} // namespace
} // namespace deployment
