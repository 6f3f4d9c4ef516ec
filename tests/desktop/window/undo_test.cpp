#include "tests/desktop/window/window_fixture.h"

namespace workbench {
namespace {

using namespace deployment::file_column;

using testing::OnNextDialog;
using testing::Press;

class TWindowUndo : public testing::TWindowTest {};

TEST_F(TWindowUndo, TakesEditsBackOneByOneAndDoesThemAgain) {
  OpenExample();
  const std::string before = Saved();
  ClickCheck(Row("levels.dat"));
  Settle();
  EXPECT_EQ(Menu("Undo")->text().remove('&').toStdString(),
            "Undo: Untick levels.dat (Win64 – Debug)");
  PressButton("tbUncheckAll");
  EXPECT_EQ(Menu("Undo")->text().remove('&').toStdString(),
            "Undo: Uncheck All Items: 7 file(s) (Win64 – Debug)");
  Choose("Undo");
  EXPECT_TRUE(IsChecked(Row("stations.json")));
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  Choose("Undo");
  EXPECT_TRUE(IsChecked(Row("levels.dat")));
  EXPECT_EQ(Menu("Undo")->text().remove('&').toStdString(), "Undo: Reconcile for Win64 – Debug");
  Choose("Redo");
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  Choose("Undo");
  EXPECT_EQ(Saved(), before);
}

TEST_F(TWindowUndo, BringsADeletedFileBackToItsPlace) {
  OpenExample();
  const std::string before = Saved();
  Click(Row("calm-day.txt", LocalName));
  Settle();
  AnswerNext("Yes");
  PressButton("tbDeleteFile");
  EXPECT_EQ(Tree().Model().rowCount(), 7);
  Choose("Undo");
  EXPECT_EQ(Tree().Model().rowCount(), 8);
  EXPECT_EQ(Saved(), before);
}

TEST_F(TWindowUndo, ARevertIsOneStep) {
  OpenExample();
  const std::string before = Saved();
  OnNextDialog([](QDialog& dialog) { Press(dialog, "OK"); });
  PressButton("tbRevert");
  EXPECT_NE(Saved(), before);
  Choose("Undo");
  EXPECT_EQ(Saved(), before);
}

TEST_F(TWindowUndo, EditsOutliveAKilledProgram) {
  OpenExample();
  Saved();
  ClickCheck(Row("levels.dat"));
  Settle();
  Vanish();
  SetUpAgain();
  std::string said;
  AnswerNext("Recover", &said);
  Window().OfferRecovery();
  Settle();
  EXPECT_NE(said.find("TideLogger.vproj were saved. They concern 1 entries"), std::string::npos)
      << said;
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  EXPECT_TRUE(IsChecked(Row("stations.json")));
  EXPECT_TRUE(Project().HasChanges());
  Choose("Undo");
  EXPECT_TRUE(IsChecked(Row("levels.dat")));
}

TEST_F(TWindowUndo, EditsThatWereSavedOrGivenUpAreNotOffered) {
  OpenExample();
  ClickCheck(Row("levels.dat"));
  Saved();
  ClickCheck(Row("levels.dat"));
  Settle();
  AnswerNext("Discard");
  Choose("Close");
  EXPECT_TRUE(FindRecoverable().Found.empty());
}

} // namespace
} // namespace workbench
