// The defaults of iOS and OS X.
#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

TEST(IOSDefaults, OfTheSimulatorAreThePropertiesAndTheEntitlements) {
  TReconcileWorld world;
  world.Reconcile("Debug", "iOSSimulator");
  EXPECT_EQ(world.Lines("Debug", "iOSSimulator"),
            (TTexts{R"(ProjectOutput | iOSSimulator\Debug\App |  | App)",
                    R"(ProjectiOSInfoPList | iOSSimulator\Debug\App.info.plist |  | Info.plist)",
                    R"(ProjectiOSEntitlements | iOSSimulator\Debug\App.entitlements |  | )"}));
}

TEST(IOSDefaults, OfADeviceTakeResourceRulesAndSymbolsAlong) {
  TReconcileWorld world;
  world.Reconcile("Debug", "iOSDevice32");
  EXPECT_EQ(
      world.Lines("Debug", "iOSDevice32"),
      (TTexts{
          R"(ProjectOutput | iOSDevice32\Debug\App |  | App)",
          R"(ProjectiOSInfoPList | iOSDevice32\Debug\App.info.plist |  | Info.plist)",
          R"(ProjectiOSDeviceResourceRules | iOSDevice32\Debug\ResourceRules.plist |  | ResourceRules.plist)",
          R"(ProjectiOSDeviceDebug | iOSDevice32\Debug\App.dSYM |  | App)",
          R"(ProjectiOSEntitlements | iOSDevice32\Debug\App.entitlements |  | )"}));
}

TEST(IOSDefaults, TakeTheNarrowProgramAlongInAUniversalBuild) {
  TReconcileWorld world;
  world.SetOption("iOSDevice64", "PXC_GenerateUniversalBinaryFile", "true");
  world.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(world.LinesOf("ProjectOutput_iOS32", "Debug", "iOSDevice64"),
            TTexts{R"(ProjectOutput_iOS32 | iOSDevice32\Debug\App |  | App.armv7)"});
  EXPECT_EQ(world.Lines("Debug", "iOSDevice32"), TTexts{});
  world.SetOption("iOSDevice64", "PXC_GenerateUniversalBinaryFile", "false");
  world.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(world.LinesOf("ProjectOutput_iOS32", "Debug", "iOSDevice64"), TTexts{});
}

TEST(IOSDefaults, AskEachPersonalityForAUniversalBuildInItsOwnWay) {
  TReconcileWorld world;
  world.SetOption("iOSDevice64", "CXC_GenerateUniversalBinaryFile", "true");
  world.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(world.LinesOf("ProjectOutput_iOS32", "Debug", "iOSDevice64"), TTexts{});
  world.Project.Personality = "Corvane.Personality";
  world.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(world.LinesOf("ProjectOutput_iOS32", "Debug", "iOSDevice64").size(), 1U);
  world.Project.Personality = "Other.Personality";
  world.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(world.LinesOf("ProjectOutput_iOS32", "Debug", "iOSDevice64"), TTexts{});
}

TEST(IOSDefaults, KeepTheDotsOfTheProgram) {
  TReconcileWorld world;
  world.Project.BaseName = "App.v2";
  world.Project.OutputFiles["Debug|iOSDevice64"] = R"(C:\work\App\out\App.v2)";
  world.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(
      world.LinesOf("ProjectiOS", "Debug", "iOSDevice64"),
      (TTexts{R"(ProjectiOSInfoPList | out\App.v2.info.plist |  | Info.plist)",
              R"(ProjectiOSDeviceResourceRules | out\ResourceRules.plist |  | ResourceRules.plist)",
              R"(ProjectiOSDeviceDebug | out\App.v2.dSYM |  | App)",
              R"(ProjectiOSEntitlements | out\App.v2.entitlements |  | )"}));
}

TEST(IOSDefaults, FollowARenamedProjectInTheSymbolsButNotInTheProperties) {
  TReconcileWorld world;
  world.Reconcile("Debug", "iOSDevice32");
  world.Entry("ProjectiOSInfoPList", "Debug", "iOSDevice32")
      ->SetRemoteName("iOSDevice32", "My.plist");
  world.Project.BaseName = "Renamed";
  world.Reconcile("Debug", "iOSDevice32");
  EXPECT_EQ(world.LinesOf("ProjectiOSDeviceDebug", "Debug", "iOSDevice32"),
            TTexts{R"(ProjectiOSDeviceDebug | iOSDevice32\Debug\App.dSYM |  | Renamed)"});
  EXPECT_EQ(world.LinesOf("ProjectiOSInfoPList", "Debug", "iOSDevice32"),
            TTexts{R"(ProjectiOSInfoPList | iOSDevice32\Debug\App.info.plist |  | My.plist)"});
}

TEST(IOSDefaults, NeedPlatformOptions) {
  TReconcileWorld world;
  world.Project.HasPlatformOptions = false;
  world.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(world.Lines("Debug", "iOSDevice64").size(), 1U);
}

TEST(OSXDefaults, OfABundle) {
  TReconcileWorld world;
  world.SetOption("OSX32", "Icns_MainIcns", R"(art\Sky.icns)");
  world.Reconcile("Debug", "OSX32");
  EXPECT_EQ(world.Lines("Debug", "OSX32"),
            (TTexts{R"(ProjectOutput | OSX32\Debug\App |  | App)",
                    R"(ProjectOSXInfoPList | OSX32\Debug\App.info.plist |  | Info.plist)",
                    R"(ProjectOSXResource | art\Sky.icns |  | App.icns)",
                    R"(ProjectOSXEntitlements | OSX32\Debug\App.entitlements |  | )"}));
}

TEST(OSXDefaults, AreForBundlesOnly) {
  TReconcileWorld world;
  for (const int kind : {0, 2, -1}) {
    world.Project.PlatformOptions.OSXKind = kind;
    world.Reconcile("Debug", "OSX32");
    EXPECT_EQ(world.Lines("Debug", "OSX32").size(), 1U) << kind;
  }
  world.Project.PlatformOptions.OSXKind = 1;
  world.Project.HasPlatformOptions = false;
  world.Reconcile("Debug", "OSX32");
  EXPECT_EQ(world.Lines("Debug", "OSX32").size(), 1U);
}

TEST(OSXDefaults, LeaveTheIconThatIsThereWhenTheOptionIsEmptied) {
  TReconcileWorld world;
  world.SetOption("OSX32", "Icns_MainIcns", "a.icns");
  world.Reconcile("Debug", "OSX32");
  world.SetOption("OSX32", "Icns_MainIcns", "");
  world.Project.OutputFiles["Debug|OSX32"] = R"(C:\work\App\Sky)";
  world.Reconcile("Debug", "OSX32");
  EXPECT_EQ(world.LinesOf("ProjectOSXResource", "Debug", "OSX32"),
            TTexts{"ProjectOSXResource | a.icns |  | App.icns"});
}

TEST(OSXDefaults, NameTheIconAfterTheOutput) {
  TReconcileWorld world;
  world.SetOption("OSX32", "Icns_MainIcns", "a.icns");
  world.Project.OutputFiles["Debug|OSX32"] = R"(C:\work\App\Sky.v2)";
  world.Reconcile("Debug", "OSX32");
  EXPECT_EQ(world.LinesOf("ProjectOSX", "Debug", "OSX32"),
            (TTexts{"ProjectOSXInfoPList | Sky.v2.info.plist |  | Info.plist",
                    "ProjectOSXResource | a.icns |  | Sky.icns",
                    "ProjectOSXEntitlements | Sky.v2.entitlements |  | "}));
}

TEST(IOSDefaults, NameTheNarrowProgramAnewEveryTime) {
  TReconcileWorld world;
  world.SetOption("iOSDevice64", "PXC_GenerateUniversalBinaryFile", "true");
  world.Reconcile("Debug", "iOSDevice64");
  world.Project.BaseName = "Renamed";
  world.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(world.LinesOf("ProjectOutput_iOS32", "Debug", "iOSDevice64"),
            TTexts{R"(ProjectOutput_iOS32 | iOSDevice32\Debug\App |  | Renamed.armv7)"});
}

TEST(IOSDefaults, LeaveTheResourceRulesTheNameThatTheUserGave) {
  TReconcileWorld world;
  world.Reconcile("Debug", "iOSDevice32");
  world.Entry("ProjectiOSDeviceResourceRules", "Debug", "iOSDevice32")
      ->SetRemoteName("iOSDevice32", "My.plist");
  EXPECT_EQ(world.ChangesOf("Debug", "iOSDevice32"), TTexts{});
}

class OneDirectoryForBothDevices : public testing::Test {
protected:
  OneDirectoryForBothDevices() {
    for (const char* platform : {"iOSDevice32", "iOSDevice64"})
      World.Project.OutputFiles[std::string("Debug|") + platform] = R"(C:\work\App\bin\a)";
  }
  TTexts Programs() { return World.LinesOf("ProjectOutput", "Debug", "iOSDevice64"); }

  TReconcileWorld World;
};

TEST_F(OneDirectoryForBothDevices, KeepsTheProgramWithoutAUniversalBuild) {
  World.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(Programs(), TTexts{R"(ProjectOutput | bin\a |  | App)"});
  EXPECT_TRUE(World.Host.Messages.Warnings.empty());
}

TEST_F(OneDirectoryForBothDevices, KeepsTheProgramInAUniversalBuildAndSaysWhatIsMissing) {
  World.SetOption("iOSDevice64", "PXC_GenerateUniversalBinaryFile", "true");
  World.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(Programs(), TTexts{R"(ProjectOutput | bin\a |  | App)"});
  ASSERT_EQ(World.Host.Messages.Warnings.size(), 1U);
  EXPECT_EQ(World.Host.Messages.Warnings[0].first,
            R"("bin\a" is the output for iOSDevice32 and for iOSDevice64; without a directory for )"
            R"(each platform no 32-bit program can go beside the 64-bit one (Debug))");
}

TEST_F(OneDirectoryForBothDevices, DropsTheNarrowProgramOfAnOlderDirectory) {
  World.Project.OutputFiles["Debug|iOSDevice32"] = R"(C:\work\App\old\a)";
  World.SetOption("iOSDevice64", "PXC_GenerateUniversalBinaryFile", "true");
  World.Reconcile("Debug", "iOSDevice64");
  ASSERT_EQ(Programs().size(), 2U);
  World.Project.OutputFiles["Debug|iOSDevice32"] = R"(C:\work\App\new\a)";
  World.SetOption("iOSDevice64", "PXC_GenerateUniversalBinaryFile", "false");
  World.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(Programs(), TTexts{R"(ProjectOutput | bin\a |  | App)"});
}

} // namespace
} // namespace deployment
