#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

TEST(ReconcileTarget, PutsFilesOfAnUnknownPlatformBesideTheProgram) {
  TReconcileWorld world;
  const auto target = world.Target("Win32");
  EXPECT_EQ(target.GetDefaultPlatformRemoteDir("Atari"), ".\\");
  EXPECT_EQ(target.GetDefaultPlatformRemoteDir("Android"), "assets\\internal\\");
  world.Host.PlatformManager.Platforms.front().DefaultRemoteDir = "";
  EXPECT_EQ(target.GetDefaultPlatformRemoteDir("Win32"), "");
}

TEST(ReconcileTarget, NamesTheOutputAsThePlatformDoes) {
  TReconcileWorld world;
  EXPECT_EQ(world.Target("Win32").GetValidRemoteName(), "App.exe");
  EXPECT_EQ(world.Target("Android").GetValidRemoteName(), "libApp.so");
  EXPECT_EQ(world.Target("iOSDevice64").GetValidRemoteName(), "App");
  EXPECT_EQ(world.Target("Atari").GetValidRemoteName(), "App");
  world.Project.ApplicationType = "Library";
  EXPECT_EQ(world.Target("OSX32").GetValidRemoteName(), "libApp.dylib");
  world.Project.BaseName = "Other";
  EXPECT_EQ(world.Target("Win32").GetValidRemoteName(), "Other.dll");
}

TEST(ReconcileTarget, AsksTheOptionsOfACorvaneProjectForTheKindOfItsOutput) {
  TReconcileWorld world;
  world.Project.OutputKind = "Library";
  EXPECT_EQ(world.Target("Win32").GetValidRemoteName(), "App.exe");
  world.Project.Personality = "Corvane.Personality";
  EXPECT_EQ(world.Target("Win32").GetValidRemoteName(), "App.dll");
}

TEST(ReconcileTarget, KeepsTheDotsOfAnAppleProgram) {
  TReconcileWorld world;
  const auto changed = [&world](const char* platform, const char* file) {
    return world.Target(platform).ChangeFileExtension(file, ".dSYM");
  };
  EXPECT_EQ(changed("iOSDevice64", R"(out\Proj.v2)"), R"(out\Proj.v2.dSYM)");
  EXPECT_EQ(changed("OSX32", "Proj.v2"), "Proj.v2.dSYM");
  EXPECT_EQ(changed("iOSDevice64", R"(out.d\Proj)"), R"(out.d\Proj.dSYM)");
  EXPECT_EQ(changed("Win32", "Proj.v2"), "Proj.dSYM");
  EXPECT_EQ(changed("Android", "Proj.v2"), "Proj.dSYM");
  world.Project.ApplicationType = "Package";
  EXPECT_EQ(changed("iOSDevice64", "Proj.v2"), "Proj.dSYM");
  world.Project.ApplicationType = "Library";
  EXPECT_EQ(changed("OSX32", "Proj.v2"), "Proj.dSYM");
}

TEST(ReconcileTarget, KnowsThePlatformsExactly) {
  TReconcileWorld world;
  EXPECT_TRUE(world.Target("OSX32").isApplePlatform());
  EXPECT_TRUE(world.Target("iOSSimulator").isApplePlatform());
  EXPECT_TRUE(world.Target("iOSDevice32").isApplePlatform());
  EXPECT_TRUE(world.Target("iOSDevice64").isApplePlatform());
  EXPECT_FALSE(world.Target("iosdevice64").isApplePlatform());
  EXPECT_FALSE(world.Target("Android").isApplePlatform());
  const auto target = world.Target("Win32");
  EXPECT_TRUE(target.isMobilePlatform("Android"));
  EXPECT_FALSE(target.isMobilePlatform("OSX32"));
  EXPECT_FALSE(target.isMobilePlatform("Atari"));
}

TEST(ReconcileTarget, WantsDebugSymbolsWhereTheBuildOptionsSaySo) {
  TReconcileWorld world;
  world.Project.BuildOptions.RemoteDebugSymbols = {"Debug|Win32"};
  EXPECT_TRUE(world.Target("Win32").NeedsRemoteDebugSymbolsFile());
  EXPECT_FALSE(world.Target("Win64").NeedsRemoteDebugSymbolsFile());
  EXPECT_FALSE(world.Target("Win32", "Release").NeedsRemoteDebugSymbolsFile());
  world.Project.HasBuildOptions = false;
  EXPECT_FALSE(world.Target("Win32").NeedsRemoteDebugSymbolsFile());
}

TEST(ReconcileTarget, RefusesAnOptionThatIsNoBoolean) {
  TReconcileWorld world;
  world.SetOption("Win32", "Flag", "maybe");
  try {
    world.Target("Win32").BooleanOption("Flag");
    FAIL() << "accepted";
  } catch (const TInputError& error) {
    EXPECT_STREQ(error.what(),
                 R"(the option "Flag" is "maybe", which is no Boolean (true or false))");
    EXPECT_EQ(error.Place().File, R"(C:\work\App\App.vproj)");
  }
  EXPECT_FALSE(world.Target("Win64").BooleanOption("Flag"));
}

TEST(ReconcileTarget, LooksForFilesWithTheMacrosOfTheTargetExpanded) {
  TReconcileWorld world;
  world.AddFile(R"(C:\ide\lib\Win32\Debug.a)");
  EXPECT_TRUE(world.Target("Win32").Exists(R"($(ZELK)\lib\$(Platform)\$(Config).a)"));
  EXPECT_FALSE(world.Target("Win64").Exists(R"($(ZELK)\lib\$(Platform)\$(Config).a)"));
  world.AddFile(R"(C:\work\App\a.dat)");
  EXPECT_TRUE(world.Target("Win32").Exists("a.dat"));
}

TEST(ReconcileTarget, LooksForADotInTheNameOfAProgramAlone) {
  TReconcileWorld world;
  const auto target = world.Target("iOSDevice64");
  EXPECT_EQ(target.ChangeFileExtension(R"(out.v2\App)", ".dSYM"), R"(out.v2\App.dSYM)");
  EXPECT_EQ(target.ChangeFileExtension(R"(out.v2\App.v2)", ".dSYM"), R"(out.v2\App.v2.dSYM)");
  EXPECT_EQ(target.ChangeFileExtension(R"(out.v2\App)", ""), R"(out.v2\App)");
}

TEST(ReconcileTarget, TakesAConsoleProgramForAProgram) {
  TReconcileWorld world;
  world.Project.ApplicationType = "Console";
  EXPECT_EQ(world.Target("OSX32").ChangeFileExtension("App.v2", ".qds"), "App.v2.qds");
  world.Project.ApplicationType = "Library";
  EXPECT_EQ(world.Target("OSX32").ChangeFileExtension("App.v2", ".qds"), "App.qds");
}

} // namespace
} // namespace deployment
