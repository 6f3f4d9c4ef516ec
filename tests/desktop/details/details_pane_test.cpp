#include "tests/desktop/target/deploy_now.h"
#include "workbench/desktop/details/details_pane.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTextBrowser>

namespace workbench {
namespace {

using namespace deployment::file_column;

using testing::Child;

class TDetailsTest : public testing::TDeployNowTest {
protected:
  void SelectRow(const QString& name, Qt::KeyboardModifiers modifiers = {}) {
    Click(Row(name, LocalName), modifiers);
    WaitForPane();
  }
  static void WaitForPane() {
    QTest::qWait(60);
    Settle();
  }
  std::string Facts() { return Child<QTextBrowser>(Window(), "facts").toPlainText().toStdString(); }
  QTableView& Matrix() { return Child<QTableView>(Window(), "platformMatrix"); }
  QModelIndex MatrixCell(const QString& platform, int column) {
    QAbstractItemModel& model = *Matrix().model();
    for (int row = 0; row < model.rowCount(); ++row) {
      if (model.headerData(row, Qt::Vertical, Qt::DisplayRole).toString() == platform)
        return model.index(row, column);
    }
    ADD_FAILURE() << "no platform " << platform.toStdString();
    return {};
  }
  void Edit(const QModelIndex& cell, const QString& text) {
    Matrix().setCurrentIndex(cell);
    Matrix().setFocus();
    QTest::keyClick(&Matrix(), Qt::Key_F2);
    auto* editor = Matrix().findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->setText(text);
    QTest::keyClick(editor, Qt::Key_Return);
    WaitForPane();
  }
  bool IsStarred() { return Window().isWindowModified(); }
};

TEST_F(TDetailsTest, StandBesideAListAndNotBesideTheFirstPage) {
  const auto isShown = [this] {
    return Window().findChild<TDetailsPane*>()->isVisibleTo(&Window());
  };
  EXPECT_FALSE(isShown());
  OpenExample();
  EXPECT_TRUE(isShown());
  QTest::keyClick(&Window(), Qt::Key_D, Qt::ControlModifier);
  EXPECT_FALSE(isShown());
  QTest::keyClick(&Window(), Qt::Key_D, Qt::ControlModifier);
  EXPECT_TRUE(isShown());
  emit Window().Tabs().tabCloseRequested(0);
  WaitForPane();
  EXPECT_EQ(Window().Tabs().count(), 0);
  EXPECT_FALSE(isShown());
}

TEST_F(TDetailsTest, AreHiddenAtTheNextStartWhenTheyWereHidden) {
  const auto isShown = [this] {
    return Window().findChild<TDetailsPane*>()->isVisibleTo(&Window());
  };
  OpenExample();
  QTest::keyClick(&Window(), Qt::Key_D, Qt::ControlModifier);
  EXPECT_TRUE(Window().close());
  Vanish();
  SetUpAgain();
  Window().Restore();
  Settle();
  ASSERT_EQ(Window().Tabs().count(), 1);
  EXPECT_FALSE(isShown());
  QTest::keyClick(&Window(), Qt::Key_D, Qt::ControlModifier);
  EXPECT_TRUE(isShown());
}

TEST_F(TDetailsTest, SayWhereAFileIsAndWhereItLands) {
  std::filesystem::create_directory(FRoot / "target");
  Host().RemoteProfiles().AddProfile(
      {.Name = "lab-pc", .Platform = "Win64", .Path = (FRoot / "target").string()});
  OpenExample();
  Project().AssignProfile("Win64", "lab-pc", false);
  WaitForPane();
  EXPECT_NE(Facts().find("Select files"), std::string::npos);
  SelectRow("levels.dat");
  EXPECT_NE(Facts().find((FRoot / "tide" / "data" / "levels.dat").string()), std::string::npos)
      << Facts();
  EXPECT_NE(Facts().find((FRoot / "target").string() + "/TideLogger/"), std::string::npos)
      << Facts();
  EXPECT_EQ(Facts().find("There is no such file now."), std::string::npos);
  std::filesystem::remove(FRoot / "tide" / "data" / "levels.dat");
  SelectRow("stations.json");
  SelectRow("levels.dat");
  EXPECT_NE(Facts().find("There is no such file now."), std::string::npos) << Facts();
}

TEST_F(TDetailsTest, SayWhyAFileIsInTheListAndLeaveTheListAlone) {
  OpenExample();
  const std::string before = Saved();
  const QString step = Menu("Undo")->text();
  SelectRow("calm-day.txt");
  QTest::mouseClick(&Child<QWidget>(Window(), "why"), Qt::LeftButton);
  WaitForPane();
  EXPECT_NE(Facts().find("Why it is in the list"), std::string::npos) << Facts();
  EXPECT_NE(Facts().find("it was added by hand"), std::string::npos) << Facts();
  EXPECT_FALSE(IsStarred());
  EXPECT_EQ(Menu("Undo")->text(), step);
  EXPECT_EQ(Saved(), before);
}

TEST_F(TDetailsTest, ADefaultEntryThatWasDeletedStaysDeletedWhenSomebodyAsksWhy) {
  OpenExample();
  const int rows = Tree().Model().rowCount();
  Project().Deployment().RemoveFilesOfClass("ProjectOutput");
  Settle();
  ASSERT_EQ(Tree().Model().rowCount(), rows - 1);
  const std::string after = Saved();
  SelectRow("calm-day.txt");
  QTest::mouseClick(&Child<QWidget>(Window(), "why"), Qt::LeftButton);
  WaitForPane();
  EXPECT_EQ(Tree().Model().rowCount(), rows - 1);
  EXPECT_EQ(Saved(), after);
}

TEST_F(TDetailsTest, ACellOfTheMatrixIsEditedAndCanBeUndone) {
  OpenExample();
  const std::string before = Saved();
  SelectRow("levels.dat");
  Edit(MatrixCell("Android", TPlatformMatrix::Directory), ".\\assets\\internal\\");
  EXPECT_TRUE(IsStarred());
  EXPECT_TRUE(Menu("Undo")->text().remove('&').startsWith("Undo: Directory for Android"))
      << Menu("Undo")->text().toStdString();
  EXPECT_EQ(MatrixCell("Android", TPlatformMatrix::Directory).data().toString(),
            ".\\assets\\internal\\");
  EXPECT_TRUE(
      QTest::qWaitFor([this] { return View().selectionModel()->selectedRows().size() == 1; }, 2000))
      << "the row stays selected";
  const std::string saved = Saved();
  EXPECT_NE(saved.find("assets\\internal"), std::string::npos);
  EXPECT_NE(saved, before);
  Choose("Undo");
  EXPECT_EQ(Saved(), before);
}

TEST_F(TDetailsTest, ABoxOfTheMatrixIsSwitchedByTheSpaceBar) {
  OpenExample();
  SelectRow("levels.dat");
  const QModelIndex cell = MatrixCell("Win64", TPlatformMatrix::Deployed);
  EXPECT_EQ(cell.data(Qt::CheckStateRole).toInt(), Qt::Checked);
  Matrix().setCurrentIndex(cell);
  Matrix().setFocus();
  QTest::keyClick(&Matrix(), Qt::Key_Space);
  WaitForPane();
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  EXPECT_TRUE(Matrix().hasFocus());
  QTest::keyClick(&Matrix(), Qt::Key_Space);
  WaitForPane();
  EXPECT_TRUE(IsChecked(Row("levels.dat")));
}

TEST_F(TDetailsTest, AnOperationIsChosenFromAList) {
  OpenExample();
  SelectRow("levels.dat");
  Matrix().setCurrentIndex(MatrixCell("Win64", TPlatformMatrix::Operation));
  Matrix().setFocus();
  QTest::keyClick(&Matrix(), Qt::Key_F2);
  auto* box = Matrix().findChild<QComboBox*>();
  ASSERT_TRUE(box);
  box->setCurrentIndex(1);
  emit box->activated(1);
  WaitForPane();
  EXPECT_EQ(MatrixCell("Win64", TPlatformMatrix::Operation).data().toString().toStdString(),
            "copy, executable");
  EXPECT_NE(Saved().find("<Operation>1</Operation>"), std::string::npos);
}

TEST_F(TDetailsTest, SeveralRowsShowWhatTheyShareAndChangeTogether) {
  OpenExample();
  const QString step = Menu("Undo")->text();
  SelectRow("levels.dat");
  SelectRow("stations.json", Qt::ControlModifier);
  EXPECT_NE(Facts().find("2 files are selected"), std::string::npos) << Facts();
  EXPECT_EQ(MatrixCell("Win64", TPlatformMatrix::Name).data().toString().toStdString(),
            "(different)");
  Edit(MatrixCell("Win64", TPlatformMatrix::Directory), "shared\\");
  EXPECT_EQ(Row("levels.dat", RemotePath).data().toString().toStdString(), "shared\\");
  EXPECT_EQ(Row("stations.json", RemotePath).data().toString().toStdString(), "shared\\");
  Choose("Undo");
  EXPECT_NE(Row("levels.dat", RemotePath).data().toString().toStdString(), "shared\\");
  EXPECT_EQ(Menu("Undo")->text(), step) << "both changes are one step";
}

TEST_F(TDetailsTest, ConditionAndRequiredAreEdited) {
  OpenExample();
  SelectRow("levels.dat");
  auto& condition = Child<QLineEdit>(Window(), "condition");
  condition.setFocus();
  QTest::keyClicks(&condition, "'$(Nightly)'==''");
  QTest::keyClick(&condition, Qt::Key_Return);
  WaitForPane();
  Child<QCheckBox>(Window(), "required").click();
  WaitForPane();
  EXPECT_TRUE(Child<QCheckBox>(Window(), "required").isChecked());
  const std::string saved = Saved();
  EXPECT_NE(saved.find("$(Nightly)"), std::string::npos);
  EXPECT_NE(saved.find("Required=\"true\""), std::string::npos);
}

TEST_F(TDetailsTest, ContentsAreComparedOnBothSides) {
  std::filesystem::create_directory(FRoot / "target");
  Host().RemoteProfiles().AddProfile(
      {.Name = "lab-pc", .Platform = "Win64", .Path = (FRoot / "target").string()});
  OpenExample();
  Project().AssignProfile("Win64", "lab-pc", false);
  Deploy();
  SelectRow("levels.dat");
  QTest::mouseClick(&Child<QWidget>(Window(), "compare"), Qt::LeftButton);
  WaitForPane();
  EXPECT_NE(Facts().find("Both contents are the same."), std::string::npos) << Facts();
  for (const auto& file :
       std::filesystem::recursive_directory_iterator(FRoot / "target" / "TideLogger")) {
    if (file.path().filename() == "levels.dat")
      Write(file.path(), "edited there");
  }
  QTest::mouseClick(&Child<QWidget>(Window(), "compare"), Qt::LeftButton);
  WaitForPane();
  EXPECT_NE(Facts().find("The one on the target was changed since the last deploy."),
            std::string::npos)
      << Facts();
}

TEST_F(TDetailsTest, EveryControlHasANameForThoseWhoListen) {
  OpenExample();
  SelectRow("levels.dat");
  const auto nameOf = [](QWidget& widget) {
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
    return interface ? interface->text(QAccessible::Name).toStdString() : std::string();
  };
  EXPECT_EQ(nameOf(Matrix()), "What the selected files say about each platform");
  EXPECT_EQ(nameOf(Child<QTextBrowser>(Window(), "facts")), "What is known of the selected files");
  EXPECT_EQ(nameOf(Child<QWidget>(Window(), "compare")), "Compare contents");
  EXPECT_EQ(nameOf(Child<QWidget>(Window(), "required")), "Required");
  const QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&Matrix());
  EXPECT_EQ(table->role(), QAccessible::Table);
  EXPECT_EQ(MatrixCell("Win64", TPlatformMatrix::Deployed)
                .data(Qt::AccessibleTextRole)
                .toString()
                .toStdString(),
            "Deployed, Win64");
}

} // namespace
} // namespace workbench
