// What the window says of changes that nobody made by hand.
#include "tests/desktop/window/window_fixture.h"
#include "workbench/desktop/notices/difference_dialog.h"
#include "workbench/desktop/notices/project_notices.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

namespace workbench {
namespace {

using namespace deployment::file_column;

class TWindowNotices : public testing::TWindowTest {
protected:
  TNoticeStrip* Strip(const char* subject = "reconcile") {
    TNoticeBox* box = Window().Notices().BoxOf(Project());
    return box ? box->Find(subject) : nullptr;
  }
  std::string StripText(const char* subject = "reconcile") {
    return Strip(subject) ? Strip(subject)->Text().toStdString() : std::string();
  }
  void PressInStrip(const QString& text) {
    ASSERT_NE(Strip(), nullptr);
    QTest::mouseClick(testing::FindButton(*Strip(), text), Qt::LeftButton);
    Settle();
  }
  // The rows of the difference, one text for each.
  std::vector<std::string> Difference() {
    std::vector<std::string> rows;
    testing::OnNextDialog([&rows](QDialog& dialog) {
      const auto* table = dialog.findChild<QTableView*>();
      ASSERT_NE(table, nullptr);
      for (int row = 0; row < table->model()->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->model()->columnCount(); ++column)
          cells += table->model()->index(row, column).data().toString();
        rows.push_back(cells.join("|").toStdString());
      }
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    PressInStrip("Show");
    return rows;
  }
  bool HasRow(const std::vector<std::string>& rows, const std::string& part) {
    return std::ranges::any_of(
        rows, [&](const std::string& row) { return row.find(part) != std::string::npos; });
  }
};

TEST_F(TWindowNotices, OpeningTellsWhatTheReconcileOfTheFirstTargetDid) {
  OpenExample();
  EXPECT_EQ(StripText(), "Reconciled for Win64 – Debug: 3 added");
  EXPECT_TRUE(Strip()->isVisible());
  const std::vector<std::string> rows = Difference();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows.front(),
            "Added|packages\\Win64\\TideTables.vpk|DependencyPackage|Debug, Win64|the step "
            "\"runtime packages\" adds it as \"DependencyPackage\": the list of runtime packages "
            "names \"TideTables.vpk\"");
}

TEST_F(TWindowNotices, UndoTakesTheReconcileOfTheFirstTargetBack) {
  OpenExample();
  const int rows = Tree().Model().rowCount();
  PressInStrip("Undo");
  EXPECT_EQ(Tree().Model().rowCount(), rows - 3);
  EXPECT_EQ(Strip(), nullptr);
  EXPECT_FALSE(Window().isWindowModified());
  Choose("Redo");
  EXPECT_EQ(Tree().Model().rowCount(), rows);
}

TEST_F(TWindowNotices, AChoiceOfTargetTellsAlsoWhatItTookFromOthersAndWhy) {
  OpenExample();
  Window().ChooseTarget("Debug", "Android");
  Settle();
  EXPECT_EQ(StripText(), "Reconciled for Android – Debug: 11 added, 2 removed");
  const std::vector<std::string> rows = Difference();
  ASSERT_EQ(rows.size(), 13U);
  EXPECT_EQ(rows.front().substr(0, 61),
            "Removed|Win64\\Debug\\TideLogger.vcp|DebugSymbols|Debug, Win64|");
  EXPECT_TRUE(HasRow(rows, "the option \"RemoteDebugSymbols\" is \"false\"; it is switched off"));
  PressInStrip("Undo");
  Window().ChooseTarget("Debug", "Win64");
  EXPECT_TRUE(Row("TideLogger.vcp").isValid());
}

TEST_F(TWindowNotices, UndoOfAStripThatIsNotTheLastStepSaysWhyItCannot) {
  OpenExample();
  ClickCheck(Row("levels.dat"));
  Settle();
  auto* undo = testing::FindButton(*Strip(), "Undo");
  EXPECT_FALSE(undo->isEnabled());
  EXPECT_EQ(undo->toolTip().toStdString(), "Other steps were done since; undo them first.");
  Choose("Undo");
  EXPECT_TRUE(undo->isEnabled());
  Choose("Undo");
  EXPECT_EQ(Strip(), nullptr);
}

TEST_F(TWindowNotices, ATargetThatChangesNothingSaysNothing) {
  OpenExample();
  Saved();
  Choose("Close");
  OpenExample();
  EXPECT_EQ(Strip(), nullptr);
}

TEST_F(TWindowNotices, AStripAndItsButtonsAreReadOut) {
  OpenExample();
  ASSERT_NE(Strip(), nullptr);
  const auto interfaceOf = [](QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
  };
  EXPECT_EQ(interfaceOf(Strip())->text(QAccessible::Name).toStdString(),
            "Reconciled for Win64 – Debug: 3 added");
  std::vector<std::string> names;
  for (QAbstractButton* button : Strip()->findChildren<QAbstractButton*>()) {
    EXPECT_EQ(interfaceOf(button)->role(), QAccessible::Button);
    names.push_back(interfaceOf(button)->text(QAccessible::Name).toStdString());
  }
  EXPECT_EQ(names, (std::vector<std::string>{"Show", "Undo", "Close the notice"}));
  const QAccessibleInterface* text = interfaceOf(Strip()->findChildren<QLabel*>().front());
  EXPECT_EQ(text->role(), QAccessible::StaticText);
}

TEST_F(TWindowNotices, AStripCanBeClosedAndNeedsNoAnswer) {
  OpenExample();
  QTest::mouseClick(Strip()->findChild<QToolButton*>(), Qt::LeftButton);
  Settle();
  EXPECT_EQ(Strip(), nullptr);
  EXPECT_FALSE(Window().Notices().BoxOf(Project())->isVisible());
}

TEST_F(TWindowNotices, AListOfAnOlderVersionIsNamed) {
  std::filesystem::copy(std::filesystem::current_path() / "examples" / "sky-chart", FRoot / "sky",
                        std::filesystem::copy_options::recursive);
  ASSERT_TRUE(Window().Open(FRoot / "sky" / "SkyChart.vproj"));
  Settle();
  EXPECT_EQ(StripText("upgrade"), "The file holds a list of an older version. It is shown as one "
                                  "of today's; the next save writes it so.");
  Choose("Save");
  Choose("Close");
  ASSERT_TRUE(Window().Open(FRoot / "sky" / "SkyChart.vproj"));
  EXPECT_EQ(Strip("upgrade"), nullptr);
}

// Steps are named by what they did, to which file, and where.
TEST_F(TWindowNotices, EachStepOfUndoNamesWhatItDidAndWhere) {
  OpenExample();
  const auto undoName = [this] { return Menu("Undo")->text().remove('&').toStdString(); };
  Click(Row("levels.dat", RemotePath));
  QTest::keyClick(&View(), Qt::Key_F2);
  auto* combo = View().viewport()->findChild<QComboBox*>();
  ASSERT_NE(combo, nullptr);
  combo->lineEdit()->selectAll();
  QTest::keyClicks(combo, "sea\\");
  Choose("Select All");
  EXPECT_EQ(undoName(), "Undo: Remote Path of levels.dat (Win64 – Debug)");
  PressButton("tbUncheckSelection");
  EXPECT_NE(undoName().find(" file(s) (Win64 – Debug)"), std::string::npos) << undoName();
  Click(Row("levels.dat", LocalName));
  ClickCheck(Row("levels.dat"));
  Settle();
  EXPECT_EQ(undoName(), "Undo: Tick levels.dat (Win64 – Debug)");
  AnswerNext("Yes");
  PressButton("tbDeleteFile");
  EXPECT_EQ(undoName(), "Undo: Delete Selected Files: levels.dat (Win64 – Debug)");
}

} // namespace
} // namespace workbench
