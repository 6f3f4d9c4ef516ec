// The services behind a reconcile: personalities and development kits.
#include "tests/support/memory_project.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/services/personality_services.h"
#include "workbench/services/sdk_services.h"
#include "workbench/settings/settings_store.h"

namespace workbench {
namespace {

class TargetServices : public testing::TSaveTest {
protected:
  void SetUp() override {
    TSaveTest::SetUp();
    FSettings = std::make_unique<TSettings>(FRoot / "settings.json");
  }

  std::unique_ptr<TSettings> FSettings;
  TPlatformTable FPlatforms = TPlatformTable::BuiltIn();
};

TEST_F(TargetServices, AreThereForBothPersonalitiesAndNoOther) {
  TPersonalityServices services(FPlatforms, *FSettings);
  for (const char* personality : {"Ardent.Personality", "Corvane.Personality"}) {
    EXPECT_NE(services.GetPackageService(personality), nullptr);
    EXPECT_NE(services.GetSymbolService(personality), nullptr);
    EXPECT_NE(services.GetEnvironmentService(personality), nullptr);
  }
  for (const char* personality : {"", "ardent.personality", "Other"}) {
    EXPECT_EQ(services.GetPackageService(personality), nullptr);
    EXPECT_EQ(services.GetSymbolService(personality), nullptr);
    EXPECT_EQ(services.GetEnvironmentService(personality), nullptr);
  }
}

TEST_F(TargetServices, TakeSymbolExtensionsFromThePlatformTable) {
  TPersonalityServices services(FPlatforms, *FSettings);
  const auto* ardent = services.GetSymbolService("Ardent.Personality");
  const auto* corvane = services.GetSymbolService("Corvane.Personality");
  const deployment::TMemoryProject project;
  EXPECT_EQ(ardent->GetDebugSymbolExtension(project, "Win32"), ".qds");
  EXPECT_EQ(corvane->GetDebugSymbolExtension(project, "OSX32"), ".vcp");
  EXPECT_EQ(ardent->GetDebugSymbolExtension(project, "Android"), "");
  EXPECT_EQ(ardent->GetDebugSymbolExtension(project, "Atari"), "");
}

TEST_F(TargetServices, TakePathsFromTheSettingsOfTheUser) {
  TPersonalityServices services(FPlatforms, *FSettings);
  FSettings->Set("library-path.Win32", "C:\\lib");
  FSettings->Set("toolchain-path.Win64", "C:\\tools");
  const auto* paths = services.GetEnvironmentService("Corvane.Personality");
  EXPECT_EQ(paths->GetPathSetting(1, "Win32"), "C:\\lib");
  EXPECT_EQ(paths->GetPathSetting(1, "Win64"), "");
  EXPECT_EQ(paths->GetPathSetting(104, "Win64"), "C:\\tools");
  EXPECT_EQ(paths->GetPathSetting(7, "Win32"), "");
}

TEST_F(TargetServices, FindTheKitsThatTheSettingsDescribe) {
  TSDKServices services(*FSettings);
  EXPECT_EQ(services.FindSDK("ndk-r21"), nullptr);
  FSettings->Set("sdk.ndk-r21.platform", "Android");
  FSettings->Set("sdk.ndk-r21.ndk-base-path", "$(ZELK)\\ndk");
  FSettings->Set("sdk.ndk-r21.debugger-server", "$(NDKBasePath)\\gdbserver");
  const auto* kit = services.FindSDK("ndk-r21");
  ASSERT_NE(kit, nullptr);
  EXPECT_EQ(kit->GetName(), "ndk-r21");
  const auto* android = services.AsAndroidSDK(*kit);
  ASSERT_NE(android, nullptr);
  EXPECT_EQ(android->GetNDKBasePath(), "$(ZELK)\\ndk");
  EXPECT_EQ(android->GetDebuggerServerPath(), "$(NDKBasePath)\\gdbserver");
  EXPECT_EQ(services.FindSDK(""), nullptr);
}

TEST_F(TargetServices, KnowTheDefaultKitOfAPlatform) {
  TSDKServices services(*FSettings);
  EXPECT_EQ(services.GetDefaultSDK("Android"), nullptr);
  FSettings->Set("sdk-default.Android", "gone");
  EXPECT_EQ(services.GetDefaultSDK("Android"), nullptr);
  FSettings->Set("sdk.gone.platform", "Android");
  ASSERT_NE(services.GetDefaultSDK("Android"), nullptr);
  EXPECT_EQ(services.GetDefaultSDK("Android")->GetName(), "gone");
}

TEST_F(TargetServices, TellAKitOfAnotherPlatformFromOneOfAndroid) {
  TSDKServices services(*FSettings);
  FSettings->Set("sdk.phone.platform", "iOSDevice64");
  const auto* kit = services.FindSDK("phone");
  ASSERT_NE(kit, nullptr);
  EXPECT_EQ(services.AsAndroidSDK(*kit), nullptr);
}

} // namespace
} // namespace workbench
