#include "tests/desktop/window/deploy_fixture.h"

#include <QElapsedTimer>

namespace workbench {
namespace {

using namespace deployment::file_column;

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

// The largest gap between two ticks of a clock in the event loop.
class THeartbeat {
public:
  THeartbeat() {
    FSince.start();
    QObject::connect(&FClock, &QTimer::timeout, &FClock,
                     [this] { FLargest = std::max(FLargest, FSince.restart()); });
    FClock.start(1);
  }
  qint64 Largest() const { return FLargest; }

private:
  QElapsedTimer FSince;
  QTimer FClock;
  qint64 FLargest = 0;
};

TEST_F(TWindowDeploy, ADeployOfTenThousandFilesLeavesTheWindowResponsive) {
  constexpr int Files = 10000;
  OpenExample();
  Assign();
  std::filesystem::create_directory(FRoot / "tide" / "many");
  for (int i = 0; i < Files; ++i)
    Write(FRoot / "tide" / "many" / (std::to_string(i) + ".bin"), "0123456789abcdef");
  PressButton("tbConnect");
  ASSERT_TRUE(QTest::qWaitFor([this] { return Cell(0, RemoteStatus) != "Not Connected"; }, 10000));
  std::string list;
  {
    // One refresh for all of them, as when they came with the project file.
    Saved();
    std::string text = Read(FProject);
    for (int i = 0; i < Files; ++i)
      list += "<DeployFile LocalName=\"many\\" + std::to_string(i) +
              ".bin\" Configuration=\"Debug\" Class=\"File\"><Platform Name=\"Win64\">"
              "<RemoteDir>many\\</RemoteDir></Platform></DeployFile>\n";
    text.insert(text.find("</Deployment>"), list);
    Write(FProject, text);
  }
  Window().Projects().CheckDisk();
  ASSERT_GT(Tree().Model().rowCount(), Files);
  Settle();
  PressButton("tbConnect");
  ASSERT_TRUE(QTest::qWaitFor([this] { return Cell(0, RemoteStatus) != "Not Connected"; }, 10000));
  qint64 largest = 0;
  {
    THeartbeat heartbeat;
    Deploy();
    QTest::qWait(50);
    largest = heartbeat.Largest();
  }
  EXPECT_TRUE(std::filesystem::exists(FRoot / "target" / "TideLogger" / "many" / "9999.bin"))
      << Summary();
  EXPECT_EQ(Cell(Row("9999.bin").row(), RemoteStatus), "Same");
  RecordProperty("LargestGapInMilliseconds", static_cast<int>(largest));
  std::printf("largest gap: %lld ms\n", static_cast<long long>(largest));
  // What keeps the event loop from turning for that long is a mistake on any machine.
  EXPECT_LT(largest, 2000);
}

} // namespace
} // namespace workbench
