#include "tests/desktop/window/deploy_fixture.h"
#include "workbench/desktop/deploy/history_page.h"

#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>

namespace workbench {
namespace {

using testing::Child;
using testing::OnNextDialog;
using testing::Press;

const QString ChangedFile = "data\\levels.dat";

// What becomes of deploys that are over, and of files on which two people worked.
class TDeployHistory : public testing::TDeployWindowTest {
protected:
  void SetUp() override {
    TDeployWindowTest::SetUp();
    OpenExample();
    Assign();
  }
  THistoryPage& History() { return Window().Panel().History(); }
  QTreeView& Runs() { return Child<QTreeView>(Window().Panel(), "runs"); }
  std::string RunCell(int row, int column) {
    return Runs().model()->index(row, column).data().toString().toStdString();
  }
  std::string HistorySummary() {
    return Child<QLabel>(Window().Panel(), "historySummary").text().toStdString();
  }
  // Two deploys, the second of which replaced a file.
  void DeployTwice() {
    Deploy();
    Write(FRoot / "tide" / "data" / "levels.dat", "the second one");
    Deploy();
  }
  void TakeBack() {
    AnswerNext("Take Back");
    Press(Window().Panel(), "Take Back…");
    WaitForEnd();
  }
};

TEST_F(TDeployHistory, ShowsTheDeploysOfTheTargetAndTakesTheLastOneBack) {
  const std::string before = Read(FRoot / "tide" / "data" / "levels.dat");
  DeployTwice();
  Choose("Deploy History");
  WaitForEnd();
  ASSERT_EQ(Runs().model()->rowCount(), 2) << HistorySummary();
  EXPECT_EQ(RunCell(0, 2), "done");
  EXPECT_EQ(RunCell(0, 3), "1");
  EXPECT_EQ(QApplication::focusWidget(), &Runs());
  TakeBack();
  EXPECT_EQ(Read(Deployed("data/levels.dat")), before);
  EXPECT_EQ(HistorySummary(), "Taken back: 1 restored, 0 removed.");
  EXPECT_EQ(RunCell(0, 2), "taken back");
}

TEST_F(TDeployHistory, AnOlderDeployIsTakenBackWithTheNewerOnes) {
  DeployTwice();
  Choose("Deploy History");
  WaitForEnd();
  Runs().setCurrentIndex(Runs().model()->index(1, 0));
  std::string said;
  AnswerNext("Take Back", &said);
  Press(Window().Panel(), "Take Back…");
  WaitForEnd();
  EXPECT_NE(said.find("and the newer ones, 2 in all?"), std::string::npos) << said;
  EXPECT_FALSE(std::filesystem::exists(Deployed("data/levels.dat")));
  EXPECT_EQ(RunCell(1, 2), "taken back");
}

TEST_F(TDeployHistory, NothingIsTakenBackWithoutAYesAndTheListFollowsAYes) {
  Deploy();
  Connect();
  Choose("Deploy History");
  WaitForEnd();
  AnswerNext("Cancel");
  Press(Window().Panel(), "Take Back…");
  WaitForEnd();
  EXPECT_TRUE(std::filesystem::exists(Deployed("data/levels.dat")));
  TakeBack();
  const int row = Row("levels.dat").row();
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return Cell(row, deployment::file_column::RemoteStatus) == "Not Found"; }, 10000))
      << Cell(row, deployment::file_column::RemoteStatus);
}

TEST_F(TDeployHistory, AFileThatOthersChangedSinceStaysAndIsNamed) {
  DeployTwice();
  Write(Deployed("data/levels.dat"), "a hotfix");
  Choose("Deploy History");
  WaitForEnd();
  TakeBack();
  EXPECT_EQ(Read(Deployed("data/levels.dat")), "a hotfix");
  EXPECT_NE(HistorySummary().find("Left as they are: 1."), std::string::npos) << HistorySummary();
  EXPECT_NE(HistorySummary().find("levels.dat"), std::string::npos);
}

TEST_F(TDeployHistory, SaysWhyThereIsNone) {
  Choose("Deploy History");
  WaitForEnd();
  EXPECT_EQ(HistorySummary(), "The target remembers no deploys of this project yet.");
  EXPECT_FALSE(testing::FindButton(Window().Panel(), "Take Back…")->isEnabled());
}

TEST_F(TDeployHistory, ShowsTheDifferenceOfAConflict) {
  Write(FRoot / "tide" / "data" / "levels.dat", "one\ntwo\nthree\n");
  Deploy();
  Write(Deployed("data/levels.dat"), "one\nTWO there\nthree\n");
  Write(FRoot / "tide" / "data" / "levels.dat", "one\ntwo\nthree\nfour\n");
  Plan();
  std::string text;
  OnNextDialog([&](QDialog& dialog) {
    text = Child<QPlainTextEdit>(dialog, "difference").toPlainText().toStdString();
  });
  Press(Window().Panel(), "Show Difference…");
  EXPECT_EQ(text, "  one\n− TWO there\n+ two\n  three\n+ four\n");
  EXPECT_EQ(ActionOf(ChangedFile), "conflict: choose");
}

TEST_F(TDeployHistory, AFailedFileThatIsSkippedIsLeftOutOfTheRepeatedRun) {
  Plan();
  std::filesystem::remove(FRoot / "tide" / "data" / "levels.dat");
  Confirm();
  EXPECT_EQ(ActionOf(ChangedFile), "failed");
  Press(Window().Panel(), "Skip");
  EXPECT_EQ(ActionOf(ChangedFile), "failed; left out next time");
  Press(Window().Panel(), "Retry");
  WaitForEnd();
  EXPECT_EQ(ActionOf(ChangedFile), "skipped");
  EXPECT_EQ(Summary().substr(0, 5), "Done:") << Summary();
}

TEST_F(TDeployHistory, AMissingProfileIsMadeFromTheResults) {
  Host().RemoteProfiles().RemoveProfile("bench");
  Plan();
  EXPECT_NE(Summary().find("there is no profile \"bench\""), std::string::npos) << Summary();
  bool isOffered = false;
  OnNextDialog([&](QDialog&) { isOffered = true; });
  Press(Window().Panel(), "New Profile…");
  EXPECT_TRUE(isOffered);
}

TEST_F(TDeployHistory, TheSettingSkipsThePlanWhenNothingConflicts) {
  Host().Settings().Set("deploy-unasked", "true");
  PressButton("tbDeploy");
  WaitForEnd();
  EXPECT_FALSE(Window().Panel().IsAsking());
  EXPECT_TRUE(std::filesystem::exists(Deployed("data/levels.dat")));
  Write(Deployed("data/levels.dat"), "a hotfix");
  PressButton("tbDeploy");
  WaitForEnd();
  EXPECT_TRUE(Window().Panel().IsAsking());
  EXPECT_EQ(Read(Deployed("data/levels.dat")), "a hotfix");
}

TEST_F(TDeployHistory, ThePlanAloneCanBeAskedForAndResultsComeBack) {
  Host().Settings().Set("deploy-unasked", "true");
  Choose("Show Plan of Deploy");
  WaitForEnd();
  EXPECT_TRUE(Window().Panel().IsAsking());
  EXPECT_TRUE(std::filesystem::is_empty(FRoot / "target"));
  Confirm();
  Press(Window().Panel(), "Close");
  EXPECT_FALSE(Window().Panel().isVisible());
  Choose("Show Results of Deploy");
  EXPECT_TRUE(Window().Panel().isVisible());
  EXPECT_EQ(ActionOf(ChangedFile), "copied");
}

} // namespace
} // namespace workbench
