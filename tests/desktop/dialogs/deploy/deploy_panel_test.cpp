#include "tests/desktop/support/dialog_script.h"
#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/desktop/dialogs/deploy/deploy_panel.h"
#include "workbench/desktop/text/deploy_words.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTreeView>
#include <csignal>
#include <thread>

namespace workbench {
namespace {

using testing::Child;
using testing::OnNextDialog;
using testing::Press;
using testing::TRemotePlace;

std::vector<TDeployRow> ThreeRows() {
  return {{.LocalName = "a.exe", .RemoteFile = "/t/a.exe", .Bytes = 2048},
          {.LocalName = "b.dat", .RemoteFile = "/t/b.dat", .Action = TDeployAction::Unchanged},
          {.LocalName = "c.dat", .RemoteFile = "/t/c.dat", .Bytes = 1024}};
}

TDeployRow Failed(TDeployRow row, const char* error) {
  row.Action = TDeployAction::Failed;
  row.Error = error;
  return row;
}

class TDeployPanelTest : public ::testing::Test {
protected:
  // A run whose last file failed.
  void RunWithFailure(const char* error) {
    FPanel.Begin(FCancelled);
    FPanel.Planned(ThreeRows());
    FReport.Rows = ThreeRows();
    FReport.Rows[2] = Failed(FReport.Rows[2], error);
    for (std::size_t i = 0; i < 3; ++i)
      FPanel.RowDone(i, FReport.Rows[i]);
    FReport.End = TDeployEnd::Failed;
    FPanel.End(FReport, /*dryRun=*/false);
  }
  void EndWith(TDeployEnd end) {
    FPanel.Begin(FCancelled);
    FReport.End = end;
    FPanel.End(FReport, /*dryRun=*/false);
  }
  std::string Summary() const { return Child<QLabel>(FPanel, "summary").text().toStdString(); }
  std::string Status() const { return Child<QLabel>(FPanel, "status").text().toStdString(); }
  QTreeView& Log() const { return Child<QTreeView>(FPanel, "log"); }
  std::string Cell(int row, int column) const {
    return Log().model()->index(row, column).data().toString().toStdString();
  }

  std::atomic<int> FCancelled = 0;
  TDeployReport FReport;
  TDeployPanel FPanel;
};

TEST_F(TDeployPanelTest, ShowsTheFilesAndBytesOfARunThatGoesOn) {
  FPanel.Begin(FCancelled);
  EXPECT_TRUE(FPanel.isVisible());
  EXPECT_EQ(Summary(), "Comparing with the target\u2026");
  FPanel.Planned(ThreeRows());
  FPanel.BytesSent(2048);
  FPanel.RowDone(0, ThreeRows()[0]);
  FPanel.RowDone(1, ThreeRows()[1]);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Status().starts_with("2 of 3 files"); }));
  EXPECT_TRUE(Status().starts_with("2 of 3 files, 2.0 KiB of 3.0 KiB, ")) << Status();
  EXPECT_EQ(Summary(), "Deploying\u2026");
  EXPECT_EQ(Cell(0, TDeployLogModel::Result), "copied");
  EXPECT_EQ(Cell(1, TDeployLogModel::Result), "unchanged");
  EXPECT_EQ(Cell(2, TDeployLogModel::Result), "waiting");
  EXPECT_EQ(Cell(2, TDeployLogModel::Target), "/t/c.dat");
  FPanel.End(FReport, /*dryRun=*/false);
}

TEST_F(TDeployPanelTest, CancelsTheRunLikeAnInterrupt) {
  FPanel.Begin(FCancelled);
  EXPECT_FALSE(FPanel.close());
  Press(FPanel, "Cancel");
  EXPECT_EQ(FCancelled, SIGINT);
  EXPECT_EQ(Summary(), "Cancelling\u2026");
  EXPECT_FALSE(testing::FindButton(FPanel, "Cancel")->isEnabled());
  FReport.Rows = {Failed(ThreeRows()[0], "the run was interrupted")};
  FReport.End = TDeployEnd::Interrupted;
  FPanel.End(FReport, /*dryRun=*/false);
  EXPECT_EQ(Summary(), "Interrupted: 0 copied, 1 failed (0 bytes). Deploy again to go on.");
}

TEST_F(TDeployPanelTest, StaysUntilItIsClosed) {
  QSignalSpy closed(&FPanel, &TDeployPanel::Closed);
  FPanel.Begin(FCancelled);
  EXPECT_FALSE(testing::FindButton(FPanel, "Close")->isEnabled());
  FReport.Rows = ThreeRows();
  FReport.End = TDeployEnd::Done;
  FPanel.End(FReport, /*dryRun=*/false);
  EXPECT_TRUE(FPanel.isVisible());
  EXPECT_EQ(Summary(), "Done: 2 copied, 1 unchanged (3.0 KiB).");
  EXPECT_EQ(Cell(2, TDeployLogModel::Result), "copied");
  Press(FPanel, "Close");
  EXPECT_FALSE(FPanel.isVisible());
  EXPECT_EQ(closed.count(), 1);
}

TEST_F(TDeployPanelTest, ShowsFailedFilesAloneAndCopiesThemAsText) {
  RunWithFailure("No space left on device");
  EXPECT_EQ(Summary(), "Files that failed: 1. In all: 1 copied, 1 unchanged, 1 failed (2.0 KiB). "
                       "Deploy again to repeat what failed.");
  EXPECT_EQ(Log().model()->rowCount(), 3);
  QTest::keyClick(testing::FindButton(FPanel, "Show failed files only"), Qt::Key_Space);
  ASSERT_EQ(Log().model()->rowCount(), 1);
  EXPECT_EQ(Cell(0, TDeployLogModel::File), "c.dat");
  Press(FPanel, "Copy as Text");
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
            Summary() + "\nfailed\tc.dat\t/t/c.dat\tNo space left on device\n");
}

TEST_F(TDeployPanelTest, ExplainsAFailedFileAndWhatToDoNext) {
  RunWithFailure("No space left on device");
  Log().setCurrentIndex(Log().model()->index(2, 0));
  QString text;
  OnNextDialog([&](QDialog& dialog) {
    const auto& box = dynamic_cast<QMessageBox&>(dialog);
    text = box.text() + "|" + box.informativeText();
  });
  const QPoint row = Log().visualRect(Log().model()->index(2, 0)).center();
  QTest::mouseClick(Log().viewport(), Qt::LeftButton, {}, row);
  QTest::mouseDClick(Log().viewport(), Qt::LeftButton, {}, row);
  EXPECT_EQ(text.toStdString(), "c.dat was not deployed: No space left on device|It belongs to "
                                "/t/c.dat.\n\nMake room on the target, then deploy again.");
}

TEST_F(TDeployPanelTest, SaysWhyNothingWasDone) {
  FReport.Rows = ThreeRows();
  FReport.Problems = {"a.exe: leaves the path of the profile", "b\x1b.dat: is missing"};
  EndWith(TDeployEnd::Refused);
  EXPECT_EQ(Summary(), "Nothing was copied. Mend this first:\n\u2022 a.exe: leaves the path of the "
                       "profile\n\u2022 b\\x1B.dat: is missing");
  EXPECT_EQ(Log().model()->rowCount(), 0);
  FReport.Commands = {"make all"};
  EndWith(TDeployEnd::NoConsent);
  EXPECT_EQ(Summary(), "Nothing was copied: commands of the project may not run without your "
                       "consent. They are:\n\u2022 make all");
  FReport.Message = "there is no profile \"pi\"";
  EndWith(TDeployEnd::NoConnection);
  EXPECT_EQ(Summary(), "No connection: there is no profile \"pi\".");
  EndWith(TDeployEnd::NotStarted);
  EXPECT_EQ(Summary(), "Nothing was deployed.");
}

TEST_F(TDeployPanelTest, SaysThatTheConnectionWasLostOnTheWay) {
  FReport.Message = "the machine does not answer";
  RunWithFailure("the machine does not answer");
  EXPECT_TRUE(
      Summary().starts_with("The connection was lost: the machine does not answer. In all:"))
      << Summary();
}

TEST_F(TDeployPanelTest, TellsAPlanFromADeploy) {
  FPanel.Begin(FCancelled);
  FReport.Rows = ThreeRows();
  FReport.End = TDeployEnd::Done;
  FPanel.End(FReport, /*dryRun=*/true);
  EXPECT_EQ(Summary(), "Would be: 2 copied, 1 unchanged (3.0 KiB).");
}

TEST_F(TDeployPanelTest, ShowsWhatCommandsPrint) {
  FPanel.Begin(FCancelled);
  const auto& output = Child<QPlainTextEdit>(FPanel, "output");
  EXPECT_FALSE(output.isVisible());
  FPanel.CommandSaid("linking\x07");
  FReport.End = TDeployEnd::Done;
  FPanel.End(FReport, /*dryRun=*/false);
  EXPECT_TRUE(output.isVisible());
  EXPECT_EQ(output.toPlainText(), "linking\\x07");
}

TEST_F(TDeployPanelTest, KeepsTheWindowAliveUnderTenThousandFiles) {
  constexpr std::size_t Count = 10000;
  std::vector<TDeployRow> rows(Count, ThreeRows()[0]);
  FPanel.Begin(FCancelled);
  FPanel.Planned(rows);
  std::atomic<bool> done = false;
  std::thread worker([&] {
    for (std::size_t i = 0; i < Count; ++i) {
      FPanel.BytesSent(rows[i].Bytes);
      FPanel.RowDone(i, rows[i]);
    }
    done = true;
  });
  QElapsedTimer gap;
  qint64 longest = 0;
  gap.start();
  QTimer heartbeat;
  QObject::connect(&heartbeat, &QTimer::timeout,
                   [&] { longest = std::max(longest, gap.restart()); });
  heartbeat.start(1);
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return done && Status().starts_with("10000 of 10000 files, 19.5 MiB of 19.5 MiB"); },
      60000))
      << Status();
  worker.join();
  RecordProperty("longest gap in ms", static_cast<int>(longest));
  EXPECT_LT(longest, 10000);
  FReport.Rows = std::move(rows);
  FReport.End = TDeployEnd::Done;
  FPanel.End(FReport, /*dryRun=*/false);
}

TEST_F(TDeployPanelTest, ShowsARealDeploy) {
  const TRemotePlace place;
  const TDeployPlan plan =
      place.Plan({place.File("a.dat", "a.dat"), place.File("b.dat", "x/b.dat")});
  FPanel.Begin(FCancelled);
  FPanel.Planned(RowsOf(plan));
  testing::TTestRun run;
  std::thread([&] { place.Execute(plan, run); }).join();
  FReport = run.Report;
  FReport.End = TDeployEnd::Done;
  FPanel.End(FReport, /*dryRun=*/false);
  EXPECT_EQ(Summary(), "Done: 2 copied (14 bytes).");
  EXPECT_EQ(TRemotePlace::Read(place.Target("x/b.dat")), "content");
}

TEST(DeployLogModel, IsAProperModelWhateverHappensToIt) {
  TDeployLogModel model(nullptr);
  TDeployLogFilter filter(nullptr);
  filter.setSourceModel(&model);
  using TMode = QAbstractItemModelTester::FailureReportingMode;
  const QAbstractItemModelTester tester(&model, TMode::Fatal);
  const QAbstractItemModelTester filterTester(&filter, TMode::Fatal);
  model.SetWaiting(ThreeRows());
  filter.SetFailedOnly(true);
  EXPECT_EQ(filter.rowCount(), 0);
  model.Finish({{1, Failed(ThreeRows()[1], "x")}, {7, ThreeRows()[0]}});
  EXPECT_EQ(filter.rowCount(), 1);
  EXPECT_EQ(model.DoneCount(), 1U);
  model.Finish({{1, ThreeRows()[1]}});
  EXPECT_EQ(model.DoneCount(), 1U);
  model.SetDone(ThreeRows());
  EXPECT_EQ(model.DoneCount(), 3U);
}

TEST(DeployLogModel, TellsOfManyRowsAtOnce) {
  TDeployLogModel model(nullptr);
  model.SetWaiting(ThreeRows());
  const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  model.Finish({{2, ThreeRows()[2]}, {0, ThreeRows()[0]}});
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
  EXPECT_EQ(changed[0][1].toModelIndex().row(), 2);
}

TEST(FailureAdvice, FitsTheReason) {
  const auto advice = [](const char* error) {
    return FailureAdvice(Failed(ThreeRows()[0], error)).toStdString();
  };
  EXPECT_EQ(advice("the run was interrupted"), "Deploy again to go on where it stopped.");
  EXPECT_TRUE(advice("/t/a.exe: Permission denied").starts_with("Check that the file can be read"));
  EXPECT_TRUE(advice("the local command \"make\" ended with 2").starts_with("Run the command by"));
  EXPECT_TRUE(advice("the local file /p/a.exe is missing").starts_with("Build the project"));
  EXPECT_TRUE(advice("something new").starts_with("Mend the cause, then deploy again"));
}

} // namespace
} // namespace workbench
