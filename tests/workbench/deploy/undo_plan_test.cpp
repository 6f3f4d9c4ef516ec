#include "tests/support/temporary_directory.h"
#include "workbench/deploy/undo_plan.h"
#include "workbench/remote/folder/folder_connection.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

constexpr TContentMark FirstMark{5, 1000};
constexpr TContentMark SecondMark{6, 2000};

// Two runs: "run-1" brought "a", "run-2" replaced it, which is what stands on the target.
class UndoPlan : public ::testing::Test {
protected:
  void SetUp() override {
    testing::WriteText(Place.Path() / "a", "second");
    testing::WriteText(Place.Path() / "record/undo/run-2/1", "first");
    std::filesystem::last_write_time(
        Place.Path() / "a", std::filesystem::file_time_type(std::chrono::file_clock::from_sys(
                                std::chrono::sys_seconds(std::chrono::seconds(SecondMark.Time)))));
    First.Run.Id = "run-1";
    First.Files = {{.Kind = TUndoKind::Remove, .Path = "a", .Put = FirstMark}};
    Second.Run.Id = "run-2";
    Second.Files = {{.Kind = TUndoKind::Restore,
                     .Path = "a",
                     .Kept = "1",
                     .Put = SecondMark,
                     .Before = FirstMark}};
  }
  std::vector<TUndoItem> Planned(const TUndoManifest& manifest, const TForeseen& foreseen) {
    return PlanUndo(Connection, Store, manifest, {}, foreseen);
  }

  const testing::TTemporaryDirectory Place;
  TFolderConnection Connection{Place.Path()};
  const TUndoStore Store{(Place.Path() / "record").string()};
  TUndoManifest First;
  TUndoManifest Second;
};

TEST_F(UndoPlan, OfAnEarlierRunStandsOnWhatTheLaterOneLeaves) {
  TForeseen foreseen;
  const std::vector<TUndoItem> second = Planned(Second, foreseen);
  EXPECT_EQ(second.at(0).Action, TUndoAction::Restored);
  Foresee(second, foreseen);
  const std::vector<TUndoItem> first = Planned(First, foreseen);
  EXPECT_EQ(first.at(0).Action, TUndoAction::Removed);
  Foresee(first, foreseen);
  EXPECT_EQ(foreseen.at("a").Status.Kind, TRemoteKind::None);
}

TEST_F(UndoPlan, OfAnEarlierRunAloneIsRefused) {
  const std::vector<TUndoItem> first = Planned(First, {});
  EXPECT_EQ(first.at(0).Action, TUndoAction::Refused);
  EXPECT_EQ(first[0].Reason, "it was changed on the target since");
}

} // namespace
} // namespace workbench
