#include "package/model/deployment_storage_manager.h"
#include "tests/package/model/stored_deployment.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TNames = std::vector<std::string>;

// A file of the oldest layout, which shows whether the upgrade ran.
constexpr std::string_view OldEntry =
    R"(<DeployFile LocalName="a" Class="File"><Platform Name="iOSDevice"/></DeployFile>)";

std::string Section(std::string_view version) {
  return std::string("<Deployment").append(version).append(">").append(OldEntry) + "</Deployment>";
}

void AddOldFile(TStoredDeployment& stored) {
  stored.Deployment().AddFile("", "iOSDevice", "b")->SetEnabled("iOSDevice", true);
}

TEST(DeploymentStorageManager, OwnsTheSectionDeployment) {
  TMemoryHost host;
  EXPECT_EQ(TDeploymentStorageManager(host).GetName(), "Deployment");
}

TEST(DeploymentStorageManager, GivesANewProjectAnEmptySectionOfTheCurrentVersion) {
  TStoredDeployment stored;
  stored.Storage.CreatingProject(stored.Project);
  ASSERT_EQ(stored.Project.Sections.size(), 1U);
  EXPECT_EQ(stored.Project.Sections[0]->ToText(), R"(<Deployment Version="2"/>)");
}

TEST(DeploymentStorageManager, EmptiesTheSectionThatANewProjectWasMadeWith) {
  TStoredDeployment stored;
  stored.Project.Sections.push_back(ParseMemoryXML(
      R"(<deployment Other="x" Version="1"><DeployFile LocalName="a"/></deployment>)"));
  stored.Storage.CreatingProject(stored.Project);
  ASSERT_EQ(stored.Project.Sections.size(), 1U);
  EXPECT_EQ(stored.Project.Sections[0]->ToText(), R"(<deployment Other="x" Version="2"/>)");
}

TEST(DeploymentStorageManager, SkipsModulesWithoutADeployment) {
  TMemoryHost host;
  TMemoryProject project;
  TDeploymentStorageManager storage(host);
  const auto node = ParseMemoryXML(R"(<Deployment Version="x"><Platform/></Deployment>)");
  storage.CreatingProject(project);
  storage.ProjectLoaded(project, node.get());
  storage.ProjectLoaded(project, nullptr);
  storage.ProjectSaving(project, *node);
  storage.ProjectClosing(project);
  EXPECT_TRUE(project.Sections.empty());
  EXPECT_EQ(node->ToText(), R"(<Deployment Version="x"><Platform/></Deployment>)");
}

TEST(DeploymentStorageManager, DoesNothingWhenAProjectCloses) {
  TStoredDeployment stored;
  stored.Load(Section(R"( Version="2")"));
  stored.Storage.ProjectClosing(stored.Project);
  EXPECT_EQ(stored.LocalNames(), TNames{"a"});
}

TEST(DeploymentStorageManager, UpgradesBeforeTheFirstSectionWasRead) {
  TStoredDeployment stored;
  AddOldFile(stored);
  stored.LoadNothing();
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"iOSDevice32"});
}

TEST(DeploymentStorageManager, DoesNotUpgradeAProjectWithoutASectionAfterAnotherWasLoaded) {
  TStoredDeployment stored;
  stored.Load(Section(""));
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"iOSDevice32"});
  AddOldFile(stored);
  stored.LoadNothing();
  EXPECT_EQ(stored.Files()[1]->GetPlatforms(), TNames{"iOSDevice"});
}

TEST(DeploymentStorageManager, ReadsTheVersionOfEverySectionAnew) {
  TStoredDeployment stored;
  TMemoryProject second;
  TDeploymentModuleHandler::Attach(second, stored.Host, stored.Storage);
  stored.Load(Section(R"( Version="7")"));
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"iOSDevice"});
  const auto node = ParseMemoryXML(Section(""));
  stored.Storage.ProjectLoaded(second, node.get());
  EXPECT_EQ(second.GetProjectDeployment()->FindFiles("a", "", "", "")[0]->GetPlatforms(),
            TNames{"iOSDevice32"});
}

TEST(DeploymentStorageManager, KeepsTheVersionOfASectionThatBrokeOff) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment Version="2"/>)");
  EXPECT_EQ(ErrorOf([&] { stored.Load("<Deployment><ProjectRoot/></Deployment>"); }),
            "App.vproj:1: element \"ProjectRoot\" lacks the required attribute \"Name\"");
  AddOldFile(stored);
  stored.LoadNothing();
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"iOSDevice32"});
}

TEST(DeploymentStorageManager, UpgradesNextFromTheVersionOfTheDefaults) {
  TStoredDeployment stored;
  stored.Load(R"(<Deployment Version="2"/>)");
  stored.Host.Files[R"(C:\ide\ObjRepos\Deploy\defaults.xml)"] =
      R"(<Deployment><DeployClass Name="File"/></Deployment>)";
  stored.Storage.ReadDefaultDeployment(stored.Project, stored.Deployment());
  AddOldFile(stored);
  stored.LoadNothing();
  EXPECT_EQ(stored.Files()[0]->GetPlatforms(), TNames{"iOSDevice32"});
}

TEST(DeploymentStorageManager, KnowsTheLayoutOfASectionAndWhetherItIsOutdated) {
  const auto layoutOf = [](std::string_view text) {
    TStoredDeployment stored;
    const TSectionLayout layout = stored.Storage.GetLayout(*ParseMemoryXML(text));
    return std::to_string(layout.Version) + (layout.IsOutdated ? " outdated" : "");
  };
  EXPECT_EQ(layoutOf(R"(<Deployment Version="2"><DeployFile/></Deployment>)"), "2");
  EXPECT_EQ(layoutOf(R"(<Deployment Version="1"><DeployFile/></Deployment>)"), "1 outdated");
  EXPECT_EQ(layoutOf(R"(<Deployment><DeployFile/></Deployment>)"), "0 outdated");
  EXPECT_EQ(layoutOf(R"(<Deployment/>)"), "0");
  EXPECT_EQ(layoutOf(R"(<Deployment Version="3"><DeployFile/></Deployment>)"), "3");
  EXPECT_EQ(ErrorOf([&] { layoutOf(R"(<Deployment Version="x"/>)"); }).empty(), false);
}

} // namespace
} // namespace deployment
