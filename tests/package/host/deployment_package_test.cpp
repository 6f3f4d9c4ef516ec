#include "package/host/deployment_package.h"
#include "tests/support/memory_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>

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
      StartUpTable().back(),
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

TEST(StartUpTable, NamesTheUnitsInTheirOrder) {
  std::vector<std::string_view> names;
  for (const TUnit& unit : StartUpTable())
    names.push_back(unit.Name);
  EXPECT_EQ(names, std::vector<std::string_view>{"DeploymentImpl"});
}

} // namespace
} // namespace deployment
