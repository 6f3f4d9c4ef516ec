#include "package/host/plugin/deployment_package.h"
#include "tests/package/host/plugin/memory_view_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace deployment {
namespace {

/// Everything that the package has registered with the host.
std::size_t RegisteredCount(const TMemoryHost& host) {
  const auto& owners = host.FileStorage.Notifiers;
  const auto removed = static_cast<std::size_t>(std::count(owners.begin(), owners.end(), nullptr));
  return host.Events.Created.Handlers.size() + host.Gauntlet.Members.size() + owners.size() -
         removed;
}

TEST(DeploymentPackage, DoesNothingBeforeItsStart) {
  TMemoryHost host;
  const TDeploymentPackage package(host);
  EXPECT_EQ(RegisteredCount(host), 0U);
}

TEST(DeploymentPackage, StartsOnce) {
  TMemoryHost host;
  TDeploymentPackage package(host);
  package.Start();
  package.Start();
  EXPECT_EQ(RegisteredCount(host), 1U);
  host.Events.Created.Raise();
  package.Start();
  EXPECT_EQ(RegisteredCount(host), 2U);
}

TEST(DeploymentPackage, StopsTwiceAndWithoutAStart) {
  TMemoryHost host;
  TDeploymentPackage package(host);
  package.Stop();
  package.Start();
  host.Events.Created.Raise();
  package.Stop();
  EXPECT_EQ(RegisteredCount(host), 0U);
  package.Stop();
  EXPECT_EQ(RegisteredCount(host), 0U);
}

std::vector<std::string>& UnitLog() {
  static std::vector<std::string> log;
  return log;
}

void Note(const char* text) {
  UnitLog().emplace_back(text);
}

TEST(DeploymentPackage, StopsItsUnitsInTheReverseOrder) {
  const std::array<TUnit, 3> table{{
      {"a", [](TPackageUnits&) { Note("+a"); }, [](TPackageUnits&) { Note("-a"); }},
      {"b", [](TPackageUnits&) { Note("+b"); }, [](TPackageUnits&) { Note("-b"); }},
      {"c", [](TPackageUnits&) { Note("+c"); }, [](TPackageUnits&) { Note("-c"); }},
  }};
  UnitLog().clear();
  TMemoryHost host;
  TDeploymentPackage package(host, table);
  package.Start();
  package.Stop();
  EXPECT_EQ(UnitLog(), (std::vector<std::string>{"+a", "+b", "+c", "-c", "-b", "-a"}));
}

TEST(DeploymentPackage, LeavesNothingBehindWhenLoadedAndUnloadedTwice) {
  TMemoryHost host;
  for (int run = 0; run < 2; ++run) {
    const auto package = std::make_unique<TDeploymentPackage>(host);
    package->Start();
    host.Events.Created.Raise();
    EXPECT_EQ(RegisteredCount(host), 2U);
    package->Stop();
    EXPECT_EQ(RegisteredCount(host), 0U);
  }
}

TEST(DeploymentPackage, StartsAgainAfterAStop) {
  TMemoryHost host;
  TDeploymentPackage package(host);
  for (int run = 0; run < 2; ++run) {
    package.Start();
    host.Events.Created.Raise();
    EXPECT_EQ(RegisteredCount(host), 2U);
    package.Stop();
    EXPECT_EQ(RegisteredCount(host), 0U);
  }
}

TEST(DeploymentPackage, StopsWhenItIsDestroyed) {
  TMemoryHost host;
  {
    TDeploymentPackage package(host);
    package.Start();
    host.Events.Created.Raise();
  }
  EXPECT_EQ(RegisteredCount(host), 0U);
}

TEST(DeploymentPackage, FinalizesTheUnitsBeforeOneThatCannotStart) {
  const std::array<TUnit, 2> table{
      StartUpTable()[2],
      TUnit{"Failing", [](TPackageUnits&) { throw std::runtime_error("the unit cannot start"); },
            [](TPackageUnits&) { ADD_FAILURE() << "a unit that never started was finalized"; }}};
  TMemoryHost host;
  TDeploymentPackage package(host, table);
  try {
    package.Start();
    FAIL() << "the error was lost";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "the unit cannot start");
  }
  EXPECT_EQ(RegisteredCount(host), 0U);
  package.Stop();
}

/// The host's extensions are part of what is registered here.
struct TRegistration {
  std::size_t Count() const { return RegisteredCount(Host) + Host.Registry.Registered.size(); }
  TMemoryViewHost Host;
};

TEST(IDERegister, RegistersTheServiceWhenTheMainFormIsThere) {
  TRegistration world;
  TDeploymentPackage package(world.Host);
  package.Start();
  package.IDERegister();
  package.IDERegister();
  EXPECT_EQ(world.Host.Events.Created.Handlers.size(), 2U);
  EXPECT_TRUE(world.Host.Registry.Registered.empty());
  world.Host.Events.Created.Raise();
  EXPECT_TRUE(world.Host.Events.Created.Handlers.empty());
  ASSERT_EQ(world.Host.Registry.Registered.size(), 1U);
  const auto project = TMemoryViewHost::MakeProject(R"(C:\work\MyApp.vproj)");
  world.Host.Registry.Registered.begin()->second->DeployManagerProject(project);
  EXPECT_EQ(world.Host.Views.Captions(), std::vector<std::string>{"Deployment MyApp"});
  world.Host.Views.Close(0);
  package.Stop();
  EXPECT_EQ(world.Count(), 0U);
}

TEST(IDERegister, LeavesNothingBehindBeforeTheMainForm) {
  TRegistration world;
  TDeploymentPackage package(world.Host);
  package.Start();
  package.IDERegister();
  package.Stop();
  EXPECT_EQ(world.Count(), 0U);
}

TEST(IDERegister, WorksAgainAfterAStop) {
  TRegistration world;
  TDeploymentPackage package(world.Host);
  for (int run = 0; run < 2; ++run) {
    package.Start();
    package.IDERegister();
    world.Host.Events.Created.Raise();
    EXPECT_EQ(world.Host.Registry.Registered.size(), 1U);
    package.Stop();
    EXPECT_EQ(world.Count(), 0U);
  }
}

TEST(IDERegister, NeedsNoExtensionsOfTheHost) {
  TMemoryHost host;
  TDeploymentPackage package(host);
  package.Start();
  package.IDERegister();
  host.Events.Created.Raise();
  package.Stop();
  EXPECT_EQ(RegisteredCount(host), 0U);
}

TEST(IDERegister, LetsAViewOutliveTheService) {
  TRegistration world;
  TDeploymentPackage package(world.Host);
  package.Start();
  package.IDERegister();
  world.Host.Events.Created.Raise();
  const auto project = TMemoryViewHost::MakeProject(R"(C:\work\MyApp.vproj)");
  world.Host.Registry.Registered.begin()->second->DeployManagerProject(project);
  package.Stop();
  EXPECT_EQ(world.Host.Views.Views.size(), 1U);
  world.Host.Views.Close(0);
}

TEST(BaseRegKey, IsEmptyBeforeRegistrationAndAfterTheEnd) {
  TMemoryHost host;
  TPackageUnits units(host);
  EXPECT_EQ(units.DeployStrs.BaseRegKey(), "");
  IDERegister(units);
  EXPECT_EQ(units.DeployStrs.BaseRegKey(), "Software\\Test");
  for (const TUnit& unit : StartUpTable())
    unit.Finalize(units);
  EXPECT_EQ(units.DeployStrs.BaseRegKey(), "");
}

TEST(DataModule, ExistsFromTheMainFormToTheEnd) {
  TMemoryHost host;
  TPackageUnits units(host);
  IDERegister(units);
  EXPECT_EQ(units.DeployDataModule.DMDeploy, nullptr);
  host.Events.Created.Raise();
  ASSERT_NE(units.DeployDataModule.DMDeploy, nullptr);
  const TDMDeploy& module = *units.DeployDataModule.DMDeploy;
  const TFileOpenOptions& options = module.FileOpenDialog1.Options;
  EXPECT_TRUE(options.AllowMultiSelect && options.PathMustExist && options.FileMustExist &&
              options.Sizable);
  const TFileOpenOptions& old = module.FileOpenDialog1_old.Options;
  EXPECT_TRUE(old.AllowMultiSelect && old.PathMustExist && old.FileMustExist);
  ASSERT_FALSE(TDMDeploy::TreeImages().empty());
  EXPECT_TRUE(TDMDeploy::TreeImages()[0].starts_with("<svg "));
  for (const TUnit& unit : StartUpTable())
    unit.Finalize(units);
  EXPECT_EQ(units.DeployDataModule.DMDeploy, nullptr);
}

TEST(StartUpTable, NamesTheUnitsInTheirOrder) {
  std::vector<std::string_view> names;
  for (const TUnit& unit : StartUpTable())
    names.push_back(unit.Name);
  EXPECT_EQ(names, (std::vector<std::string_view>{
                       "DeployFeatureForm", "DeployModules", "DeploymentImpl", "SelectPlatformForm",
                       "RevertToDefaultDialog", "DeploymentMgrFrame", "DeploymentWindow",
                       "DeployStrs", "DeployDataModule", "DeployService", "DeployReg"}));
}

} // namespace
} // namespace deployment
