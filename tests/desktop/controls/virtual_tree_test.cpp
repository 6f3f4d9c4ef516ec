#include "tests/desktop/support/dialog_script.h"
#include "workbench/desktop/controls/virtual_tree.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QScrollBar>
#include <map>
#include <string>

namespace workbench {
namespace {

using deployment::TCheckState;
using deployment::TCheckType;
using deployment::TNodeId;

class TVirtualTreeTest : public ::testing::Test {
protected:
  TVirtualTree& Make(int rows) {
    deployment::TVirtualTreeEvents events;
    events.OnGetText = [this](TNodeId node, int column) {
      ++FAsked[node];
      return "row " + std::to_string(node) + " column " + std::to_string(column);
    };
    events.OnChecked = [this](TNodeId node) { FChecked.push_back(node); };
    events.OnChecking = [this](TNodeId node) { return node != FRefused; };
    FTree = std::make_unique<TVirtualTree>(
        deployment::TTreeOptions{.CheckBoxes = true, .MultiSelect = true, .FullRowSelect = true},
        std::move(events), nullptr);
    FTree->SetColumns({{"A", 120}, {"B", 120}, {"C", 120}});
    FTree->BeginUpdate();
    for (int i = 0; i < rows; ++i)
      FTree->AddNode(0, TCheckType::CheckBox);
    FTree->EndUpdate();
    FTree->View().resize(400, 300);
    FTree->View().show();
    static_cast<void>(QTest::qWaitForWindowExposed(&FTree->View()));
    QTest::qWait(10);
    return *FTree;
  }
  std::size_t VisibleRows() {
    TTreeView& view = FTree->View();
    return static_cast<std::size_t>(view.viewport()->height() /
                                    view.visualRect(view.model()->index(0, 0)).height()) +
           2;
  }

  std::map<TNodeId, int> FAsked;
  std::vector<TNodeId> FChecked;
  TNodeId FRefused = 0;
  std::unique_ptr<TVirtualTree> FTree;
};

TEST_F(TVirtualTreeTest, IsACorrectItemModelWithNodesOfSeveralLevels) {
  TVirtualTree& tree = Make(5);
  const QAbstractItemModelTester tester(&tree.Model(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  const TNodeId child = tree.AddNode(2, TCheckType::None);
  tree.AddNode(2, TCheckType::None);
  tree.DeleteNode(4);
  tree.Flush();
  EXPECT_EQ(tree.Model().rowCount(), 4);
  EXPECT_EQ(tree.Model().rowCount(tree.Model().IndexOf(2)), 2);
  EXPECT_EQ(tree.Model().parent(tree.Model().IndexOf(child)), tree.Model().IndexOf(2));
  tree.Clear();
  tree.Flush();
  EXPECT_EQ(tree.Model().rowCount(), 0);
}

TEST_F(TVirtualTreeTest, AsksForTheTextsOfVisibleRowsAlone) {
  TVirtualTree& tree = Make(100000);
  EXPECT_GT(FAsked.size(), 5U);
  EXPECT_LE(FAsked.size(), VisibleRows());
  FAsked.clear();
  tree.View().verticalScrollBar()->setValue(50000);
  QTest::qWait(10);
  EXPECT_LE(FAsked.size(), VisibleRows());
  EXPECT_TRUE(FAsked.contains(50003));
  EXPECT_FALSE(FAsked.contains(10));
}

TEST_F(TVirtualTreeTest, AClickOnABoxRepaintsItsRowAlone) {
  TVirtualTree& tree = Make(1000);
  QSignalSpy changed(&tree.Model(), &QAbstractItemModel::dataChanged);
  QSignalSpy reset(&tree.Model(), &QAbstractItemModel::modelReset);
  // The click itself moves the focus, which repaints rows too.
  tree.View().setCurrentIndex(tree.Model().index(3, 0));
  QTest::qWait(10);
  FAsked.clear();
  testing::ClickCheckBox(tree.View(), tree.Model().index(3, 0));
  QTest::qWait(10);
  EXPECT_EQ(FChecked, std::vector<TNodeId>{4});
  EXPECT_EQ(tree.GetCheckState(4), TCheckState::Checked);
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed[0][0].toModelIndex().row(), 3);
  EXPECT_EQ(changed[0][1].toModelIndex().row(), 3);
  EXPECT_EQ(reset.count(), 0);
  for (const auto& [node, times] : FAsked)
    EXPECT_EQ(node, 4U) << "asked " << times << " times";
}

TEST_F(TVirtualTreeTest, ABoxThatTheFormRefusesStaysAsItIs) {
  FRefused = 2;
  TVirtualTree& tree = Make(3);
  testing::ClickCheckBox(tree.View(), tree.Model().index(1, 0));
  EXPECT_TRUE(FChecked.empty());
  EXPECT_EQ(tree.GetCheckState(2), TCheckState::Unchecked);
}

TEST_F(TVirtualTreeTest, TellsOfManyChangesOnce) {
  TVirtualTree& tree = Make(1000);
  QSignalSpy changed(&tree.Model(), &QAbstractItemModel::dataChanged);
  QSignalSpy reset(&tree.Model(), &QAbstractItemModel::modelReset);
  for (TNodeId node = 1; node <= 1000; ++node)
    tree.SetCheckState(node, TCheckState::Checked);
  QTest::qWait(10);
  EXPECT_EQ(changed.count(), 1);
  for (TNodeId node = 1; node <= 500; ++node)
    tree.DeleteNode(node);
  QTest::qWait(10);
  EXPECT_EQ(reset.count(), 1);
  EXPECT_EQ(tree.Model().rowCount(), 500);
}

TEST_F(TVirtualTreeTest, KeepsSelectionFocusAndPlaceWhileTheFormBuildsItsRowsAnew) {
  TVirtualTree& tree = Make(1000);
  tree.View().verticalScrollBar()->setValue(500);
  tree.View().setCurrentIndex(tree.Model().index(505, 2));
  tree.BeginUpdate();
  tree.Clear();
  for (int i = 0; i < 1000; ++i)
    tree.AddNode(0, TCheckType::CheckBox);
  tree.EndUpdate();
  for (const TNodeId node : {506U, 507U, 600U})
    tree.SetSelected(node, true);
  QTest::qWait(10);
  EXPECT_EQ(tree.View().verticalScrollBar()->value(), 500);
  EXPECT_EQ(tree.View().currentIndex(), tree.Model().index(505, 2));
  EXPECT_EQ(tree.View().selectionModel()->selectedRows().size(), 3);
  EXPECT_EQ(tree.GetSelected(), (std::vector<TNodeId>{506, 507, 600}));
}

TEST_F(TVirtualTreeTest, TheUsersSelectionIsThatOfTheForm) {
  TVirtualTree& tree = Make(50);
  QTest::mouseClick(tree.View().viewport(), Qt::LeftButton, {},
                    tree.View().visualRect(tree.Model().index(1, 1)).center());
  QTest::mouseClick(tree.View().viewport(), Qt::LeftButton, Qt::ShiftModifier,
                    tree.View().visualRect(tree.Model().index(4, 1)).center());
  EXPECT_EQ(tree.GetSelected(), (std::vector<TNodeId>{2, 3, 4, 5}));
  QTest::mouseClick(tree.View().viewport(), Qt::RightButton, {},
                    tree.View().visualRect(tree.Model().index(6, 2)).center());
  EXPECT_EQ(tree.GetSelected(), std::vector<TNodeId>{7});
  tree.View().selectAll();
  EXPECT_EQ(tree.SelectedCount(), 50U);
}

TEST_F(TVirtualTreeTest, AThrowingFormIsReportedAndTheRowsStayUsable) {
  deployment::TVirtualTreeEvents events;
  events.OnGetText = [](TNodeId, int) -> std::string { return "x"; };
  events.OnChecked = [](TNodeId) { throw std::runtime_error("the box is stuck"); };
  FTree = std::make_unique<TVirtualTree>(deployment::TTreeOptions{.CheckBoxes = true},
                                         std::move(events), nullptr);
  FTree->SetColumns({{"A", 120}});
  FTree->AddNode(0, TCheckType::CheckBox);
  FTree->Flush();
  FTree->View().show();
  QString said;
  testing::OnNextDialog(
      [&said](QDialog& dialog) { said = dialog.findChild<QLabel*>("qt_msgbox_label")->text(); });
  testing::ClickCheckBox(FTree->View(), FTree->Model().index(0, 0));
  EXPECT_TRUE(QTest::qWaitFor([&said] { return !said.isEmpty(); }));
  EXPECT_EQ(said.toStdString(), "the box is stuck");
}

} // namespace
} // namespace workbench
