#include "tests/desktop/support/dialog_script.h"
#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/deploy/deploy_observer.h"
#include "workbench/desktop/deploy/deploy_page.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/deploy/deploy_rows_model.h"
#include "workbench/desktop/text/deploy_words.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
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
using TColumn = TDeployRowsModel::TColumn;

std::vector<TDeployRow> ThreeRows() {
  return {{.LocalName = "a.exe", .RemoteFile = "/t/a.exe", .Bytes = 2048, .SizeHere = 2048},
          {.LocalName = "b.dat",
           .RemoteFile = "/t/b.dat",
           .Action = TDeployAction::Unchanged,
           .State = TFileState::Same},
          {.LocalName = "c.dat", .RemoteFile = "/t/c.dat", .Bytes = 1024, .SizeHere = 1024}};
}

TDeployRow Failed(TDeployRow row, const char* error) {
  row.Action = TDeployAction::Failed;
  row.Error = error;
  return row;
}

TDeployRow Conflict() {
  return {.LocalName = "fix.dat",
          .RemoteFile = "/t/fix.dat",
          .Action = TDeployAction::Refused,
          .State = TFileState::Conflict,
          .Reason = "it was changed on the target since it was deployed, and here, too",
          .SizeHere = 512};
}

class DeployPanel : public ::testing::Test {
protected:
  TDeployPage& Page() { return FPanel.Page(); }
  void Begin() {
    FCancelled = 0;
    Page().Begin({"/p/demo.vproj", {"Debug", "Win64"}}, FCancelled);
    FPanel.show();
  }
  void ShowPlan(std::vector<TDeployRow> rows) {
    Begin();
    TDeployReport report;
    report.Rows = std::move(rows);
    Page().ShowPlan(std::move(report), /*isOther=*/false);
  }
  // A run whose last file failed.
  void RunWithFailure(const char* error) {
    Begin();
    Page().Observer().Planned(ThreeRows());
    FReport.Rows = ThreeRows();
    FReport.Rows[2] = Failed(FReport.Rows[2], error);
    for (std::size_t i = 0; i < 3; ++i)
      Page().Observer().RowDone(i, FReport.Rows[i]);
    EndWith(TDeployEnd::Failed);
  }
  void EndWith(TDeployEnd end) {
    if (!FPanel.IsRunning())
      Begin();
    FReport.End = end;
    FReport.WasCarriedOut = end == TDeployEnd::Done || end == TDeployEnd::Failed;
    Page().End(FReport);
  }
  std::string Summary() const { return Child<QLabel>(FPanel, "summary").text().toStdString(); }
  std::string Status() const { return Child<QLabel>(FPanel, "status").text().toStdString(); }
  QTreeView& Log() const { return Child<QTreeView>(FPanel, "log"); }
  std::string Cell(int row, int column) const {
    return Log().model()->index(row, column).data().toString().toStdString();
  }
  bool IsShown(const QString& button) const {
    return testing::FindButton(FPanel, button)->isVisible();
  }

  std::atomic<int> FCancelled = 0;
  TDeployReport FReport;
  TDeployPanel FPanel;
};

TEST_F(DeployPanel, ShowsThePlanWithItsTicksAndTotals) {
  ShowPlan(ThreeRows());
  EXPECT_TRUE(FPanel.IsAsking());
  EXPECT_EQ(Child<QLabel>(FPanel, "title").text().toStdString(), "demo for Win64 – Debug");
  EXPECT_EQ(Summary(), "To copy: 2 (3.0 KiB). The same: 1.");
  EXPECT_EQ(Cell(0, TColumn::Action), "copy");
  EXPECT_EQ(Cell(1, TColumn::File), "c.dat");
  EXPECT_EQ(Cell(2, TColumn::Action), "same");
  EXPECT_TRUE(IsShown("Deploy"));
  EXPECT_FALSE(IsShown("Cancel"));
  EXPECT_FALSE(IsShown("Take Ours"));
  testing::ClickCheckBox(Log(), Log().model()->index(1, 0));
  EXPECT_EQ(Cell(1, TColumn::Action), "leave out");
  EXPECT_EQ(Summary(), "To copy: 1 (2.0 KiB). Left out: 1. The same: 1.");
}

TEST_F(DeployPanel, ConflictsComeFirstAndWantAChoice) {
  auto rows = ThreeRows();
  rows.push_back(Conflict());
  ShowPlan(rows);
  EXPECT_EQ(Cell(0, TColumn::File), "fix.dat");
  EXPECT_EQ(Cell(0, TColumn::Action), "conflict: choose");
  EXPECT_EQ(Cell(0, TColumn::State), "changed here and there");
  EXPECT_TRUE(Summary().starts_with("Changed by others on the target: 1 without a choice"))
      << Summary();
  Press(FPanel, "Keep Theirs");
  EXPECT_EQ(Cell(0, TColumn::Action), "keep theirs");
  Press(FPanel, "Take Ours");
  EXPECT_EQ(Cell(0, TColumn::Action), "copy over theirs");
  EXPECT_EQ(Summary(), "To copy: 3 (3.5 KiB). The same: 1.");
  QTest::keyClick(&Log(), Qt::Key_Space);
  EXPECT_EQ(Cell(0, TColumn::Action), "keep theirs");
}

TEST_F(DeployPanel, AFilterShowsTheRowsOfOneActionAlone) {
  ShowPlan(ThreeRows());
  auto& filter = Child<QComboBox>(FPanel, "filter");
  ASSERT_EQ(filter.count(), 3);
  EXPECT_EQ(filter.itemText(0).toStdString(), "All (3)");
  EXPECT_EQ(filter.itemText(1).toStdString(), "To copy (2)");
  filter.setFocus();
  QTest::keyClick(&filter, Qt::Key_End);
  ASSERT_EQ(Log().model()->rowCount(), 1);
  EXPECT_EQ(Cell(0, TColumn::File), "b.dat");
}

TEST_F(DeployPanel, ChoicesStayWhenThePlanIsMadeAnew) {
  auto rows = ThreeRows();
  rows.push_back(Conflict());
  ShowPlan(rows);
  Press(FPanel, "Take Ours");
  testing::ClickCheckBox(Log(), Log().model()->index(1, 0));
  ShowPlan(rows);
  EXPECT_EQ(Cell(0, TColumn::Action), "copy over theirs");
  EXPECT_EQ(Cell(1, TColumn::Action), "leave out");
  rows[3].SizeThere = 7; // changed again
  ShowPlan(rows);
  EXPECT_EQ(Cell(0, TColumn::Action), "conflict: choose");
}

TEST_F(DeployPanel, ShowsTheFilesAndBytesOfARunThatGoesOn) {
  Begin();
  EXPECT_TRUE(FPanel.isVisible());
  EXPECT_EQ(Summary(), "Comparing with the target\u2026");
  Page().Observer().Planned(ThreeRows());
  Page().Observer().BytesSent(2048);
  Page().Observer().RowDone(0, ThreeRows()[0]);
  Page().Observer().RowDone(1, ThreeRows()[1]);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Status().starts_with("2 of 3 files"); }));
  EXPECT_TRUE(Status().starts_with("2 of 3 files, 2.0 KiB of 3.0 KiB, ")) << Status();
  EXPECT_EQ(Summary(), "Deploying\u2026");
  EXPECT_EQ(Cell(0, TColumn::Action), "copied");
  EXPECT_EQ(Cell(1, TColumn::Action), "waiting");
  EXPECT_EQ(Cell(1, TColumn::Target), "/t/c.dat");
  EXPECT_EQ(Cell(2, TColumn::Action), "unchanged");
  Page().End(FReport);
}

TEST_F(DeployPanel, ACancelReadsAsCancelledAndNotAsFailed) {
  Begin();
  EXPECT_FALSE(FPanel.close());
  Press(FPanel, "Cancel");
  EXPECT_EQ(FCancelled, SIGINT);
  EXPECT_EQ(Summary(), "Cancelling\u2026");
  EXPECT_FALSE(testing::FindButton(FPanel, "Cancel")->isEnabled());
  FReport.Rows = {Failed(ThreeRows()[0], "the run was interrupted")};
  FReport.End = TDeployEnd::Interrupted;
  FReport.WasCarriedOut = true;
  Page().End(FReport);
  EXPECT_EQ(Summary(), "Cancelled: 0 copied, 1 cancelled (0 bytes). Deploy again to go on.");
  EXPECT_EQ(Cell(0, TColumn::Action), "cancelled");
}

TEST_F(DeployPanel, StaysUntilItIsClosedAndShowsTheSameAgain) {
  QSignalSpy closed(&FPanel, &TDeployPanel::Closed);
  Begin();
  EXPECT_FALSE(testing::FindButton(FPanel, "Close")->isEnabled());
  FReport.Rows = ThreeRows();
  EndWith(TDeployEnd::Done);
  EXPECT_EQ(Summary(), "Done: 2 copied, 1 unchanged (3.0 KiB).");
  Press(FPanel, "Close");
  EXPECT_FALSE(FPanel.isVisible());
  EXPECT_EQ(closed.count(), 1);
  FPanel.show();
  EXPECT_EQ(Cell(0, TColumn::Action), "copied");
  QTest::keyClick(&Log(), Qt::Key_Escape);
  EXPECT_FALSE(FPanel.isVisible());
}

TEST_F(DeployPanel, FailedFilesComeFirstAndCanBeRetried) {
  RunWithFailure("No space left on device");
  EXPECT_EQ(Summary(), "Files that failed: 1. In all: 1 copied, 1 unchanged, 1 failed (2.0 KiB). "
                       "Deploy again to repeat what failed.");
  EXPECT_EQ(Cell(0, TColumn::File), "c.dat");
  EXPECT_EQ(Cell(0, TColumn::Action), "failed");
  EXPECT_FALSE(Log().model()->index(0, TColumn::Action).data(Qt::DecorationRole).isNull());
  EXPECT_FALSE(Log().model()->index(0, 0).data(Qt::ForegroundRole).isNull());
  bool isConfirmed = false;
  QObject::connect(&Page(), &TDeployPage::DeployWanted, &Page(),
                   [&] { isConfirmed = Page().IsConfirmed(Page().Key()); });
  Press(FPanel, "Retry");
  EXPECT_TRUE(isConfirmed);
  EXPECT_FALSE(Page().IsConfirmed(Page().Key()));
  auto& filter = Child<QComboBox>(FPanel, "filter");
  QTest::keyClick(&filter, Qt::Key_Down);
  ASSERT_EQ(Log().model()->rowCount(), 1);
  Press(FPanel, "Copy as Text");
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
            "demo for Win64 – Debug\n" + Summary() +
                "\nfailed\tc.dat\t/t/c.dat\tNo space left on device\n");
}

TEST_F(DeployPanel, ExplainsAFailedFileAndWhatToDoNext) {
  RunWithFailure("No space left on device");
  QString text;
  OnNextDialog([&](QDialog& dialog) {
    const auto& box = dynamic_cast<QMessageBox&>(dialog);
    text = box.text() + "|" + box.informativeText();
  });
  Log().setFocus();
  QTest::keyClick(&Log(), Qt::Key_Return);
  EXPECT_EQ(text.toStdString(), "c.dat was not deployed: No space left on device|It belongs to "
                                "/t/c.dat.\n\nMake room on the target, then deploy again.");
}

TEST_F(DeployPanel, SaysWhyNothingWasDone) {
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

TEST_F(DeployPanel, SaysThatTheConnectionWasLostOnTheWay) {
  FReport.Message = "the machine does not answer";
  RunWithFailure("the machine does not answer");
  EXPECT_TRUE(
      Summary().starts_with("The connection was lost: the machine does not answer. In all:"))
      << Summary();
}

TEST_F(DeployPanel, ShowsWhatCommandsPrint) {
  Begin();
  const auto& output = Child<QPlainTextEdit>(FPanel, "output");
  EXPECT_FALSE(output.isVisible());
  Page().Observer().CommandSaid("linking\x07");
  EndWith(TDeployEnd::Done);
  EXPECT_TRUE(output.isVisible());
  EXPECT_EQ(output.toPlainText(), "linking\\x07");
}

TEST_F(DeployPanel, KeepsTheWindowAliveUnderTenThousandFiles) {
  constexpr std::size_t Count = 10000;
  std::vector<TDeployRow> rows(Count, ThreeRows()[0]);
  Begin();
  Page().Observer().Planned(rows);
  std::atomic<bool> done = false;
  std::thread worker([&] {
    for (std::size_t i = 0; i < Count; ++i) {
      Page().Observer().BytesSent(rows[i].Bytes);
      Page().Observer().RowDone(i, rows[i]);
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
  EndWith(TDeployEnd::Done);
}

TEST_F(DeployPanel, ShowsARealDeploy) {
  const TRemotePlace place;
  const TDeployPlan plan =
      place.Plan({place.File("a.dat", "a.dat"), place.File("b.dat", "x/b.dat")});
  Begin();
  Page().Observer().Planned(RowsOf(plan));
  testing::TTestRun run;
  std::thread([&] { place.Execute(plan, run); }).join();
  FReport = run.Report;
  EndWith(TDeployEnd::Done);
  EXPECT_EQ(Summary(), "Done: 2 copied (14 bytes).");
  EXPECT_EQ(TRemotePlace::Read(place.Target("x/b.dat")), "content");
}

TEST_F(DeployPanel, EveryControlHasANameAndARoleForScreenReaders) {
  auto rows = ThreeRows();
  rows.push_back(Conflict());
  ShowPlan(rows);
  int controls = 0;
  for (QWidget* widget : FPanel.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus)
      continue;
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    ASSERT_NE(interface, nullptr);
    EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty())
        << widget->objectName().toStdString() << " " << widget->metaObject()->className();
    EXPECT_NE(interface->role(), QAccessible::NoRole);
    ++controls;
  }
  EXPECT_GT(controls, 6);
  EXPECT_EQ(Log().model()->index(0, 0).data(Qt::AccessibleTextRole).toString().toStdString(),
            "fix.dat, conflict: choose");
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
