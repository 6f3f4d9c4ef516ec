#include "package/model/deployproj_writer.h"
#include "tests/package/model/stored_deployment.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

constexpr const char* TemplateName = R"(C:\ide\ObjRepos\Deploy\deploymenttemplate.xml)";
constexpr const char* Target = R"(C:\work\App\App.deployproj)";

struct TSideFile : TStoredDeployment {
  explicit TSideFile(std::initializer_list<std::string_view> platforms = {"Win32"}) {
    Host.Files[TemplateName] = "<Project/>";
    Host.PlatformManager.Add(platforms);
  }

  /// A file of class "File" that is enabled for the platform.
  IProjectDeploymentFile& Add(std::string_view localName, std::string_view platform = "Win32",
                              std::string_view configuration = "") {
    const auto file = Deployment().AddFile(configuration, platform, localName);
    file->SetDeploymentClass("File");
    file->SetEnabled(platform, true);
    return *file;
  }
  std::string Write() {
    Storage.WriteMSB(Project, Deployment());
    return Host.Files[Target];
  }
  /// The document element of what was written.
  std::unique_ptr<TMemoryXMLNode> Document() { return ParseMemoryXML(Write()); }
};

TMemoryXMLNode* Child(TMemoryXMLNode* node, std::string_view name) {
  TMemoryXMLNode* child = node ? node->FirstChild() : nullptr;
  while (child && child->NodeName() != name)
    child = child->NextSibling();
  return child;
}

/// Metadata of the first item of the first group.
std::string Metadata(TSideFile& side, std::string_view name) {
  const auto document = side.Document();
  const auto* metadata = Child(Child(document->FirstChild(), "DeployFile"), name);
  return metadata ? std::string(metadata->Text()) : "no such metadata";
}

std::string Condition(TSideFile& side) {
  const auto document = side.Document();
  const auto* item = Child(document->FirstChild(), "DeployFile");
  return std::string(item ? item->GetAttribute("Condition").value_or("none") : "no such item");
}

/// What the rule of remote directories makes of one.
std::string RemoteDir(std::string_view directory, std::string_view root = "App") {
  TSideFile side;
  side.Deployment().SetProjectRoot("Win32", root);
  side.Add("a").SetRemoteDir("Win32", directory);
  return Metadata(side, "RemoteDir");
}

TEST(DeployProj, WritesOneItemWithItsMetadataInOrder) {
  TSideFile side;
  IProjectDeploymentFile& file = side.Add("$(ZELK)\\bin\\a.dat");
  file.SetRequired(true);
  EXPECT_EQ(side.Write(), R"(<Project><ItemGroup Condition="'$(Platform)'=='Win32'">)"
                          R"(<DeployFile Include="$(ZELK)\bin\a.dat">)"
                          R"(<RemoteDir>App\</RemoteDir><RemoteName>a.dat</RemoteName>)"
                          R"(<DeployClass>File</DeployClass><Operation>6</Operation>)"
                          R"(<LocalCommand/><RemoteCommand/><Overwrite>True</Overwrite>)"
                          R"(<Required>True</Required></DeployFile></ItemGroup></Project>)");
}

TEST(DeployProj, OfADeploymentWithoutFilesHasAnEmptyGroupPerPlatform) {
  TSideFile side({"Win32", "OSX32", "Android"});
  EXPECT_EQ(side.Write(), R"(<Project><ItemGroup Condition="'$(Platform)'=='Win32'"/>)"
                          R"(<ItemGroup Condition="'$(Platform)'=='OSX32'"/>)"
                          R"(<ItemGroup Condition="'$(Platform)'=='Android'"/></Project>)");
}

TEST(DeployProj, ListsAFileInTheGroupsOfItsEnabledPlatformsInTheOrderOfTheDeployment) {
  TSideFile side({"Win32", "Android"});
  side.Add("b");
  side.Add("a", "Android");
  side.Add("off").SetEnabled("Win32", false);
  side.Add("both").SetEnabled("Android", true);
  const auto document = side.Document();
  std::string listed;
  for (auto* group = document->FirstChild(); group; group = group->NextSibling()) {
    for (auto* item = group->FirstChild(); item; item = item->NextSibling())
      listed.append(*item->GetAttribute("Include")).append(" ");
    listed += "| ";
  }
  EXPECT_EQ(listed, "b both | a both | ");
}

TEST(DeployProj, ListsAFileForAllPlatformsInEveryGroup) {
  TSideFile side({"Win32", "Android"});
  side.Add("a", sAllPlatforms);
  const auto document = side.Document();
  EXPECT_TRUE(Child(document->FirstChild(), "DeployFile"));
  EXPECT_TRUE(Child(document->FirstChild()->NextSibling(), "DeployFile"));
}

TEST(DeployProj, ListsAFileForAllPlatformsWhereItsOwnRecordIsOff) {
  TSideFile side;
  side.Add("a", sAllPlatforms).SetEnabled("Win32", false);
  EXPECT_EQ(Metadata(side, "RemoteName"), "a");
}

TEST(DeployProj, SkipsAFileThatIsOffForAllPlatforms) {
  TSideFile side;
  side.Add("a", sAllPlatforms).SetEnabled(sAllPlatforms, false);
  EXPECT_EQ(side.Write(), R"(<Project><ItemGroup Condition="'$(Platform)'=='Win32'"/></Project>)");
}

TEST(DeployProj, TakesTheFallbackRecordForAPlatformAndNotForAllPlatforms) {
  TSideFile side({"Win32", "Android"});
  side.Add("a", FallbackPlatform).SetEnabled("Android", false);
  const auto document = side.Document();
  EXPECT_TRUE(Child(document->FirstChild(), "DeployFile"));
  EXPECT_FALSE(Child(document->FirstChild()->NextSibling(), "DeployFile"));
}

TEST(DeployProj, PutsTheConfigurationIntoTheConditionOfTheItem) {
  TSideFile side;
  side.Add("a", "Win32", "Debug");
  EXPECT_EQ(Condition(side), "'$(Config)'=='Debug'");
}

TEST(DeployProj, GivesAnEntryOfTheRootConfigurationNoConditionSinceEveryBuildComesFromIt) {
  TSideFile side;
  side.Add("a", "Win32", "Base");
  EXPECT_EQ(Condition(side), "none");
  side.Deployment().GetFiles().front()->SetCondition("'$(X)'=='1'");
  EXPECT_EQ(Condition(side), "'$(X)'=='1'");
}

TEST(DeployProj, SpeaksTheWordsOfTheProjectsBuilds) {
  TSideFile side({"Win32", "Win64"});
  side.Project.HasBuildNames = true;
  side.Project.BuildNames.PlatformProperty = "BuildPlatform";
  side.Project.BuildNames.Platforms["Win64"] = "x64";
  side.Project.BuildNames.Configurations["Release"] = "Ship";
  side.Add("a", "Win64", "Release");
  const auto document = side.Document();
  const TMemoryXMLNode* first = document->FirstChild();
  EXPECT_EQ(*first->GetAttribute("Condition"), "'$(BuildPlatform)'=='Win32'");
  TMemoryXMLNode* second = document->FirstChild()->NextSibling();
  EXPECT_EQ(*second->GetAttribute("Condition"), "'$(BuildPlatform)'=='x64'");
  EXPECT_EQ(*Child(second, "DeployFile")->GetAttribute("Condition"), "'$(Configuration)'=='Ship'");
}

TEST(DeployProj, AppendsTheConditionOfTheEntry) {
  TSideFile side;
  side.Add("a", "Win32", "Debug").SetCondition("'$(X)'=='1'");
  EXPECT_EQ(Condition(side), "'$(Config)'=='Debug' And '$(X)'=='1'");
}

TEST(DeployProj, TakesTheConditionOfTheEntryAloneWithoutAConfiguration) {
  TSideFile side;
  side.Add("a").SetCondition("'$(X)'=='1'");
  EXPECT_EQ(Condition(side), "'$(X)'=='1'");
}

TEST(DeployProj, GivesAnItemWithoutEitherNoCondition) {
  TSideFile side;
  side.Add("a");
  EXPECT_EQ(Condition(side), "none");
}

TEST(DeployProj, PutsARelativeDirectoryUnderTheBaseDirectory) {
  EXPECT_EQ(RemoteDir("lib"), "App\\lib\\");
  EXPECT_EQ(RemoteDir("lib\\"), "App\\lib\\");
  EXPECT_EQ(RemoteDir(".\\lib/x"), "App\\lib\\x\\");
  EXPECT_EQ(RemoteDir(".\\"), "App\\");
  EXPECT_EQ(RemoteDir(""), "App\\");
  EXPECT_EQ(RemoteDir("lib", "root\\sub\\"), "root\\sub\\lib\\");
}

TEST(DeployProj, ClimbsOutOfTheBaseDirectory) {
  EXPECT_EQ(RemoteDir("..\\lib"), "lib\\");
  EXPECT_EQ(RemoteDir("../lib/"), "lib\\");
  EXPECT_EQ(RemoteDir("..\\..\\lib"), "..\\lib\\");
  EXPECT_EQ(RemoteDir("..\\lib", "\\App"), "lib\\");
  EXPECT_EQ(RemoteDir("..lib"), "App\\..lib\\");
}

TEST(DeployProj, NamesTheRootOfTheTargetAsADirectoryOfItsOwn) {
  EXPECT_EQ(RemoteDir(".."), ".\\");
  EXPECT_EQ(RemoteDir("..\\"), ".\\");
  EXPECT_EQ(RemoteDir("lib\\..\\.."), ".\\");
  EXPECT_EQ(RemoteDir("..", "\\App"), ".\\");
}

TEST(DeployProj, WarnsOfADirectoryAboveTheRootOfTheTarget) {
  TSideFile side;
  side.Add("in").SetRemoteDir("Win32", "..\\..lib");
  side.Add("out").SetRemoteDir("Win32", "..\\..\\lib");
  side.Write();
  ASSERT_EQ(side.Host.Messages.Warnings.size(), 1U);
  EXPECT_EQ(
      side.Host.Messages.Warnings[0].first,
      R"("out": its remote directory "..\..\lib" for "Win32" goes above the root of the target)");
  EXPECT_EQ(side.Host.Messages.Warnings[0].second.File, side.Project.FileName);
}

TEST(DeployProj, DropsALeadingDelimiterOnlyAfterAClimb) {
  EXPECT_EQ(RemoteDir("lib", "\\App"), "\\App\\lib\\");
  EXPECT_EQ(RemoteDir("x\\..\\..\\lib", "\\App"), "\\lib\\");
}

TEST(DeployProj, LeavesAnAbsoluteDirectoryButEndsItWithADelimiter) {
  EXPECT_EQ(RemoteDir("\\srv\\..\\app"), "\\srv\\..\\app\\");
  EXPECT_EQ(RemoteDir("C:\\app\\"), "C:\\app\\");
  EXPECT_EQ(RemoteDir("/srv/app/"), "/srv/app/");
}

TEST(DeployProj, PutsAHomeDirectoryUnderTheBaseDirectoryLikeAnyRelativeOne) {
  EXPECT_EQ(RemoteDir("~\\app"), "App\\~\\app\\");
}

TEST(DeployProj, TakesTheNameOfTheProjectForAMissingRoot) {
  EXPECT_EQ(RemoteDir("lib", ""), "App\\lib\\");
}

TEST(DeployProj, TakesTheRootOfEachPlatform) {
  TSideFile side({"Win32", "OSX32"});
  side.Deployment().SetProjectRoot("OSX32", "App.app");
  side.Add("a").SetEnabled("OSX32", true);
  const auto document = side.Document();
  const auto directory = [](TMemoryXMLNode* group) {
    return std::string(Child(Child(group, "DeployFile"), "RemoteDir")->Text());
  };
  EXPECT_EQ(directory(document->FirstChild()), "App\\");
  EXPECT_EQ(directory(document->FirstChild()->NextSibling()), "App.app\\");
}

TEST(DeployProj, TakesFromTheClassWhatTheFileLeavesOpen) {
  TSideFile side;
  side.Load(R"(<Deployment Version="2"><DeployFile LocalName="a.exe" Class="Program">
    <Platform Name="Win32"/></DeployFile><DeployClass Name="Program" Required="true">
    <Platform Name="Win32"><RemoteDir>bin\</RemoteDir><Operation>1</Operation>
    <LocalCommand>strip</LocalCommand><RemoteCommand>chmod</RemoteCommand></Platform></DeployClass>
    </Deployment>)");
  EXPECT_EQ(Metadata(side, "RemoteDir"), "App\\bin\\");
  EXPECT_EQ(Metadata(side, "Operation"), "1");
  EXPECT_EQ(Metadata(side, "LocalCommand"), "strip");
  EXPECT_EQ(Metadata(side, "RemoteCommand"), "chmod");
  EXPECT_EQ(Metadata(side, "Required"), "True");
}

TEST(DeployProj, PrefersTheFileToItsClass) {
  TSideFile side;
  side.Load(R"(<Deployment Version="2"><DeployFile LocalName="a.exe" Class="Program">
    <Platform Name="Win32"><RemoteDir>own\</RemoteDir><Operation>0</Operation>
    <RemoteName>b.exe</RemoteName><Overwrite>false</Overwrite></Platform></DeployFile>
    <DeployClass Name="Program"><Platform Name="Win32"><RemoteDir>bin\</RemoteDir>
    <Operation>1</Operation></Platform></DeployClass></Deployment>)");
  EXPECT_EQ(Metadata(side, "RemoteDir"), "App\\own\\");
  EXPECT_EQ(Metadata(side, "Operation"), "0");
  EXPECT_EQ(Metadata(side, "RemoteName"), "b.exe");
  EXPECT_EQ(Metadata(side, "Overwrite"), "False");
  EXPECT_EQ(Metadata(side, "Required"), "no such metadata");
}

TEST(DeployProj, JoinsCommandsWithCarriageReturnAndLineFeed) {
  TSideFile side;
  IProjectDeploymentFile& file = side.Add("a");
  *file.GetLocalCommands("Win32") = {"one", "two"};
  *file.GetRemoteCommands("Win32") = {"three", "four"};
  EXPECT_EQ(Metadata(side, "LocalCommand"), "one\r\ntwo");
  EXPECT_EQ(Metadata(side, "RemoteCommand"), "three\r\nfour");
}

TEST(DeployProj, MakesSureOfTheDefaultsFirst) {
  TSideFile side;
  side.Host.Files[R"(C:\ide\ObjRepos\Deploy\defaults.xml)"] =
      R"(<Deployment Version="2"><DeployFile LocalName="default.dat"><Platform Name="Win32"/>)"
      R"(</DeployFile></Deployment>)";
  EXPECT_EQ(Metadata(side, "RemoteName"), "default.dat");
}

TEST(DeployProj, ReplacesTheOldFile) {
  TSideFile side;
  side.Host.Files[Target] = "old";
  EXPECT_EQ(side.Write(), R"(<Project><ItemGroup Condition="'$(Platform)'=='Win32'"/></Project>)");
}

TEST(DeployProj, ReplacesTheExtensionOfTheProjectFileOnly) {
  TSideFile side;
  side.Project.FileName = "C:\\my.work\\App";
  side.Write();
  EXPECT_TRUE(side.Host.Files.contains("C:\\my.work\\App.deployproj"));
  side.Project.FileName = "/home/me/My.App.vproj";
  side.Write();
  EXPECT_TRUE(side.Host.Files.contains("/home/me/My.App.deployproj"));
}

TEST(DeployProj, PrefersTheTemplateInTheUsersLanguage) {
  TSideFile side;
  side.Host.AppStrings.LocaleFiles[TemplateName] = "C:\\ide\\template.de.xml";
  side.Host.Files["C:\\ide\\template.de.xml"] = "<Project/>";
  side.Write();
  EXPECT_EQ(side.Host.ProjectFileUtils.LoadedTemplates,
            std::vector<std::string>{"C:\\ide\\template.de.xml"});
}

TEST(DeployProj, WithoutATemplateIsAnErrorAndTheOldFileStays) {
  TSideFile side;
  side.Host.Files.erase(TemplateName);
  side.Host.Files[Target] = "old";
  EXPECT_EQ(ErrorOf([&] { side.Write(); }),
            std::string(TemplateName) + ":0: the template cannot be read");
  EXPECT_EQ(side.Host.Files[Target], "old");
}

TEST(DeployProj, IsWrittenWhenTheDeploymentSavesIt) {
  TSideFile side;
  side.Deployment().SaveToDeployProj();
  EXPECT_TRUE(side.Host.Files.contains(Target));
}

} // namespace
} // namespace deployment
