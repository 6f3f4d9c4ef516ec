#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

class AndroidDefaults : public testing::Test {
protected:
  AndroidDefaults() {
    Kit("ndk").DebuggerServer = R"($(NDKBasePath)\prebuilt\gdbserver)";
    Kit("ndk").NDKBasePath = R"($(ZELK)\ndk)";
  }
  TMemorySDKs::TKit& Kit(const std::string& name) {
    TMemorySDKs::TKit& kit = World.SDKs.Kits[name];
    kit.Name = name;
    return kit;
  }
  void SetBuildType(std::string_view type) { World.SetOption("Android", "BT_BuildType", type); }
  TTexts Entries(std::string_view className) {
    World.Reconcile("Debug", "Android");
    return World.LinesOf(className, "Debug", "Android");
  }

  TReconcileWorld World;
};

TEST_F(AndroidDefaults, OfAReleaseBuild) {
  World.Reconcile("Debug", "Android");
  EXPECT_EQ(
      World.Lines("Debug", "Android"),
      (TTexts{
          R"(ProjectOutput | Android\Debug\libApp.so |  | libApp.so)",
          R"(ProjectAndroidManifest | Android\Debug\AndroidManifest.xml |  | )",
          R"(AndroidClassesDexFile | Android\Debug\classes.dex |  | classes.dex)",
          R"(AndroidLibnativeX86File | $(ZELK)\lib\android\release\x86\libnative-activity.so |  | libApp.so)",
          R"(AndroidLibnativeArmeabiFile | $(ZELK)\lib\android\release\armeabi\libnative-activity.so |  | libApp.so)",
          R"(AndroidLibnativeMipsFile | $(ZELK)\lib\android\release\mips\libnative-activity.so |  | libApp.so)"}));
}

TEST_F(AndroidDefaults, OfADebugBuildTakeTheDebuggerServerOfTheKit) {
  SetBuildType("DEBUG");
  World.Project.Platforms.SDKs["Android"] = "ndk";
  EXPECT_EQ(Entries("AndroidGDBServer"),
            TTexts{R"(AndroidGDBServer | $(ZELK)\ndk\prebuilt\gdbserver |  | )"});
  EXPECT_EQ(
      Entries("AndroidLibnativeX86File"),
      TTexts{
          R"(AndroidLibnativeX86File | $(ZELK)\lib\android\debug\x86\libnative-activity.so |  | libApp.so)"});
}

TEST_F(AndroidDefaults, TakeTheDefaultKitOfThePlatformWhenTheProjectNamesNone) {
  SetBuildType("Debug");
  EXPECT_EQ(Entries("AndroidGDBServer"), TTexts{});
  World.SDKs.Defaults["Android"] = "ndk";
  EXPECT_EQ(Entries("AndroidGDBServer").size(), 1U);
}

TEST_F(AndroidDefaults, DropTheDebuggerServerWithoutAKitOfThePlatform) {
  SetBuildType("Debug");
  World.Project.Platforms.SDKs["Android"] = "ndk";
  EXPECT_EQ(Entries("AndroidGDBServer").size(), 1U);
  World.Project.Platforms.SDKs["Android"] = "gone";
  World.SDKs.Defaults["Android"] = "ndk";
  EXPECT_EQ(Entries("AndroidGDBServer"), TTexts{});
  Kit("mac").Platform = "OSX32";
  World.Project.Platforms.SDKs["Android"] = "mac";
  EXPECT_EQ(Entries("AndroidGDBServer"), TTexts{});
}

TEST_F(AndroidDefaults, ReplaceTheFirstBasePathMacroInAnyCase) {
  SetBuildType("Debug");
  World.Project.Platforms.SDKs["Android"] = "ndk";
  Kit("ndk").DebuggerServer = R"(x\$(ndkbasepath)\$(NDKBasePath)\s)";
  Kit("ndk").NDKBasePath = "B";
  EXPECT_EQ(Entries("AndroidGDBServer"),
            TTexts{R"(AndroidGDBServer | x\B\$(NDKBasePath)\s |  | )"});
}

TEST_F(AndroidDefaults, TurnFromDebugToReleaseInPlace) {
  SetBuildType("Debug");
  World.SDKs.Defaults["Android"] = "ndk";
  World.Reconcile("Debug", "Android");
  const auto library = World.Entry("AndroidLibnativeMipsFile", "Debug", "Android");
  library->SetRemoteName("Android", "mine.so");
  SetBuildType("Release");
  EXPECT_EQ(
      Entries("AndroidLibnativeMipsFile"),
      TTexts{
          R"(AndroidLibnativeMipsFile | $(ZELK)\lib\android\release\mips\libnative-activity.so |  | mine.so)"});
  EXPECT_EQ(Entries("AndroidGDBServer"), TTexts{});
}

TEST_F(AndroidDefaults, TakeTheSplashFilesWithTheOption) {
  World.SetOption("Android", "IncludeAndroid_Splash", "True");
  EXPECT_EQ(Entries("AndroidSplash"),
            (TTexts{R"(AndroidSplashImageDef | Android\Debug\splash_image_def.xml |  | )",
                    R"(AndroidSplashStyles | Android\Debug\styles.xml |  | )"}));
  World.Entry("AndroidSplashStyles", "Debug", "Android")->SetEnabled("Android", false);
  World.SetOption("Android", "IncludeAndroid_Splash", "false");
  EXPECT_EQ(Entries("AndroidSplash"), TTexts{});
  World.SetOption("Android", "IncludeAndroid_Splash", "true");
  EXPECT_EQ(Entries("AndroidSplashStyles"),
            TTexts{R"(AndroidSplashStyles | Android\Debug\styles.xml |  | )"});
}

TEST_F(AndroidDefaults, NeedTheToolsForTheClassesAndTheLibraries) {
  World.Host.AndroidToolServices = nullptr;
  World.Reconcile("Debug", "Android");
  EXPECT_EQ(World.Lines("Debug", "Android"),
            (TTexts{R"(ProjectOutput | Android\Debug\libApp.so |  | libApp.so)",
                    R"(ProjectAndroidManifest | Android\Debug\AndroidManifest.xml |  | )"}));
}

TEST_F(AndroidDefaults, NeedOptionsForAllButTheManifest) {
  World.Project.HasOptions = false;
  World.Reconcile("Debug", "Android");
  EXPECT_EQ(World.Lines("Debug", "Android").size(), 2U);
}

TEST_F(AndroidDefaults, WantAHostThatKnowsPlatformOptions) {
  World.Project.HasPlatformOptions = false;
  World.Reconcile("Debug", "Android");
  EXPECT_EQ(World.Lines("Debug", "Android").size(), 1U);
}

TEST_F(AndroidDefaults, DoWithoutKitsInAHostThatHasNone) {
  SetBuildType("Debug");
  World.Host.SDKServices = nullptr;
  EXPECT_EQ(Entries("AndroidGDBServer"), TTexts{});
}

} // namespace
} // namespace deployment
