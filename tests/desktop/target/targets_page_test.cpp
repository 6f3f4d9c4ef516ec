#include "tests/desktop/target/deploy_now.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <map>
#include <string>

namespace workbench {
namespace {

using testing::Child;

class TTargetsTest : public testing::TDeployNowTest {
protected:
  // Two folders, of which one has what the example deploys.
  void MakeTargets() {
    for (const char* name : {"near", "far"}) {
      std::filesystem::create_directory(FRoot / name);
      Host().RemoteProfiles().AddProfile(
          {.Name = name, .Platform = "Win64", .Path = (FRoot / name).string()});
    }
    Host().RemoteProfiles().AddToGroup("field", {"far"});
    OpenExample();
    Project().AssignProfile("Win64", "near", false);
    Window().ChooseTarget("Debug", "Win64");
    Deploy();
    Settle();
  }
  QTableView& Table() { return Child<QTableView>(Window(), "targets"); }
  QListWidget& Profiles() { return Child<QListWidget>(Window(), "profiles"); }
  std::string Summary() { return Child<QLabel>(Window(), "targetsSummary").text().toStdString(); }
  void PressCompare() {
    QTest::mouseClick(&Child<QPushButton>(Window(), "compareTargets"), Qt::LeftButton);
    Settle();
  }
  void Compare() {
    Choose("Compare Targets");
    PressCompare();
  }
  // What a column says of each file.
  std::map<std::string, std::string> Column(int column) {
    std::map<std::string, std::string> cells;
    for (int row = 0; row < Table().model()->rowCount(); ++row)
      cells[Table().model()->index(row, 0).data().toString().toStdString()] =
          Table().model()->index(row, column).data().toString().toStdString();
    return cells;
  }
};

TEST_F(TTargetsTest, AreComparedSideBySideWhileOneGoesOnWorking) {
  MakeTargets();
  Compare();
  ASSERT_EQ(Table().model()->columnCount(), 3);
  EXPECT_EQ(Table().model()->headerData(1, Qt::Horizontal).toString(), "near");
  EXPECT_EQ(Column(1)["data\\levels.dat"], "same");
  EXPECT_EQ(Column(2)["data\\levels.dat"], "new");
  EXPECT_NE(Summary().find("far: "), std::string::npos) << Summary();
  const int rows = Table().model()->rowCount();
  ClickCheck(Row("levels.dat"));
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  EXPECT_TRUE(Table().isVisible());
  ClickCheck(Row("levels.dat"));
  auto& groups = Child<QComboBox>(Window(), "groups");
  groups.setFocus();
  QTest::keyClick(&groups, Qt::Key_Down);
  PressCompare();
  ASSERT_EQ(Table().model()->columnCount(), 2);
  EXPECT_EQ(Table().model()->headerData(1, Qt::Horizontal).toString(), "far");
  EXPECT_EQ(Table().model()->rowCount(), rows);
}

TEST_F(TTargetsTest, ShowOnlyWhatDiffersAndWhichOneCannotBeAsked) {
  MakeTargets();
  std::filesystem::remove_all(FRoot / "far");
  Compare();
  EXPECT_EQ(Column(2)["data\\levels.dat"], "–");
  EXPECT_NE(Summary().find("far: "), std::string::npos) << Summary();
  const int rows = Table().model()->rowCount();
  auto& differences = Child<QCheckBox>(Window(), "differences");
  QTest::mouseClick(&differences, Qt::LeftButton, {}, QPoint(8, differences.height() / 2));
  EXPECT_LT(Table().model()->rowCount(), rows);
}

TEST_F(TTargetsTest, AreWorkedByKeysAloneAndLeadToTheEntry) {
  MakeTargets();
  QTest::keyClick(&View(), Qt::Key_T, Qt::ControlModifier);
  Settle();
  auto& compare = Child<QPushButton>(Window(), "compareTargets");
  ASSERT_EQ(QApplication::focusWidget(), &compare);
  QTest::keyClick(&compare, Qt::Key_Space);
  ASSERT_EQ(QApplication::focusWidget(), &Table());
  const auto found =
      Table().model()->match(Table().model()->index(0, 0), Qt::DisplayRole, "data\\levels.dat");
  ASSERT_EQ(found.size(), 1);
  Table().setCurrentIndex(found.front());
  QTest::keyClick(&Table(), Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), &View());
  EXPECT_EQ(View().currentIndex().row(), Row("levels.dat").row());
  QTest::keyClick(&compare, Qt::Key_Escape);
  EXPECT_FALSE(Window().Panel().isVisible());
}

TEST_F(TTargetsTest, FollowTheTargetInFrontAndKeepTheirAnswers) {
  MakeTargets();
  Compare();
  Window().ChooseTarget("Release", "Win64");
  Settle();
  EXPECT_FALSE(Table().isVisible());
  EXPECT_EQ(Summary(), "Asks every ticked target; nothing is copied");
  Window().ChooseTarget("Debug", "Android");
  Settle();
  EXPECT_EQ(Profiles().count(), 0);
  EXPECT_FALSE(Child<QPushButton>(Window(), "compareTargets").isEnabled());
  EXPECT_NE(Summary().find("no profile for this platform"), std::string::npos) << Summary();
  Window().ChooseTarget("Debug", "Win64");
  Settle();
  EXPECT_TRUE(Table().isVisible());
  EXPECT_EQ(Column(1)["data\\levels.dat"], "same");
}

TEST_F(TTargetsTest, KeepTheirTicksWhenAProfileComes) {
  MakeTargets();
  Choose("Compare Targets");
  Profiles().item(0)->setCheckState(Qt::Unchecked);
  const QString unticked = Profiles().item(0)->text();
  Host().RemoteProfiles().AddProfile(
      {.Name = "third", .Platform = "Win64", .Path = (FRoot / "near").string()});
  ASSERT_TRUE(QTest::qWaitFor([this] { return Profiles().count() == 3; }, 10000));
  for (int row = 0; row < 3; ++row)
    EXPECT_EQ(Profiles().item(row)->checkState() == Qt::Checked,
              Profiles().item(row)->text() != unticked);
}

TEST_F(TTargetsTest, AreNotAskedAnyMoreOnceStopped) {
  MakeTargets();
  for (int i = 0; i < 60; ++i)
    Host().RemoteProfiles().AddProfile({.Name = "more" + std::to_string(i),
                                        .Platform = "Win64",
                                        .Path = (FRoot / "near").string()});
  Choose("Compare Targets");
  QTimer::singleShot(0, &Window(), [this] {
    auto& button = Child<QPushButton>(Window(), "compareTargets");
    EXPECT_EQ(button.text().remove('&'), "Stop");
    QTest::mouseClick(&button, Qt::LeftButton);
  });
  PressCompare();
  EXPECT_NE(Summary().find("was not asked"), std::string::npos) << Summary();
}

TEST_F(TTargetsTest, AreReadOutByName) {
  MakeTargets();
  Compare();
  const auto nameOf = [](QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
  };
  EXPECT_EQ(nameOf(Profiles()), "Profiles");
  EXPECT_EQ(nameOf(Table()), "Files on each target");
  EXPECT_EQ(nameOf(Child<QLabel>(Window(), "targetsSummary")), "State of the targets");
  // A box is read out by what it says; its name is a relation.
  EXPECT_EQ(Child<QComboBox>(Window(), "groups").accessibleName(), "Group of profiles");
}

} // namespace
} // namespace workbench
