// One file has one entry: what happens when two classes want it, or a name moves.
#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

class DefaultEntries : public testing::Test {
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

TEST_F(DefaultEntries, GiveAFileThatTwoOptionsNameToTheLaterOne) {
  SetIcon("36", "icon.png");
  SetIcon("48", "icon.png");
  Changes();
  EXPECT_EQ(Icons(), TTexts{"Android_LauncherIcon48 | icon.png |  | ic_launcher.png"});
  EXPECT_EQ(Warnings(),
            TTexts{"\"icon.png\" has two roles for Debug, Android: \"Android_LauncherIcon36\" and "
                   "\"Android_LauncherIcon48\"; one file has one entry, which is that of "
                   "\"Android_LauncherIcon48\""});
}

TEST_F(DefaultEntries, LeaveAFileWithTwoRolesAloneTheSecondTimeButWarnAgain) {
  SetIcon("36", "icon.png");
  SetIcon("48", "icon.png");
  Changes();
  Warnings();
  EXPECT_EQ(Changes(), TTexts{});
  EXPECT_EQ(Warnings().size(), 1U);
}

TEST_F(DefaultEntries, DropTheEarlierEntryWhenALaterOptionTakesItsFile) {
  SetIcon("36", "a.png");
  SetIcon("48", "b.png");
  Changes();
  SetIcon("48", "a.png");
  Changes();
  EXPECT_EQ(Icons(), TTexts{"Android_LauncherIcon48 | a.png |  | ic_launcher.png"});
  EXPECT_EQ(Changes(), TTexts{});
}

TEST_F(DefaultEntries, SwapFilesWithoutLosingOne) {
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

TEST_F(DefaultEntries, DoNotReplaceAnEntryThatLeftTheNameWhichANewOneTakes) {
  SetIcon("36", "a.png");
  Changes();
  SetIcon("36", "b.png");
  SetIcon("48", "a.png");
  Changes();
  EXPECT_EQ(Icons(), (TTexts{"Android_LauncherIcon36 | b.png |  | ic_launcher.png",
                             "Android_LauncherIcon48 | a.png |  | ic_launcher.png"}));
  EXPECT_EQ(Changes(), TTexts{});
}

TEST_F(DefaultEntries, TakeTheFileOfAnEntryThatNoStepWants) {
  World.Deployment().AddFile("Debug", "Android", "icon.png")->SetDeploymentClass("File");
  World.Entry("File", "Debug", "");
  World.Deployment().FindFile("Debug", "Android", "icon.png")->SetEnabled("Android", true);
  SetIcon("36", "icon.png");
  Changes();
  EXPECT_EQ(Icons(), TTexts{"Android_LauncherIcon36 | icon.png |  | ic_launcher.png"});
  EXPECT_EQ(World.LinesOf("File", "Debug", "Android"), TTexts{});
  EXPECT_EQ(Warnings().size(), 1U);
}

TEST_F(DefaultEntries, ReuseAnEntryOfTheClassThatLostThePlatform) {
  SetIcon("36", "icon.png");
  Changes();
  const auto icon = World.Entry("Android_LauncherIcon36", "Debug", "Android");
  icon->SetRemoteName("Win32", "keep.png");
  icon->RemovePlatform("Android");
  Changes();
  EXPECT_EQ(World.Entry("Android_LauncherIcon36", "Debug", "Android"), icon);
  EXPECT_EQ(icon->GetRemoteName("Win32"), "keep.png");
}

} // namespace
} // namespace deployment
