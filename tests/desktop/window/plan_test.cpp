#include "tests/desktop/window/deploy_fixture.h"

#include <QMenu>
#include <QToolButton>

namespace workbench {
namespace {

using testing::ClickCheckBox;
using testing::Press;

const QString LevelsFile = "data\\levels.dat";

// A deploy that is looked at before it is carried out.
class TPlanWindow : public testing::TDeployWindowTest {
protected:
  void SetUp() override {
    TDeployWindowTest::SetUp();
    OpenExample();
    Assign();
  }
  // Deployed once; then somebody changes a file on the target, and its owner here.
  void MakeConflict() {
    Deploy();
    Write(Deployed("data/levels.dat"), "a hotfix on the target");
    Write(FRoot / "tide" / "data" / "levels.dat", "our own change");
    Plan();
  }
};

TEST_F(TPlanWindow, NothingIsCopiedBeforeThePlanIsConfirmed) {
  Plan();
  EXPECT_TRUE(Window().Panel().IsAsking());
  EXPECT_EQ(ActionOf(LevelsFile), "copy");
  EXPECT_TRUE(std::filesystem::is_empty(FRoot / "target"));
  Confirm();
  EXPECT_FALSE(Window().Panel().IsAsking());
  EXPECT_TRUE(std::filesystem::exists(Deployed("data/levels.dat")));
  EXPECT_EQ(ActionOf(LevelsFile), "copied");
  EXPECT_EQ(Summary().substr(0, 5), "Done:");
}

TEST_F(TPlanWindow, ASecondPressOfTheKeyConfirms) {
  QTest::keyClick(&View(), Qt::Key_F9);
  WaitForEnd();
  ASSERT_TRUE(Window().Panel().IsAsking());
  EXPECT_EQ(QApplication::focusWidget(), &PlanRows());
  QTest::keyClick(&PlanRows(), Qt::Key_F9);
  WaitForEnd();
  EXPECT_TRUE(std::filesystem::exists(Deployed("data/levels.dat")));
}

TEST_F(TPlanWindow, AFileThatIsUntickedStaysHereAndEscapeDeploysNothing) {
  Plan();
  ClickCheckBox(PlanRows(), PlanRow(LevelsFile));
  EXPECT_EQ(ActionOf(LevelsFile), "leave out");
  Confirm();
  EXPECT_FALSE(std::filesystem::exists(Deployed("data/levels.dat")));
  EXPECT_TRUE(std::filesystem::exists(Deployed("TideLogger.dll")));
  Plan();
  EXPECT_EQ(ActionOf(LevelsFile), "copy"); // for that run alone
  QTest::keyClick(&PlanRows(), Qt::Key_Escape);
  EXPECT_FALSE(Window().Panel().isVisible());
  EXPECT_FALSE(std::filesystem::exists(Deployed("data/levels.dat")));
}

TEST_F(TPlanWindow, AHotfixOnTheTargetIsAConflictAndSurvivesKeepTheirs) {
  MakeConflict();
  EXPECT_EQ(PlanRow(LevelsFile).row(), 0);
  EXPECT_EQ(ActionOf(LevelsFile), "conflict: choose");
  Press(Window().Panel(), "Keep Theirs");
  Confirm();
  EXPECT_EQ(Read(Deployed("data/levels.dat")), "a hotfix on the target");
  EXPECT_EQ(ActionOf(LevelsFile), "kept");
  EXPECT_EQ(Summary().substr(0, 5), "Done:") << Summary();
}

TEST_F(TPlanWindow, AHotfixIsReplacedByTakeOurs) {
  MakeConflict();
  Press(Window().Panel(), "Take Ours");
  Confirm();
  EXPECT_EQ(Read(Deployed("data/levels.dat")), "our own change");
}

TEST_F(TPlanWindow, AConflictWithoutAChoiceIsLeftAlone) {
  MakeConflict();
  Confirm();
  EXPECT_EQ(Read(Deployed("data/levels.dat")), "a hotfix on the target");
  EXPECT_EQ(ActionOf(LevelsFile), "left alone");
}

TEST_F(TPlanWindow, AChoiceHoldsForTheHotfixThatWasSeenAlone) {
  MakeConflict();
  Press(Window().Panel(), "Take Ours");
  Write(Deployed("data/levels.dat"), "a second hotfix, made meanwhile");
  Confirm();
  EXPECT_EQ(Read(Deployed("data/levels.dat")), "a second hotfix, made meanwhile");
}

TEST_F(TPlanWindow, ALeftOverThatIsTickedIsRemoved) {
  Deploy();
  for (const auto& file : Project().Deployment().GetFiles()) {
    if (file->GetLocalName() == LevelsFile.toStdString()) {
      Project().Deployment().RemoveFileEntry(*file);
      break;
    }
  }
  Settle();
  Plan();
  EXPECT_EQ(ActionOf(LevelsFile), "leave there");
  Confirm();
  EXPECT_TRUE(std::filesystem::exists(Deployed("data/levels.dat")));
  Plan();
  ClickCheckBox(PlanRows(), PlanRow(LevelsFile));
  EXPECT_EQ(ActionOf(LevelsFile), "remove");
  Confirm();
  EXPECT_FALSE(std::filesystem::exists(Deployed("data/levels.dat")));
}

TEST_F(TPlanWindow, WhatChangedSinceThePlanWasSeenIsShownBeforeItIsCopied) {
  Deploy();
  Plan();
  EXPECT_NE(Summary().find("There is nothing to copy."), std::string::npos) << Summary();
  Write(FRoot / "tide" / "data" / "levels.dat", "built meanwhile");
  PressButton("tbDeploy");
  WaitForEnd();
  ASSERT_TRUE(Window().Panel().IsAsking());
  EXPECT_NE(Summary().find("Files changed since this plan was looked at."), std::string::npos)
      << Summary();
  EXPECT_NE(Read(Deployed("data/levels.dat")), "built meanwhile");
  Confirm();
  EXPECT_EQ(Read(Deployed("data/levels.dat")), "built meanwhile");
}

TEST_F(TPlanWindow, AFailedFileComesFirstAndRetryCompletesIt) {
  Plan();
  // A directory takes the place of the file when it is too late for the plan to say so.
  std::filesystem::create_directories(Deployed("data"));
  std::filesystem::remove(FRoot / "tide" / "data" / "levels.dat");
  Confirm();
  ASSERT_TRUE(Window().Panel().isVisible());
  EXPECT_EQ(PlanRow(LevelsFile).row(), 0);
  EXPECT_EQ(ActionOf(LevelsFile), "failed");
  Write(FRoot / "tide" / "data" / "levels.dat", "built again");
  Press(Window().Panel(), "Retry");
  WaitForEnd();
  EXPECT_EQ(ActionOf(LevelsFile), "copied");
  EXPECT_EQ(Read(Deployed("data/levels.dat")), "built again");
}

TEST_F(TPlanWindow, AnOptionMakesThePlanAnew) {
  Deploy();
  Plan();
  EXPECT_EQ(ActionOf(LevelsFile), "same");
  auto& options = testing::Child<QToolButton>(Window().Panel(), "options");
  for (QAction* action : options.menu()->actions())
    if (action->text().remove('&') == "Copy Also What Is the Same")
      action->trigger();
  Settle();
  WaitForEnd();
  EXPECT_TRUE(Window().Panel().IsAsking());
  EXPECT_EQ(ActionOf(LevelsFile), "copy");
}

TEST_F(TPlanWindow, GoesToTheEntryOfARow) {
  Plan();
  PlanRows().setCurrentIndex(PlanRow(LevelsFile));
  Press(Window().Panel(), "Go to Entry");
  EXPECT_EQ(View().currentIndex().row(), Row("levels.dat").row());
  EXPECT_EQ(QApplication::focusWidget(), &View());
}

TEST_F(TPlanWindow, APlanGoesWithItsProject) {
  Plan();
  Choose("Close");
  EXPECT_FALSE(Window().Panel().isVisible());
}

} // namespace
} // namespace workbench
