#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

TEST(ProjectOutput, IsListedUnderItsNameOnTheTarget) {
  TReconcileWorld world;
  world.Reconcile("Debug", "Win32");
  world.Reconcile("Debug", "Android");
  EXPECT_EQ(world.Lines("Debug", "Win32"),
            TTexts{R"(ProjectOutput | Win32\Debug\App.exe |  | App.exe)"});
  EXPECT_EQ(world.LinesOf("ProjectOutput", "Debug", "Android"),
            TTexts{R"(ProjectOutput | Android\Debug\libApp.so |  | libApp.so)"});
}

TEST(ProjectOutput, GetsItsRemoteNameAnewEachTime) {
  TReconcileWorld world;
  world.Reconcile("Debug", "Win32");
  world.Entry("ProjectOutput", "Debug", "Win32")->SetRemoteName("Win32", "mine.exe");
  world.Project.BaseName = "Renamed";
  world.Reconcile("Debug", "Win32");
  EXPECT_EQ(world.Lines("Debug", "Win32"),
            TTexts{R"(ProjectOutput | Win32\Debug\App.exe |  | Renamed.exe)"});
}

TEST(ProjectOutput, TakesItsDebugSymbolsAlong) {
  TReconcileWorld world;
  world.Project.BuildOptions.RemoteDebugSymbols = {"Debug|Win32"};
  world.Reconcile("Debug", "Win32");
  world.Entry("ProjectOutput", "Debug", "Win32")->SetRemoteDir("Win32", "bin\\");
  world.Reconcile("Debug", "Win32");
  EXPECT_EQ(world.Lines("Debug", "Win32"),
            (TTexts{R"(ProjectOutput | Win32\Debug\App.exe | bin\ | App.exe)",
                    R"(DebugSymbols | Win32\Debug\App.qds | bin\ | App.qds)"}));
}

TEST(ProjectOutput, KeepsADottedNameInItsDebugSymbolsOnOSX) {
  TReconcileWorld world;
  world.Project.BaseName = "App.v2";
  world.Project.OutputFiles["Debug|OSX32"] = R"(C:\work\App\App.v2)";
  world.Project.BuildOptions.RemoteDebugSymbols = {"Debug|OSX32"};
  world.Reconcile("Debug", "OSX32");
  EXPECT_EQ(world.LinesOf("DebugSymbols", "Debug", "OSX32"),
            TTexts{"DebugSymbols | App.v2.qds |  | App.v2.qds"});
}

TEST(ProjectOutput, HasNoSymbolsOnPlatformsWithoutAnExtensionForThem) {
  TReconcileWorld world;
  world.Project.BuildOptions.RemoteDebugSymbols = {"Debug|Android", "Debug|Win32"};
  world.Reconcile("Debug", "Android");
  EXPECT_EQ(world.LinesOf("DebugSymbols", "Debug", "Android"), TTexts{});
  world.Personalities.Without = {"symbols"};
  world.Reconcile("Debug", "Win32");
  EXPECT_EQ(world.LinesOf("DebugSymbols", "Debug", "Win32"), TTexts{});
}

TEST(ProjectOutput, LosesTheSymbolsOfEveryTargetWhenOneWantsNone) {
  TReconcileWorld world;
  world.Project.BuildOptions.RemoteDebugSymbols = {"Debug|Win32", "Release|Win64"};
  world.Reconcile("Debug", "Win32");
  world.Reconcile("Release", "Win64");
  EXPECT_EQ(world.LinesOf("DebugSymbols", "Debug", "Win32").size(), 1U);
  EXPECT_EQ(world.LinesOf("DebugSymbols", "Release", "Win64").size(), 1U);
  world.Project.BuildOptions.RemoteDebugSymbols.erase("Debug|Win32");
  world.Reconcile("Debug", "Win32");
  EXPECT_EQ(world.LinesOf("DebugSymbols", "Debug", "Win32"), TTexts{});
  EXPECT_EQ(world.LinesOf("DebugSymbols", "Release", "Win64"), TTexts{});
  world.Reconcile("Release", "Win64");
  EXPECT_EQ(world.LinesOf("DebugSymbols", "Release", "Win64").size(), 1U);
}

TEST(ProjectOutput, StaysAFullPathWhereThereIsNoWayFromTheProject) {
  TReconcileWorld world;
  world.Project.OutputFiles["Debug|Win32"] = R"(D:\out\App.exe)";
  world.Reconcile("Debug", "Win32");
  EXPECT_EQ(world.Lines("Debug", "Win32"),
            TTexts{R"(ProjectOutput | D:\out\App.exe |  | App.exe)"});
}

} // namespace
} // namespace deployment
