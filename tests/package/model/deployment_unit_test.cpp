#include "package/model/deployment_module_handler.h"
#include "package/model/deployment_unit.h"
#include "tests/support/memory_host.h"
#include "tests/support/memory_project.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace deployment {
namespace {

std::size_t StorageOwners(const TMemoryHost& host) {
  const auto& owners = host.FileStorage.Notifiers;
  return owners.size() -
         static_cast<std::size_t>(std::count(owners.begin(), owners.end(), nullptr));
}

/// A member of the chain that is not ours.
class TForeignGauntletHandler : public IModuleGauntletHandler {
public:
  void AttachHandler(IOTAModule& /*module*/) override {}
};

TEST(DeploymentUnit, WaitsForTheMainForm) {
  TMemoryHost host;
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  EXPECT_EQ(host.Events.Created.Handlers.size(), 1U);
  EXPECT_TRUE(host.Gauntlet.Members.empty());
  EXPECT_EQ(StorageOwners(host), 0U);
  host.Events.Created.Raise();
  ASSERT_EQ(host.Gauntlet.Members.size(), 1U);
  EXPECT_EQ(host.Gauntlet.Members[0].first, 1000);
  ASSERT_EQ(StorageOwners(host), 1U);
  EXPECT_EQ(host.FileStorage.Notifiers[0]->GetName(), "Deployment");
  EXPECT_TRUE(host.Events.Created.Handlers.empty());
}

TEST(DeploymentUnit, IsTakenOffTheHostAgain) {
  TMemoryHost host;
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  host.Events.Created.Raise();
  unit.Finalize();
  EXPECT_TRUE(host.Gauntlet.Members.empty());
  EXPECT_EQ(StorageOwners(host), 0U);
}

TEST(DeploymentUnit, StopsWaitingWhenTheMainFormNeverCame) {
  TMemoryHost host;
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  unit.Finalize();
  EXPECT_TRUE(host.Events.Created.Handlers.empty());
  host.Events.Created.Raise();
  EXPECT_TRUE(host.Gauntlet.Members.empty());
}

TEST(DeploymentUnit, SubscribesAtTheFirstInitializationOnly) {
  TMemoryHost host;
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  unit.Initialize();
  EXPECT_EQ(host.Events.Created.Handlers.size(), 1U);
  host.Events.Created.Raise();
  unit.Finalize();
  EXPECT_EQ(host.Gauntlet.Members.size(), 1U);
  unit.Finalize();
  EXPECT_TRUE(host.Gauntlet.Members.empty());
}

TEST(DeploymentUnit, IgnoresAFinalizationWithoutAnInitialization) {
  TMemoryHost host;
  TDeploymentImplUnit unit(host);
  unit.Finalize();
  unit.Initialize();
  EXPECT_EQ(host.Events.Created.Handlers.size(), 1U);
}

TEST(DeploymentUnit, LeavesHandlersAndSectionOwnersOfOthers) {
  TMemoryHost host;
  host.Gauntlet.AddHandler(std::make_shared<TForeignGauntletHandler>(), 1000);
  host.FileStorage.AddNotifier(std::make_shared<TDeploymentStorageManager>(host));
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  host.Events.Created.Raise();
  unit.Finalize();
  EXPECT_EQ(host.Gauntlet.Members.size(), 1U);
  EXPECT_EQ(StorageOwners(host), 1U);
}

TEST(DeploymentUnit, GivesAProjectOneDeployment) {
  TMemoryHost host;
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  host.Events.Created.Raise();
  TMemoryProject project;
  host.Gauntlet.Open(project);
  EXPECT_EQ(project.Handlers.size(), 1U);
  EXPECT_EQ(project.NotifierCount(), 1U);
  EXPECT_TRUE(project.GetProjectDeployment());
}

TEST(DeploymentUnit, GivesOtherModulesNone) {
  TMemoryHost host;
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  host.Events.Created.Raise();
  TMemoryProject source;
  source.ProjectModule = false;
  TMemoryProject group;
  group.WithoutDeployment = true;
  host.Gauntlet.Open(source);
  host.Gauntlet.Open(group);
  EXPECT_TRUE(source.Handlers.empty());
  EXPECT_TRUE(group.Handlers.empty());
}

TEST(DeploymentUnit, GivesNoDeploymentThatCouldNotBeStored) {
  TMemoryHost host;
  TDeploymentGauntletHandler handler(host, []() -> IDeploymentStorage* { return nullptr; });
  TMemoryProject project;
  handler.AttachHandler(project);
  EXPECT_TRUE(project.Handlers.empty());
}

TEST(DeploymentUnit, LetsAProjectThatStaysOpenUseItsStorage) {
  TMemoryHost host;
  host.Files[R"(C:\ide\ObjRepos\Deploy\deploymenttemplate.xml)"] = "<Project/>";
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  host.Events.Created.Raise();
  TMemoryProject project;
  host.Gauntlet.Open(project);
  unit.Finalize();
  project.GetProjectDeployment()->SaveToDeployProj();
  EXPECT_TRUE(host.Files.contains(R"(C:\work\App\App.deployproj)"));
}

TEST(DeploymentUnit, LoadsAndSavesAProjectThroughTheHost) {
  TMemoryHost host;
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  host.Events.Created.Raise();
  TMemoryProject project;
  host.Gauntlet.Open(project);
  const auto section =
      ParseMemoryXML(R"(<Deployment Version="2"><DeployClass Name="File"/></Deployment>)");
  host.FileStorage.Notifiers[0]->ProjectLoaded(project, section.get());
  EXPECT_TRUE(project.GetProjectDeployment()->FindClass("File"));
  TMemoryXMLNode node("Deployment");
  host.FileStorage.Notifiers[0]->ProjectSaving(project, node);
  EXPECT_EQ(node.ToText(), section->ToText());
}

TEST(DeploymentUnit, JoinsTheChainBeforeItsStorageIsRegistered) {
  struct TWatchingHost : TMemoryHost {
    TMemoryFileStorage& GetProjectFileStorage() override {
      MembersThen.push_back(Gauntlet.Members.size());
      return TMemoryHost::GetProjectFileStorage();
    }
    std::vector<std::size_t> MembersThen;
  } host;
  TDeploymentImplUnit unit(host);
  unit.Initialize();
  host.Events.Created.Raise();
  ASSERT_FALSE(host.MembersThen.empty());
  EXPECT_EQ(host.MembersThen.front(), 1U);
}

} // namespace
} // namespace deployment
