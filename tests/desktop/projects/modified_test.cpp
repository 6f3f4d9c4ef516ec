// The star, undo and the question at closing: they all mean the user's own changes.
#include "tests/desktop/window/window_fixture.h"
#include "workbench/list/packed_record.h"

#include <QComboBox>
#include <QTreeView>
#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

namespace workbench {
namespace {

using namespace deployment::file_column;

class TWindowModified : public testing::TWindowTest {
protected:
  bool HasStar() { return Window().Tabs().tabText(Window().Tabs().currentIndex()).endsWith('*'); }
  void ChooseTarget(const char* configuration, const char* platform) {
    Window().ChooseTarget(configuration, platform);
    Settle();
  }
  // What the rows of the project's active target show, and what the files of the user hold for
  // every platform; both in an order that a reconcile does not change.
  std::vector<std::string> Seen() {
    ChooseTarget("Debug", "Win64");
    std::vector<std::string> lines;
    for (int row = 0; row < Tree().Model().rowCount(); ++row) {
      std::string line = IsChecked(Tree().Model().index(row, 0)) ? "[x]" : "[ ]";
      for (int column = 0; column < Tree().Model().columnCount(); ++column)
        line += "|" + Cell(row, column);
      lines.push_back(std::move(line));
    }
    for (const auto& file : Project().Deployment().GetFiles()) {
      if (file->GetDeploymentClass() == "File")
        lines.push_back(Pack(AsStored(RecordOf(*file))));
    }
    std::ranges::sort(lines);
    return lines;
  }
  void Activate(int target) {
    auto& box = Window().CurrentControls()->TargetsComboBox()->Box();
    box.setCurrentIndex(target);
    emit box.activated(target);
    Settle();
  }
};

TEST_F(TWindowModified, AProjectThatIsOnlyLookedAtHasNoStarAndClosesWithoutAQuestion) {
  const std::string before = Read(FProject);
  OpenExample();
  EXPECT_TRUE(Project().HasChanges()) << "the example must be one that a reconcile changes";
  EXPECT_FALSE(HasStar());
  EXPECT_FALSE(Window().isWindowModified());
  EXPECT_EQ(Menu("Undo")->text().remove('&').toStdString(), "Undo: Reconcile for Win64 – Debug");
  ChooseTarget("Debug", "Android");
  ChooseTarget("Release", "Win32");
  EXPECT_FALSE(HasStar());
  Choose("Save All");
  EXPECT_EQ(Read(FProject), before);
  Choose("Close"); // a question would hang here
  EXPECT_EQ(Window().Tabs().count(), 0);
  EXPECT_EQ(Read(FProject), before);
}

TEST_F(TWindowModified, WhatATargetBroughtIsAStepOfItsNameAndNoEdit) {
  OpenExample();
  ChooseTarget("Debug", "Android");
  ASSERT_TRUE(Menu("Undo")->isEnabled());
  EXPECT_EQ(Menu("Undo")->text().remove('&').toStdString(), "Undo: Reconcile for Android – Debug");
  EXPECT_FALSE(HasStar());
  Choose("Undo");
  EXPECT_FALSE(HasStar());
}

TEST_F(TWindowModified, TheStarGoesWithTheLastEditThatIsTakenBack) {
  OpenExample();
  ClickCheck(Row("levels.dat"));
  Settle();
  EXPECT_TRUE(HasStar());
  EXPECT_TRUE(Window().isWindowModified());
  Choose("Undo");
  EXPECT_FALSE(HasStar());
  Choose("Redo");
  EXPECT_TRUE(HasStar());
  Choose("Save");
  EXPECT_FALSE(HasStar());
  Choose("Undo");
  EXPECT_TRUE(HasStar()) << "the file has the edit";
  Choose("Redo");
  EXPECT_FALSE(HasStar());
}

TEST_F(TWindowModified, AnEditBringsWhatWasComputedIntoTheFile) {
  OpenExample();
  const std::string computed = Cell(0, LocalName);
  ClickCheck(Row("levels.dat"));
  Choose("Save");
  const std::string first = Read(FProject);
  Choose("Close");
  OpenExample();
  EXPECT_FALSE(Project().HasChanges()) << "there is nothing left to compute";
  EXPECT_EQ(Cell(0, LocalName), computed);
}

TEST_F(TWindowModified, TheReconcileCommandMakesWhatWasComputedTheUsers) {
  OpenExample();
  EXPECT_FALSE(HasStar());
  PressButton("tbReconcile");
  EXPECT_TRUE(HasStar());
  EXPECT_NE(Saved().find("<DeployFile"), std::string::npos);
  EXPECT_FALSE(HasStar());
  PressButton("tbReconcile");
  EXPECT_FALSE(HasStar()) << "there is nothing to bring in line any more";
}

TEST_F(TWindowModified, OptionalFilesThatWereChosenAreTheUsers) {
  std::filesystem::copy(std::filesystem::current_path() / "examples" / "sky-chart", FRoot / "sky",
                        std::filesystem::copy_options::recursive);
  ASSERT_TRUE(Window().Open(FRoot / "sky" / "SkyChart.vproj"));
  Settle();
  EXPECT_FALSE(HasStar());
  testing::OnNextDialog([](QDialog& dialog) {
    auto* tree = dialog.findChild<QTreeView*>();
    ASSERT_NE(tree, nullptr);
    testing::ClickCheckBox(*tree, tree->model()->index(0, 0));
    testing::Press(dialog, "OK");
  });
  PressButton("tbAddFeature");
  EXPECT_TRUE(HasStar());
}

TEST_F(TWindowModified, CheckAllUnderAllPlatformsReachesEachPlatformInOneStep) {
  OpenExample();
  ChooseTarget("Debug", "Win64");
  PressButton("tbUncheckAll");
  Saved();
  ChooseTarget("Debug", "");
  PressButton("tbCheckAll");
  EXPECT_TRUE(HasStar());
  EXPECT_EQ(Menu("Undo")->text().remove('&').toStdString(),
            "Undo: Check All Items: 8 file(s) (All Platforms – Debug)");
  ChooseTarget("Debug", "Win64");
  EXPECT_TRUE(IsChecked(Row("levels.dat")));
  EXPECT_TRUE(IsChecked(Row("TideLogger.dll")));
  const std::vector<std::string> seen = Seen();
  Saved();
  Choose("Close");
  OpenExample();
  EXPECT_EQ(Seen(), seen);
  EXPECT_TRUE(Project().Warnings().empty()) << Project().Warnings().front().Text;
}

TEST_F(TWindowModified, WhatIsSeenAfterRandomEditsIsWhatIsReadAgain) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    std::mt19937 random(seed);
    OpenExample();
    const auto below = [&](int end) {
      return static_cast<int>(random() % static_cast<unsigned>(end));
    };
    for (int edit = 0; edit < 25; ++edit) {
      const int rows = Tree().Model().rowCount();
      const QModelIndex row = Tree().Model().index(rows > 0 ? below(rows) : 0, 0);
      switch (below(8)) {
      case 0:
        Activate(below(Window().CurrentControls()->TargetsComboBox()->Box().count()));
        break;
      case 1:
        PressButton(below(2) == 0 ? "tbCheckAll" : "tbUncheckAll");
        break;
      case 2:
        Choose("Undo");
        break;
      case 3:
      case 4: {
        static const std::array<int, 2> columns{RemotePath, RemoteName};
        const QModelIndex cell = row.siblingAtColumn(columns[random() % 2]);
        if (!cell.isValid() || !(cell.flags() & Qt::ItemIsEditable))
          break;
        View().setCurrentIndex(cell);
        View().edit(cell);
        if (auto* combo = View().viewport()->findChild<QComboBox*>()) {
          combo->setEditText(QString("dir%1\\").arg(edit));
          EXPECT_TRUE(Window().Projects().CommitEditors());
        }
        break;
      }
      default:
        if (rows > 0)
          ClickCheck(row);
      }
      Settle();
    }
    const std::vector<std::string> seen = Seen();
    Choose("Save"); // without a star too: what was computed is seen as well
    EXPECT_FALSE(HasStar());
    Choose("Close");
    ASSERT_EQ(Window().Tabs().count(), 0);
    OpenExample();
    EXPECT_EQ(Seen(), seen) << "seed " << seed;
    Choose("Close");
  }
}

} // namespace
} // namespace workbench
