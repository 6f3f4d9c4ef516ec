#include "tests/desktop/window/window_fixture.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QToolButton>

namespace workbench {
namespace {

using namespace deployment::file_column;

using testing::OnNextDialog;
using testing::Press;

class TWindowEditing : public testing::TWindowTest {
protected:
  // The element of a file in the saved project.
  static std::string EntryOf(const std::string& project, const std::string& localName) {
    const auto start = project.find("<DeployFile LocalName=\"" + localName + "\"");
    return start == std::string::npos
               ? std::string()
               : project.substr(start, project.find("</DeployFile>", start) - start);
  }
  // The part of an entry that is about a platform.
  static std::string PlatformOf(const std::string& entry, const std::string& platform) {
    const auto start = entry.find("<Platform Name=\"" + platform + "\"");
    return start == std::string::npos
               ? std::string()
               : entry.substr(start, entry.find("</Platform>", start) - start);
  }
  template <class TEditor>
  TEditor* Editor() {
    return View().viewport()->findChild<TEditor*>();
  }
};

TEST_F(TWindowEditing, ShowsTheFilesOfTheTargetWithTheColumnsOfTheView) {
  OpenExample();
  const QAbstractItemModelTester tester(&Tree().Model(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  EXPECT_EQ(Window().Tabs().tabText(0).toStdString(), "Deployment TideLogger");
  EXPECT_EQ(Tree().Model().rowCount(), 8);
  EXPECT_EQ(Tree().Model().headerData(5, Qt::Horizontal, Qt::DisplayRole).toString(),
            "Remote Path");
  EXPECT_EQ(Cell(Row("stations.json").row(), RemoteName), "my-stations.json");
  EXPECT_EQ(Cell(0, RemoteStatus), "Not Connected");
}

TEST_F(TWindowEditing, AClickOnACheckBoxSwitchesTheFileOffForAllItsPlatforms) {
  OpenExample();
  const QModelIndex row = Row("levels.dat");
  ASSERT_TRUE(IsChecked(row));
  ClickCheck(row);
  EXPECT_FALSE(IsChecked(row));
  const std::string entry = EntryOf(Saved(), "data\\levels.dat");
  for (const char* platform : {"Win32", "Win64", "Android"})
    EXPECT_NE(PlatformOf(entry, platform).find("<Enabled>false</Enabled>"), std::string::npos)
        << platform;
  EXPECT_EQ(Window().Tabs().tabText(0), "Deployment TideLogger");
}

TEST_F(TWindowEditing, SpaceSwitchesTheBoxesOfAllSelectedRows) {
  OpenExample();
  Click(Row("levels.dat", RemoteStatus));
  Click(Row("stations.json", RemoteStatus), Qt::ControlModifier);
  QTest::keyClick(&View(), Qt::Key_Space);
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  EXPECT_FALSE(IsChecked(Row("stations.json")));
  EXPECT_TRUE(IsChecked(Row("calm-day.txt")));
  QTest::keyClick(&View(), Qt::Key_Space);
  EXPECT_TRUE(IsChecked(Row("levels.dat")));
}

TEST_F(TWindowEditing, ASecondClickEditsTheRemoteNameAndEnterKeepsIt) {
  OpenExample();
  const QModelIndex cell = Row("levels.dat", RemoteName);
  Click(cell);
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  Click(cell);
  ASSERT_TRUE(QTest::qWaitFor([this] { return Editor<QComboBox>() != nullptr; }));
  auto* combo = Editor<QComboBox>();
  EXPECT_EQ(combo->currentText(), "levels.dat");
  EXPECT_EQ(combo->count(), 1);
  combo->lineEdit()->selectAll();
  QTest::keyClicks(combo, "tides.dat");
  QTest::keyClick(combo, Qt::Key_Return);
  Settle();
  EXPECT_EQ(Cell(cell.row(), RemoteName), "tides.dat");
  const std::string entry = EntryOf(Saved(), "data\\levels.dat");
  EXPECT_NE(PlatformOf(entry, "Win64").find("<RemoteName>tides.dat<"), std::string::npos);
  EXPECT_EQ(PlatformOf(entry, "Win32").find("tides.dat"), std::string::npos);
}

TEST_F(TWindowEditing, EscapeLeavesTheCellAsItWas) {
  OpenExample();
  const std::string before = Saved();
  Click(Row("levels.dat", RemoteName));
  QTest::keyClick(&View(), Qt::Key_F2);
  QTest::keyClicks(Editor<QComboBox>(), "other");
  QTest::keyClick(Editor<QComboBox>(), Qt::Key_Escape);
  EXPECT_EQ(Cell(Row("levels.dat").row(), RemoteName), "levels.dat");
  EXPECT_FALSE(Project().HasChanges());
  EXPECT_EQ(Saved(), before);
}

TEST_F(TWindowEditing, AnEditorThatIsLeftWithTheSameTextChangesNothing) {
  OpenExample();
  Saved();
  Click(Row("levels.dat", RemoteName));
  QTest::keyClick(&View(), Qt::Key_F2);
  QTest::keyClick(Editor<QComboBox>(), Qt::Key_Return);
  Settle();
  EXPECT_FALSE(Project().HasChanges());
}

TEST_F(TWindowEditing, RemotePathsThatWereEnteredAreOfferedAgain) {
  OpenExample();
  Click(Row("levels.dat", RemotePath));
  QTest::keyClick(&View(), Qt::Key_F2);
  Editor<QComboBox>()->lineEdit()->selectAll();
  QTest::keyClicks(Editor<QComboBox>(), "tables\\");
  QTest::keyClick(Editor<QComboBox>(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(Cell(Row("levels.dat").row(), RemotePath), "tables\\");
  Settle();
  Click(Row("stations.json", RemotePath));
  QTest::keyClick(&View(), Qt::Key_F2);
  ASSERT_NE(Editor<QComboBox>(), nullptr);
  EXPECT_EQ(Editor<QComboBox>()->itemText(0), "tables\\");
}

TEST_F(TWindowEditing, OverwriteIsChosenFromAlwaysAndNever) {
  OpenExample();
  Click(Row("levels.dat", Overwrite));
  QTest::keyClick(&View(), Qt::Key_F2);
  auto* combo = Editor<QComboBox>();
  ASSERT_EQ(combo->count(), 2);
  EXPECT_EQ(combo->itemText(1), "Never");
  QTest::keyClick(combo, Qt::Key_Down);
  QTest::keyClick(combo, Qt::Key_Return);
  Settle();
  EXPECT_EQ(Cell(Row("levels.dat").row(), Overwrite), "Never");
  EXPECT_NE(PlatformOf(EntryOf(Saved(), "data\\levels.dat"), "Win64").find("Overwrite>false"),
            std::string::npos);
}

TEST_F(TWindowEditing, TheButtonInThePlatformsCellOpensTheirDialog) {
  OpenExample();
  Click(Row("levels.dat", Platforms));
  QTest::keyClick(&View(), Qt::Key_F2);
  auto* edit = Editor<QLineEdit>();
  ASSERT_NE(edit, nullptr);
  OnNextDialog([](QDialog& dialog) {
    auto* list = dialog.findChild<QAbstractItemView*>();
    ASSERT_NE(list, nullptr);
    for (int row = 0; row < list->model()->rowCount(); ++row) {
      const QModelIndex index = list->model()->index(row, 0);
      if (index.data().toString() == "OSX32")
        testing::ClickCheckBox(*list, index);
    }
    Press(dialog, "OK");
  });
  QTest::mouseClick(edit->findChild<QToolButton*>(), Qt::LeftButton);
  Settle();
  EXPECT_EQ(Cell(Row("levels.dat").row(), Platforms), "[Win32,Win64,OSX32,Android]");
  EXPECT_FALSE(PlatformOf(EntryOf(Saved(), "data\\levels.dat"), "OSX32").empty());
}

TEST_F(TWindowEditing, LeftAndRightMoveToTheCellThatF2Edits) {
  OpenExample();
  Click(Row("levels.dat", RemotePath));
  QTest::keyClick(&View(), Qt::Key_Right);
  EXPECT_EQ(View().currentIndex().column(), RemoteName);
  QTest::keyClick(&View(), Qt::Key_Left);
  QTest::keyClick(&View(), Qt::Key_Left);
  EXPECT_EQ(View().currentIndex().column(), Platforms);
  Click(Row("levels.dat", LocalName));
  QTest::keyClick(&View(), Qt::Key_F2);
  EXPECT_EQ(View().currentIndex().column(), Platforms);
}

TEST_F(TWindowEditing, AClickOnAHeaderSortsAndTheNextOneSortsDownwards) {
  OpenExample();
  const auto click = [this](int column, Qt::MouseButton button = Qt::LeftButton) {
    auto* header = View().header();
    QTest::mouseClick(header->viewport(), button, {},
                      QPoint(header->sectionViewportPosition(column) + 20, header->height() / 2));
  };
  const std::string first = Cell(0, LocalName);
  click(LocalName, Qt::RightButton);
  EXPECT_EQ(Cell(0, LocalName), first);
  click(LocalName);
  EXPECT_EQ(Cell(0, LocalName), "calm-day.txt");
  EXPECT_EQ(View().header()->sortIndicatorSection(), LocalName);
  EXPECT_EQ(View().header()->sortIndicatorOrder(), Qt::AscendingOrder);
  click(LocalName);
  EXPECT_EQ(Cell(Tree().Model().rowCount() - 1, LocalName), "calm-day.txt");
  EXPECT_EQ(View().header()->sortIndicatorOrder(), Qt::DescendingOrder);
  EXPECT_EQ(View().header()->sortIndicatorSection(), LocalName);
}

TEST_F(TWindowEditing, ADoubleClickOnTheEdgeOfAHeaderFitsTheColumn) {
  OpenExample();
  auto* header = View().header();
  header->resizeSection(LocalName, 40);
  QTest::mouseDClick(
      header->viewport(), Qt::LeftButton, {},
      QPoint(header->sectionViewportPosition(LocalName) + header->sectionSize(LocalName) - 1,
             header->height() / 2));
  EXPECT_GT(header->sectionSize(LocalName), 80);
}

TEST_F(TWindowEditing, RowsWithoutALocalFileAreDimmed) {
  std::filesystem::remove(FRoot / "tide" / "data" / "levels.dat");
  OpenExample();
  EXPECT_TRUE(Row("levels.dat").data(Qt::ForegroundRole).isValid());
  EXPECT_FALSE(Row("stations.json").data(Qt::ForegroundRole).isValid());
}

TEST_F(TWindowEditing, TypingSearchesTheColumnWithTheFocus) {
  OpenExample();
  Click(Row("TideLogger.dll", LocalName));
  QTest::keyClicks(&View(), "stat");
  EXPECT_EQ(View().currentIndex().data().toString(), "stations.json");
}

TEST_F(TWindowEditing, CopiesTheSelectedRowsAsText) {
  OpenExample();
  Click(Row("stations.json", LocalName));
  Choose("Copy Rows");
  const QStringList lines = QApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0].split('\t').size(), 9);
  EXPECT_EQ(lines[1].split('\t')[6].toStdString(), "my-stations.json");
}

TEST_F(TWindowEditing, CheckAllKeepsTheSelection) {
  OpenExample();
  Click(Row("levels.dat", LocalName));
  PressButton("tbUncheckAll");
  EXPECT_FALSE(IsChecked(Row("TideLogger.dll")));
  EXPECT_TRUE(View().selectionModel()->isSelected(Row("levels.dat")));
  EXPECT_EQ(View().selectionModel()->selectedRows().size(), 1);
  PressButton("tbCheckAll");
  EXPECT_TRUE(IsChecked(Row("TideLogger.dll")));
}

TEST_F(TWindowEditing, CommandsForSelectedRowsWaitForASelection) {
  OpenExample();
  View().clearSelection();
  Settle();
  EXPECT_FALSE(Button("tbCheckSelection")->isEnabled());
  Click(Row("levels.dat", LocalName));
  Settle();
  EXPECT_TRUE(Button("tbCheckSelection")->isEnabled());
}

TEST_F(TWindowEditing, DeleteAsksAndTakesTheUsersFilesOut) {
  OpenExample();
  Click(Row("calm-day.txt", LocalName));
  Settle();
  std::string said;
  AnswerNext("Yes", &said);
  QTest::keyClick(&View(), Qt::Key_Delete);
  Settle();
  EXPECT_NE(said.find("Are you sure you want to delete file \""), std::string::npos);
  EXPECT_EQ(Tree().Model().rowCount(), 7);
  EXPECT_EQ(EntryOf(Saved(), "data\\samples\\calm-day.txt"), "");
}

TEST_F(TWindowEditing, FilesThatAreDroppedJoinTheListOnce) {
  OpenExample();
  Write(FRoot / "tide" / "data" / "new.bin", "x");
  const QString file = QString::fromStdString((FRoot / "tide" / "data" / "new.bin").string());
  emit View().FilesDropped({file});
  emit View().FilesDropped({file});
  EXPECT_EQ(Tree().Model().rowCount(), 9);
  EXPECT_EQ(Cell(Row("new.bin").row(), Platforms), "[Win64]");
  EXPECT_FALSE(EntryOf(Saved(), "data\\new.bin").empty());
}

TEST_F(TWindowEditing, AnotherTargetIsChosenInItsBox) {
  OpenExample();
  auto& box = Window().CurrentControls()->TargetsComboBox()->Box();
  EXPECT_EQ(box.currentText().toStdString(), "Win64 – Debug");
  const int row = box.findText("Android – Release");
  ASSERT_GE(row, 0);
  box.setFocus();
  while (box.currentIndex() != row)
    QTest::keyClick(&box, box.currentIndex() < row ? Qt::Key_Down : Qt::Key_Up);
  Settle();
  EXPECT_EQ(Cell(Row("levels.dat").row(), Platforms), "[Win32,Win64,Android]");
  EXPECT_EQ(Cell(Row("libTideLogger.so").row(), RemotePath), "library\\lib\\armeabi-v7a\\");
}

} // namespace
} // namespace workbench
