#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/session/package_loader.h"
#include "workbench/settings/settings_store.h"

#include <dlfcn.h>
#include <stdexcept>
#include <unistd.h>

namespace workbench {
namespace {

using namespace deployment;

// A host of which only the settings are asked.
class THost : public VelmorIDEServices {
public:
  explicit THost(ISettingsStore& settings) : FSettings(settings) {}

  IIDEEvents& GetEvents() override { Unasked(); }
  IModuleHandlerGauntlet& GetModuleHandlerGauntlet() override { Unasked(); }
  IOTAProjectFileStorage& GetProjectFileStorage() override { Unasked(); }
  IXMLDocuments& GetXMLDocuments() override { Unasked(); }
  IProjectFileUtils& GetProjectFileUtils() override { Unasked(); }
  IPlatformManager& GetPlatformManager() override { Unasked(); }
  IMacroUtils& GetMacroUtils() override { Unasked(); }
  IFileUtils& GetFileUtils() override { Unasked(); }
  IAppStrings& GetAppStrings() override { Unasked(); }
  ISettingsStore& GetSettings() override { return FSettings; }
  IOTAMessageServices& GetMessageServices() override { Unasked(); }
  std::unique_ptr<ICoExpertFilter> CreateTextFilter() override { return nullptr; }
  IOTAPersonalityServices* GetPersonalityServices() override { return nullptr; }
  IPlatformSDKServices* GetSDKServices() override { return nullptr; }
  IAndroidToolServices* GetAndroidToolServices() override { return nullptr; }
  IModalForms* GetModalForms() override { return nullptr; }
  IOTARemoteProfileServices* GetRemoteProfileServices() override { return nullptr; }
  IProjectEvents* GetProjectEvents() override { return nullptr; }
  IOTAEditorViewServices* GetEditorViewServices() override { return nullptr; }
  IOTAExtensions* GetExtensions() override { return nullptr; }

private:
  [[noreturn]] static void Unasked() { throw std::logic_error("not asked by these tests"); }

  ISettingsStore& FSettings;
};

class PackageLoader : public testing::TSaveTest {
protected:
  std::string LoadError(const std::filesystem::path& module) {
    try {
      const TPackageLoader loader(*FHost, module);
    } catch (const TInputError& error) {
      EXPECT_EQ(error.Place().File, module.string());
      return error.what();
    }
    return {};
  }
  void SetUp() override {
    TSaveTest::SetUp();
    FSettings = std::make_unique<TSettings>(FRoot / "config" / "settings.json");
    FHost = std::make_unique<THost>(*FSettings);
  }

  std::unique_ptr<TSettings> FSettings;
  std::unique_ptr<THost> FHost;
};

TEST_F(PackageLoader, DestroysThePackageBeforeItUnloadsTheModule) {
  const std::filesystem::path module = Neighbour("test-package.so");
  ASSERT_TRUE(std::filesystem::exists(module)) << module << " is not built";
  {
    const TPackageLoader loader(*FHost, module);
    loader.Package().Start();
    loader.Package().Stop();
  }
  EXPECT_EQ(FSettings->ReadHistory("package"),
            (std::vector<std::string>{"destroyed", "stopped", "started"}));
  EXPECT_EQ(dlopen(module.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST_F(PackageLoader, NamesBothVersionsWhenThePackageIsOfAnotherOne) {
  EXPECT_EQ(LoadError(Neighbour("refusing-package.so")),
            "the package of version 9.8.7 (interface 4000000000) does not go with version " +
                std::string(DEPLOYMENT_VERSION) + " (interface " +
                std::to_string(PackageInterfaceVersion) + ") of this program");
}

TEST_F(PackageLoader, SaysThatAPackageWithoutAVersionIsOlder) {
  EXPECT_EQ(LoadError(Neighbour("older-package.so")),
            "the package is of an older version, which does not tell its number; it does not go "
            "with version " +
                std::string(DEPLOYMENT_VERSION) + " (interface " +
                std::to_string(PackageInterfaceVersion) + ") of this program");
}

TEST_F(PackageLoader, GivesTheLoadersReason) {
  const std::filesystem::path module = FDirectory / "absent.so";
  EXPECT_EQ(LoadError(module), "there is no such file: the installation is not complete");
  Write(module, "no program at all, but long enough to have a header of one");
  EXPECT_TRUE(LoadError(module).starts_with("the package cannot be loaded: " + module.string()));
}

TEST_F(PackageLoader, RefusesALibraryThatIsNoPackage) {
  Dl_info library = {};
  ASSERT_NE(dladdr(reinterpret_cast<void*>(&getpid), &library), 0);
  EXPECT_TRUE(LoadError(library.dli_fname).starts_with("the module is no deployment package: "));
}

TEST_F(PackageLoader, LooksBesideTheRunningProgram) {
  EXPECT_EQ(PackageModuleFile(), Neighbour("deployment-package.so"));
}

} // namespace
} // namespace workbench
