// The real package in the real host: loaded, used, unloaded, and all of it once more.
#include "workbench/platforms/platform_table.h"
#include "workbench/services/ide_services.h"
#include "workbench/session/package_loader.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <filesystem>

namespace workbench {
namespace {

bool IsLoaded() {
  void* module = ::dlopen(PackageModuleFile().c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (module)
    ::dlclose(module);
  return module != nullptr;
}

TEST(PackageModule, RegistersWithTheHostAndLeavesNothingBehindTwice) {
  const TPlatformTable platforms = TPlatformTable::BuiltIn();
  TIDEServices services(std::filesystem::current_path(), platforms, std::filesystem::path());
  for (int round = 0; round < 2; ++round) {
    ASSERT_FALSE(IsLoaded());
    {
      TPackageLoader package(services);
      EXPECT_TRUE(IsLoaded());
      EXPECT_EQ(services.GetProjectFileStorage().NotifierCount(), 0U);
      package.Package().Start();
      EXPECT_EQ(services.GetProjectFileStorage().NotifierCount(), 0U);
      services.GetEvents().MainFormCreated().Raise();
      EXPECT_EQ(services.GetProjectFileStorage().NotifierCount(), 1U);
      EXPECT_EQ(services.GetProjectFileStorage().SectionName(), "Deployment");
      EXPECT_EQ(services.GetModuleHandlerGauntlet().Count(), 1U);
      package.Package().Stop();
      EXPECT_EQ(services.GetProjectFileStorage().NotifierCount(), 0U);
      EXPECT_EQ(services.GetModuleHandlerGauntlet().Count(), 0U);
    }
    EXPECT_FALSE(IsLoaded());
  }
}

} // namespace
} // namespace workbench
