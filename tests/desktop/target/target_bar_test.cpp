#include "tests/desktop/target/deploy_now.h"
#include "workbench/desktop/controls/elided_label.h"
#include "workbench/desktop/target/state_chips.h"
#include "workbench/desktop/target/target_bar.h"

#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <set>

namespace workbench {
namespace {

using namespace deployment::file_column;

using testing::Child;

class TTargetBarTest : public testing::TDeployNowTest {
protected:
  // The example with a target that has all of its files but one.
  void Deployed() {
    std::filesystem::create_directory(FRoot / "target");
    Host().RemoteProfiles().AddProfile(
        {.Name = "lab-pc", .Platform = "Win64", .Path = (FRoot / "target").string()});
    OpenExample();
    Project().AssignProfile("Win64", "lab-pc", false);
    Deploy();
    std::filesystem::remove(FRoot / "target" / "TideLogger" / "TideTables.de");
    PressButton("tbConnect");
    EXPECT_TRUE(QTest::qWaitFor([this] { return Cell(0, RemoteStatus) == "Same"; }, 10000));
    Settle();
  }
  QWidget& Page() { return *Window().CurrentControls()->Page(); }
  std::string Profile() {
    return Child<TElidedLabel>(Page(), "targetProfile").Text().toStdString();
  }
  std::string Connection() {
    return Child<TElidedLabel>(Page(), "connection").Text().toStdString();
  }
  QToolButton& Connect() { return Child<QToolButton>(Page(), "connectButton"); }
  QToolButton* ChipButton(TRowState state) {
    auto& chips = Child<TStateChips>(Page(), "stateChips");
    return qobject_cast<QToolButton*>(chips.widgetForAction(chips.Chip(state)));
  }
  std::set<std::string> ChipTexts() {
    std::set<std::string> texts;
    for (const TRowState state : RowStates) {
      if (ChipButton(state)->isVisible())
        texts.insert(ChipButton(state)->text().toStdString());
    }
    return texts;
  }
  void ChooseIn(const char* name, const QString& item) {
    auto& box = Child<QComboBox>(Page(), name);
    box.setFocus();
    const int row = box.findText(item);
    ASSERT_GE(row, 0) << item.toStdString();
    const int steps = row - box.currentIndex();
    box.showPopup();
    for (int i = 0; i < std::abs(steps); ++i)
      QTest::keyClick(box.view(), steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    QTest::keyClick(box.view(), Qt::Key_Return);
    Settle();
  }
};

TEST_F(TTargetBarTest, FollowsTheTargetBoxAndChangesIt) {
  OpenExample();
  EXPECT_EQ(Child<QComboBox>(Page(), "targetPlatform").currentText(), "Win64");
  EXPECT_EQ(Child<QComboBox>(Page(), "targetConfiguration").currentText(), "Debug");
  Window().ChooseTarget("Debug", "Android");
  Settle();
  EXPECT_EQ(Child<QComboBox>(Page(), "targetPlatform").currentText(), "Android");
  ChooseIn("targetPlatform", "Win64");
  EXPECT_EQ(Window().CurrentControls()->TargetsComboBox()->GetSelectedPlatform(), "Win64");
  ChooseIn("targetConfiguration", "Release");
  EXPECT_EQ(Window().CurrentControls()->TargetsComboBox()->GetSelectedConfiguration(), "Release");
  EXPECT_EQ(Window().CurrentControls()->TargetsComboBox()->Box().currentText().toStdString(),
            "Win64 – Release");
}

TEST_F(TTargetBarTest, NamesProfileAndPlaceAndSaysWhatIsMissing) {
  OpenExample();
  EXPECT_EQ(Profile(), "No profile says where the files go.");
  EXPECT_FALSE(Connect().isEnabled());
  EXPECT_TRUE(Connect().toolTip().contains("no profile"));
  EXPECT_TRUE(Child<QToolButton>(Page(), "profilesButton").isVisible());
  Project().AssignProfile("Win64", "lab-pc", false);
  Host().RemoteProfiles().AddProfile(
      {.Name = "other", .Platform = "Win64", .Path = FRoot.string()});
  Window().ChooseTarget("Debug", "Win64");
  Settle();
  EXPECT_EQ(Profile(), "The profile lab-pc is not on this machine.");
  Window().ChooseTarget("Debug", "");
  Settle();
  EXPECT_EQ(Profile(), "Choose one platform to see where its files go.");
  EXPECT_TRUE(ChipTexts().empty());
}

TEST_F(TTargetBarTest, CountsTheStatesAndFiltersByAChip) {
  Deployed();
  EXPECT_EQ(Profile(), "Profile lab-pc: " + (FRoot / "target").string());
  EXPECT_TRUE(Connection().starts_with("Connected since ")) << Connection();
  EXPECT_TRUE(ChipTexts().contains("1 to copy"));
  const int rows = Tree().Model().rowCount();
  QTest::mouseClick(ChipButton(TRowState::ToCopy), Qt::LeftButton);
  Settle();
  ASSERT_EQ(Tree().Model().rowCount(), 1);
  EXPECT_EQ(Cell(0, LocalName), "TideTables.de");
  EXPECT_TRUE(ChipButton(TRowState::ToCopy)->isChecked());
  Deploy();
  Settle();
  EXPECT_EQ(Tree().Model().rowCount(), 0) << "the file was copied, and is to copy no more";
  QTest::mouseClick(ChipButton(TRowState::ToCopy), Qt::LeftButton);
  Settle();
  EXPECT_EQ(Tree().Model().rowCount(), rows);
}

TEST_F(TTargetBarTest, ConnectsAndLetsGo) {
  Deployed();
  EXPECT_EQ(Connect().text(), "Disconnect");
  QTest::mouseClick(&Connect(), Qt::LeftButton);
  Settle();
  EXPECT_EQ(Connection(), "Not connected");
  EXPECT_EQ(Cell(0, RemoteStatus), "Not Connected");
  QTest::mouseClick(&Connect(), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Connect().text() == "Disconnect"; }, 5000));
}

TEST_F(TTargetBarTest, AnAttemptIsGivenUpByTheSameButton) {
  // A machine that never answers, and does not hang up either.
  Host().RemoteProfiles().AddProfile({.Name = "silent",
                                      .Platform = "Win64",
                                      .Kind = TProfileKind::Ssh,
                                      .Path = "/srv/app",
                                      .Host = "silent.invalid",
                                      .SshOptions = {"ProxyCommand=sleep 30"}});
  OpenExample();
  Project().AssignProfile("Win64", "silent", false);
  PressButton("tbConnect");
  ASSERT_TRUE(QTest::qWaitFor([this] { return Connect().text() == "Cancel"; }, 5000));
  EXPECT_EQ(Connection(), "Connecting to silent …");
  QTest::mouseClick(&Connect(), Qt::LeftButton);
  ASSERT_TRUE(QTest::qWaitFor([this] { return Connect().text() == "Connect"; }, 10000));
  EXPECT_EQ(Connection(), "Not connected");
  EXPECT_FALSE(Button("tbConnect")->isChecked());
  EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(TTargetBarTest, SaysThatTheMachineWasLost) {
  Deployed();
  std::filesystem::remove_all(FRoot / "target");
  PressButton("tbReconcile");
  Settle();
  EXPECT_TRUE(Connection().starts_with("Connection lost: ")) << Connection();
}

TEST_F(TTargetBarTest, HasANameForEveryControl) {
  Deployed();
  const auto said = [](QWidget& widget, QAccessible::Text what) {
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
    return interface ? interface->text(what).toStdString() : std::string();
  };
  const auto nameOf = [&](QWidget& widget) { return said(widget, QAccessible::Name); };
  // The name of a box is what is chosen in it; what it is for is its description.
  for (const auto& [box, use] :
       {std::pair("targetPlatform", "Platform"), std::pair("targetConfiguration", "Configuration"),
        std::pair("filterClass", "Class"), std::pair("grouping", "Group by")}) {
    auto& widget = Child<QComboBox>(Page(), box);
    EXPECT_EQ(said(widget, QAccessible::Description), use);
    EXPECT_EQ(nameOf(widget), widget.currentText().toStdString());
  }
  EXPECT_EQ(nameOf(Child<QLineEdit>(Page(), "filter")), "Filter");
  EXPECT_EQ(nameOf(Connect()), "Disconnect");
  EXPECT_EQ(nameOf(*ChipButton(TRowState::ToCopy)), "1 to copy");
  EXPECT_EQ(nameOf(Child<TElidedLabel>(Page(), "targetProfile")), Profile());
  const QAccessibleInterface* chip =
      QAccessible::queryAccessibleInterface(ChipButton(TRowState::ToCopy));
  EXPECT_TRUE(chip->state().checkable);
}

TEST_F(TTargetBarTest, FiltersByTypingFromAnywhereAndLeadsBackToTheRows) {
  OpenExample();
  QTest::keyClick(&View(), Qt::Key_F, Qt::ControlModifier);
  auto& filter = Child<QLineEdit>(Page(), "filter");
  EXPECT_TRUE(filter.hasFocus());
  QTest::keyClicks(&filter, "levels");
  QTest::keyClick(&filter, Qt::Key_Return);
  Settle();
  EXPECT_EQ(Tree().Model().rowCount(), 1);
  EXPECT_EQ(Child<QLabel>(Page(), "shownRows").text().toStdString(), "1 of 8 file(s)");
  EXPECT_TRUE(View().hasFocus());
  filter.setFocus();
  QTest::keyClick(&filter, Qt::Key_Escape);
  Settle();
  EXPECT_EQ(Tree().Model().rowCount(), 8);
}

TEST_F(TTargetBarTest, CheckAllReachesTheRowsThatShow) {
  OpenExample();
  auto& filter = Child<QLineEdit>(Page(), "filter");
  filter.setText("levels");
  QTest::keyClick(&filter, Qt::Key_Return);
  PressButton("tbUncheckAll");
  filter.clear();
  QTest::keyClick(&filter, Qt::Key_Return);
  Settle();
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  EXPECT_TRUE(IsChecked(Row("stations.json")));
}

TEST_F(TTargetBarTest, HidesAndShowsColumns) {
  OpenExample();
  auto& columns = Child<QToolButton>(Page(), "columns");
  emit columns.menu()->aboutToShow();
  const QList<QAction*> actions = columns.menu()->actions();
  ASSERT_EQ(actions.size(), 8);
  EXPECT_EQ(actions[0]->text(), "Local Name");
  actions[1]->trigger();
  EXPECT_TRUE(View().header()->isSectionHidden(Type));
  actions[1]->trigger();
  EXPECT_FALSE(View().header()->isSectionHidden(Type));
}

} // namespace
} // namespace workbench
