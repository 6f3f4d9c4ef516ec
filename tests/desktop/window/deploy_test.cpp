#include "tests/desktop/window/deploy_fixture.h"
#include "tests/support/sanitized.h"

#include <QElapsedTimer>
#include <QMenu>
#include <QToolButton>
#include <ctime>
#include <utility>

namespace workbench {
namespace {

using namespace deployment::file_column;

using testing::Child;
using testing::FindButton;

using TWindowDeploy = testing::TDeployWindowTest;

TEST_F(TWindowDeploy, BringsTheFilesThereAndShowsTheirState) {
  OpenExample();
  Assign();
  Connect();
  EXPECT_EQ(Cell(Row("levels.dat").row(), RemoteStatus), "Not Found");
  Deploy();
  EXPECT_TRUE(Window().Panel().isVisible());
  EXPECT_EQ(Cell(Row("levels.dat").row(), RemoteStatus), "Same");
  EXPECT_TRUE(std::filesystem::exists(FRoot / "target" / "TideLogger" / "data" / "levels.dat"));
  // A file of the active configuration, not of all of them.
  EXPECT_TRUE(std::filesystem::exists(FRoot / "target" / "TideLogger" / "TideLogger.dll"));
  Write(FRoot / "tide" / "data" / "levels.dat", "newer");
  PressButton("tbReconcile");
  EXPECT_EQ(Cell(Row("levels.dat").row(), RemoteStatus), "Older");
}

TEST_F(TWindowDeploy, AProfileThatIsMissingIsOffered) {
  OpenExample();
  std::string said;
  AnswerNext("No", &said);
  PressButton("tbDeploy");
  EXPECT_NE(said.find("A connection profile is required for deployment."), std::string::npos);
  EXPECT_FALSE(Window().Panel().isVisible());
}

TEST_F(TWindowDeploy, TheDefaultProfileServesAProjectThatNamesNone) {
  Host().RemoteProfiles().RemoveProfile("bench");
  Host().RemoteProfiles().AddProfile({.Name = "everybody",
                                      .Platform = "Win64",
                                      .Path = (FRoot / "target").string(),
                                      .IsDefault = true});
  OpenExample();
  Connect();
  EXPECT_EQ(Cell(Row("levels.dat").row(), RemoteStatus), "Not Found");
  Deploy();
  EXPECT_EQ(Cell(Row("levels.dat").row(), RemoteStatus), "Same");
}

TEST_F(TWindowDeploy, ConnectSaysWhatToDoWithoutAProfile) {
  OpenExample();
  std::string said;
  AnswerNext("OK", &said);
  PressButton("tbConnect");
  EXPECT_NE(said.find("The project has no remote profile for Win64. Make one with Tools"),
            std::string::npos)
      << said;
  Assign();
  Host().RemoteProfiles().RemoveProfile("bench");
  AnswerNext("OK", &said);
  PressButton("tbConnect");
  EXPECT_NE(said.find("names the remote profile bench for Win64, and there is none"),
            std::string::npos)
      << said;
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Button("tbConnect")->isChecked(); }));
}

TEST_F(TWindowDeploy, ATargetThatIsGoneIsNamedAndTheButtonComesUp) {
  OpenExample();
  Assign();
  std::filesystem::remove_all(FRoot / "target");
  std::string said;
  AnswerNext("OK", &said);
  PressButton("tbConnect");
  ASSERT_TRUE(QTest::qWaitFor([&said] { return !said.empty(); }, 10000));
  EXPECT_NE(said.find("target"), std::string::npos) << said;
  EXPECT_FALSE(Button("tbConnect")->isChecked());
}

TEST_F(TWindowDeploy, WhatCannotLandIsNamedBeforeAnythingIsCopied) {
  OpenExample();
  Assign();
  const auto base = FRoot / "target" / "TideLogger";
  std::filesystem::create_directories(base / "data" / "levels.dat");
  Plan();
  EXPECT_FALSE(Window().Panel().IsAsking());
  EXPECT_NE(Summary().find("Nothing was copied."), std::string::npos) << Summary();
  EXPECT_NE(Summary().find("which is a directory on the target"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(base / "TideLogger.dll"));
}

TEST_F(TWindowDeploy, TheWindowStaysOpenWhileADeployRuns) {
  OpenExample();
  Assign();
  for (int i = 0; i < 300; ++i) {
    const std::string name = "many" + std::to_string(i) + ".bin";
    Write(FRoot / "tide" / "data" / name, std::string(4096, 'x'));
    Project().Deployment().AddFile("Debug", "Win64", "data\\" + name)->SetEnabled("Win64", true);
  }
  Settle();
  bool wasRunning = false;
  bool closed = true;
  int checked = 0;
  QTimer probe;
  QObject::connect(&probe, &QTimer::timeout, &probe, [&] {
    if (!Window().Panel().IsRunning() || wasRunning)
      return;
    wasRunning = true;
    closed = Window().close();
    const bool before = IsChecked(Row("levels.dat"));
    ClickCheck(Row("levels.dat")); // reaches nobody
    checked = IsChecked(Row("levels.dat")) == before ? 1 : 2;
    FindButton(Window().Panel(), "Cancel")->click();
  });
  Plan();
  probe.start(0);
  PressButton("tbDeploy");
  ASSERT_TRUE(QTest::qWaitFor([this] { return !Window().Panel().IsRunning(); }, 20000));
  EXPECT_TRUE(wasRunning);
  EXPECT_FALSE(closed);
  EXPECT_EQ(checked, 1);
}

TEST_F(TWindowDeploy, CancelIsHeardAtTheFirstTurnOfTheEventLoop) {
  OpenExample();
  Assign();
  bool wasRunning = false;
  QTimer::singleShot(0, &Window(), [&] {
    wasRunning = Window().Panel().IsRunning();
    FindButton(Window().Panel(), "Cancel")->click();
  });
  Button("tbDeploy")->trigger();
  WaitForEnd();
  EXPECT_TRUE(wasRunning);
  EXPECT_FALSE(Window().Panel().IsAsking());
  EXPECT_EQ(Summary().substr(0, 9), "Cancelled") << Summary();
}

// How long the event loop did not turn, one phase after the other. Work counts as processor time of
// this thread, which says the same on a machine that is busy with other things.
class THeartbeat {
public:
  THeartbeat() {
    FSince.start();
    FWorked = Worked();
    QObject::connect(&FClock, &QTimer::timeout, &FClock, [this] { Tick(); });
    FClock.start(1);
  }
  /// The most work between two turns since the last phase ended, in milliseconds.
  double EndPhase(const char* name) {
    Tick();
    std::printf("largest gap of %s: %d ms, of them %.0f ms of work\n", name,
                static_cast<int>(FLargest), FMostWork);
    FLargest = 0;
    return std::exchange(FMostWork, 0);
  }
  /// Milliseconds that this thread has worked.
  static double Worked() {
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
  }

private:
  void Tick() {
    FLargest = std::max(FLargest, FSince.restart());
    const double worked = Worked();
    FMostWork = std::max(FMostWork, worked - std::exchange(FWorked, worked));
  }

  QElapsedTimer FSince;
  QTimer FClock;
  qint64 FLargest = 0;
  double FWorked = 0;
  double FMostWork = 0;
};

// The example with very many files more, which come with the project file.
class TLongDeploy : public testing::TDeployWindowTest {
protected:
  static constexpr int Files = testing_support::IsSanitized ? 1000 : 10000;

  void OpenLongList() {
    OpenExample();
    Assign();
    std::filesystem::create_directory(FRoot / "tide" / "many");
    for (int i = 0; i < Files; ++i)
      Write(FRoot / "tide" / "many" / (std::to_string(i) + ".bin"), "0123456789abcdef");
    Saved();
    std::string list;
    for (int i = 0; i < Files; ++i)
      list.append("<DeployFile LocalName=\"many\\")
          .append(std::to_string(i))
          .append(".bin\" Configuration=\"Debug\" Class=\"File\"><Platform Name=\"Win64\">"
                  "<RemoteDir>many\\</RemoteDir></Platform></DeployFile>\n");
    std::string text = Read(FProject);
    text.insert(text.find("</Deployment>"), list);
    Write(FProject, text);
    const double before = THeartbeat::Worked();
    Window().Projects().CheckDisk();
    FReading = THeartbeat::Worked() - before;
    ASSERT_GT(Tree().Model().rowCount(), Files);
    Settle();
  }

  // What it takes to read the list, reconcile and show it: a turn of the event loop must be
  // shorter.
  double FReading = 0;
};

TEST_F(TLongDeploy, LeavesTheWindowResponsive) {
  OpenLongList();
  Connect();
  THeartbeat heartbeat;
  // With few files other things than the list take longest.
  const double most = testing_support::IsSanitized ? 2000 : FReading;
  Plan();
  EXPECT_LT(heartbeat.EndPhase("the plan"), most);
  ASSERT_TRUE(Window().Panel().IsAsking()) << Summary();
  PressButton("tbDeploy");
  WaitForEnd();
  EXPECT_LT(heartbeat.EndPhase("the deploy"), most);
  EXPECT_TRUE(std::filesystem::exists(Deployed("many/" + std::to_string(Files - 1) + ".bin")))
      << Summary();
  EXPECT_EQ(Cell(Row(QString::number(Files - 1) + ".bin").row(), RemoteStatus), "Same");
  static_cast<void>(heartbeat.EndPhase("the look at the rows"));
  for (QAction* action : Child<QToolButton>(Window().Panel(), "options").menu()->actions()) {
    if (action->text().remove('&') == "Compare by Content")
      action->trigger();
  }
  Plan();
  EXPECT_LT(heartbeat.EndPhase("the comparison by content"), most);
  Choose("Deploy History");
  WaitForEnd();
  static_cast<void>(heartbeat.EndPhase("reading the history"));
  AnswerNext("Take Back");
  testing::Press(Window().Panel(), "Take Back…");
  WaitForEnd();
  EXPECT_LT(heartbeat.EndPhase("taking back"), most);
  EXPECT_FALSE(std::filesystem::exists(Deployed("many/0.bin")));
  std::printf("the list was read in %.0f ms of work\n", FReading);
}

TEST_F(TWindowDeploy, LooksAtNoEntryToFindOutThatNothingWasEdited) {
  OpenExample();
  Assign();
  Settle();
  std::size_t most = 0;
  QObject::connect(Window().CurrentControls(), &TFormControls::CommandDone, &Window(), [&] {
    most = std::max(most, Window().Projects().EditsAt(0)->History().LookedAt());
  });
  Connect();
  Deploy();
  EXPECT_EQ(most, 0U);
  ClickCheck(Row("levels.dat"));
  Choose("Undo");
  PressButton("tbReconcile");
  EXPECT_GT(most, 0U);
}

} // namespace
} // namespace workbench
