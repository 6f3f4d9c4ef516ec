// One file has one entry: what happens when two classes want it, or a name moves.
#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

class ReconcilePlan : public testing::Test {
protected:
  void SetIcon(std::string_view size, std::string_view file) {
    World.SetOption("Android", std::string("Android_LauncherIcon").append(size), file);
  }
  TTexts Icons() { return World.LinesOf("Android_", "Debug", "Android"); }
  TTexts Changes() { return World.ChangesOf("Debug", "Android"); }
  TTexts Warnings() {
    TTexts texts;
    for (const auto& [text, place] : World.Host.Messages.Warnings)
      texts.push_back(text);
    World.Host.Messages.Warnings.clear();
    return texts;
  }

  TReconcileWorld World;
};

TEST_F(ReconcilePlan, GiveAFileThatTwoOptionsNameToTheLaterOne) {
  SetIcon("36", "icon.png");
  SetIcon("48", "icon.png");
  Changes();
  EXPECT_EQ(Icons(), TTexts{"Android_LauncherIcon48 | icon.png |  | ic_launcher.png"});
  EXPECT_EQ(Warnings(),
            TTexts{"\"icon.png\" has two roles for Debug, Android: \"Android_LauncherIcon36\" and "
                   "\"Android_LauncherIcon48\"; one file has one entry, which is that of "
                   "\"Android_LauncherIcon48\""});
}

TEST_F(ReconcilePlan, LeaveAFileWithTwoRolesAloneTheSecondTimeButWarnAgain) {
  SetIcon("36", "icon.png");
  SetIcon("48", "icon.png");
  Changes();
  Warnings();
  EXPECT_EQ(Changes(), TTexts{});
  EXPECT_EQ(Warnings().size(), 1U);
}

TEST_F(ReconcilePlan, DropTheEarlierEntryWhenALaterOptionTakesItsFile) {
  SetIcon("36", "a.png");
  SetIcon("48", "b.png");
  Changes();
  SetIcon("48", "a.png");
  Changes();
  EXPECT_EQ(Icons(), TTexts{"Android_LauncherIcon48 | a.png |  | ic_launcher.png"});
  EXPECT_EQ(Changes(), TTexts{});
}

TEST_F(ReconcilePlan, SwapFilesWithoutLosingOne) {
  SetIcon("36", "a.png");
  SetIcon("48", "b.png");
  Changes();
  SetIcon("36", "b.png");
  SetIcon("48", "a.png");
  Changes();
  EXPECT_EQ(Icons(), (TTexts{"Android_LauncherIcon36 | b.png |  | ic_launcher.png",
                             "Android_LauncherIcon48 | a.png |  | ic_launcher.png"}));
  EXPECT_EQ(Warnings(), TTexts{});
}

TEST_F(ReconcilePlan, DoNotReplaceAnEntryThatLeftTheNameWhichANewOneTakes) {
  SetIcon("36", "a.png");
  Changes();
  SetIcon("36", "b.png");
  SetIcon("48", "a.png");
  Changes();
  EXPECT_EQ(Icons(), (TTexts{"Android_LauncherIcon36 | b.png |  | ic_launcher.png",
                             "Android_LauncherIcon48 | a.png |  | ic_launcher.png"}));
  EXPECT_EQ(Changes(), TTexts{});
}

TEST_F(ReconcilePlan, TakeTheFileOfAnEntryThatNoStepWants) {
  World.Deployment().AddFile("Debug", "Android", "icon.png")->SetDeploymentClass("File");
  World.Entry("File", "Debug", "");
  World.Deployment().FindFile("Debug", "Android", "icon.png")->SetEnabled("Android", true);
  SetIcon("36", "icon.png");
  Changes();
  EXPECT_EQ(Icons(), TTexts{"Android_LauncherIcon36 | icon.png |  | ic_launcher.png"});
  EXPECT_EQ(World.LinesOf("File", "Debug", "Android"), TTexts{});
  EXPECT_EQ(Warnings().size(), 1U);
}

TEST_F(ReconcilePlan, ReuseAnEntryOfTheClassThatLostThePlatform) {
  SetIcon("36", "icon.png");
  Changes();
  const auto icon = World.Entry("Android_LauncherIcon36", "Debug", "Android");
  icon->SetRemoteName("Win32", "keep.png");
  icon->RemovePlatform("Android");
  Changes();
  EXPECT_EQ(World.Entry("Android_LauncherIcon36", "Debug", "Android"), icon);
  EXPECT_EQ(icon->GetRemoteName("Win32"), "keep.png");
}

TEST_F(ReconcilePlan, GiveAFileThatAThirdClassHoldsToTheLastStepAtOnce) {
  const auto mine = World.Deployment().AddFile("Debug", "Android", "same.png");
  mine->SetDeploymentClass("File");
  mine->SetEnabled("Android", true);
  SetIcon("36", "same.png");
  SetIcon("72", "same.png");
  Changes();
  EXPECT_EQ(Icons(), TTexts{"Android_LauncherIcon72 | same.png |  | ic_launcher.png"});
  EXPECT_EQ(World.LinesOf("File", "Debug", "Android"), TTexts{});
  EXPECT_EQ(Changes(), TTexts{});
}

TEST_F(ReconcilePlan, SayThatWhatAUserSetForAFileGoesWithItsRole) {
  const auto mine = World.Deployment().AddFile("Debug", "Android", "same.png");
  mine->SetDeploymentClass("File");
  mine->SetRemoteDir("Android", "own\\");
  SetIcon("36", "same.png");
  Changes();
  EXPECT_EQ(Warnings(), TTexts{"\"same.png\" has two roles for Debug, Android: \"File\" and "
                               "\"Android_LauncherIcon36\"; one file has one entry, which is that "
                               "of \"Android_LauncherIcon36\", with the values of a new one"});
}

TEST_F(ReconcilePlan, TakeAFileFromAnEntryThatServesOtherPlatformsForTheTargetAlone) {
  const auto shared = World.Deployment().AddFile("Debug", "Android", "same.png");
  shared->SetDeploymentClass("File");
  shared->SetEnabled("Android", true);
  shared->SetRemoteDir("Win32", "own\\");
  SetIcon("36", "same.png");
  Changes();
  EXPECT_EQ(Icons().size(), 1U);
  EXPECT_EQ(shared->GetPlatforms(), TTexts{"Win32"});
  EXPECT_EQ(World.Deployment().FindFile("Debug", "Win32", "same.png"), shared);
  EXPECT_EQ(Changes(), TTexts{});
}

TEST_F(ReconcilePlan, GiveTheSymbolsTheDirectoryOfAnOutputThatTheUserHadListed) {
  World.Storage.Classes["ProjectOutput"]["Win32"] = "bin\\";
  World.Project.BuildOptions.RemoteDebugSymbols = {"Debug|Win32"};
  World.Deployment().GetFiles();
  World.Deployment().AddFile("Debug", "Win32", R"(Win32\Debug\App.exe)")->SetEnabled("Win32", true);
  World.Reconcile("Debug", "Win32");
  EXPECT_EQ(World.LinesOf("DebugSymbols", "Debug", "Win32"),
            TTexts{R"(DebugSymbols | Win32\Debug\App.qds | bin\ | App.qds)"});
  EXPECT_EQ(World.ChangesOf("Debug", "Win32"), TTexts{});
}

TEST_F(ReconcilePlan, DropASecondEntryOfTheClassThatHasTheNameAlready) {
  World.Reconcile("Debug", "Win32");
  const auto second = World.Deployment().AddFile("Debug", "Win32", R"(out\App.exe)");
  second->SetDeploymentClass("ProjectOutput");
  second->SetEnabled("Win32", true);
  World.Project.OutputFiles["Debug|Win32"] = R"(C:\work\App\out\App.exe)";
  World.Reconcile("Debug", "Win32");
  EXPECT_EQ(World.Lines("Debug", "Win32"), TTexts{R"(ProjectOutput | out\App.exe |  | App.exe)"});
  EXPECT_EQ(Warnings(), TTexts{});
  EXPECT_EQ(World.ChangesOf("Debug", "Win32"), TTexts{});
}

} // namespace
} // namespace deployment
