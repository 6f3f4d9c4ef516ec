#include "workbench/desktop/list/row_state.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(RowState, IsWhatADeployWouldFind) {
  const TRowLook here{.IsChecked = true, .IsHere = true, .RemoteStatus = "Same"};
  EXPECT_EQ(StateOf(here), TRowState::Same);
  EXPECT_EQ(StateOf({.IsChecked = true, .IsHere = true, .RemoteStatus = "Older"}),
            TRowState::ToCopy);
  EXPECT_EQ(StateOf({.IsChecked = true, .IsHere = true, .RemoteStatus = "Not Found"}),
            TRowState::ToCopy);
  EXPECT_EQ(StateOf({.IsChecked = true, .IsHere = true, .RemoteStatus = "Newer"}),
            TRowState::ChangedThere);
  EXPECT_EQ(StateOf({.IsChecked = true, .IsHere = true, .RemoteStatus = "Unknown"}),
            TRowState::Unknown);
  EXPECT_EQ(StateOf({.IsChecked = true, .IsHere = true, .RemoteStatus = "Not Connected"}),
            TRowState::Unknown);
}

TEST(RowState, OfAFileThatIsNotToBeOverwrittenIsKept) {
  TRowLook look{.IsChecked = true, .IsHere = true, .IsOverwritten = false, .RemoteStatus = "Older"};
  EXPECT_EQ(StateOf(look), TRowState::Kept);
  look.RemoteStatus = "Newer";
  EXPECT_EQ(StateOf(look), TRowState::Kept);
  look.RemoteStatus = "Not Found";
  EXPECT_EQ(StateOf(look), TRowState::ToCopy);
  look.RemoteStatus = "Same";
  EXPECT_EQ(StateOf(look), TRowState::Same);
}

TEST(RowState, OfARowThatIsSwitchedOffSaysSoFirst) {
  EXPECT_EQ(StateOf({.IsChecked = false, .IsHere = false, .RemoteStatus = "Same"}), TRowState::Off);
  EXPECT_EQ(StateOf({.IsChecked = true, .IsHere = false, .RemoteStatus = "Same"}),
            TRowState::MissingHere);
}

TEST(RowState, HasWordsWithTheirNumber) {
  EXPECT_EQ(CountWords(TRowState::ToCopy, 3).toStdString(), "3 to copy");
  EXPECT_EQ(CountWords(TRowState::ChangedThere, 1).toStdString(), "1 changed there");
  EXPECT_EQ(CountWords(TRowState::MissingHere, 2).toStdString(), "2 missing here");
  EXPECT_EQ(CountWords(TRowState::Same, 12).toStdString(), "12 same");
}

} // namespace
} // namespace workbench
