#include "tests/desktop/window/deploy_fixture.h"
#include "tests/support/sanitized.h"

#include <QElapsedTimer>
#include <QMenu>
#include <QToolButton>

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

// The largest gap between two ticks of a clock in the event loop, one phase after the other.
class THeartbeat {
public:
  THeartbeat() {
    FSince.start();
    QObject::connect(&FClock, &QTimer::timeout, &FClock,
                     [this] { FLargest = std::max(FLargest, FSince.restart()); });
    FClock.start(1);
  }
  /// The largest gap since the last phase ended, in milliseconds.
  int EndPhase(const char* name) {
    const int largest = static_cast<int>(std::max(FLargest, FSince.restart()));
    FLargest = 0;
    std::printf("largest gap of %s: %d ms\n", name, largest);
    return largest;
  }

private:
  QElapsedTimer FSince;
  QTimer FClock;
  qint64 FLargest = 0;
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
    Window().Projects().CheckDisk();
    ASSERT_GT(Tree().Model().rowCount(), Files);
    Settle();
  }
};

TEST_F(TLongDeploy, LeavesTheWindowResponsive) {
  OpenLongList();
  Connect();
  // What keeps the event loop from turning for that long is a mistake on any machine.
  constexpr int Most = 2000;
  THeartbeat heartbeat;
  Plan();
  EXPECT_LT(heartbeat.EndPhase("the plan"), Most);
  ASSERT_TRUE(Window().Panel().IsAsking()) << Summary();
  PressButton("tbDeploy");
  WaitForEnd();
  EXPECT_LT(heartbeat.EndPhase("the deploy"), Most);
  EXPECT_TRUE(std::filesystem::exists(Deployed("many/" + std::to_string(Files - 1) + ".bin")))
      << Summary();
  EXPECT_EQ(Cell(Row(QString::number(Files - 1) + ".bin").row(), RemoteStatus), "Same");
  static_cast<void>(heartbeat.EndPhase("the look at the rows"));
  for (QAction* action : Child<QToolButton>(Window().Panel(), "options").menu()->actions()) {
    if (action->text().remove('&') == "Compare by Content")
      action->trigger();
  }
  Plan();
  EXPECT_LT(heartbeat.EndPhase("the comparison by content"), Most);
}

} // namespace
} // namespace workbench
