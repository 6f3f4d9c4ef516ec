#include "tests/support/temporary_directory.h"
#include "workbench/deploy/record/undo_store.h"
#include "workbench/remote/folder/folder_connection.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

namespace fs = std::filesystem;
using testing::ReadText;
using testing::WriteText;

class UndoStore : public ::testing::Test {
protected:
  fs::path At(const std::string& name) const { return FPlace.Path() / name; }
  // One file, which is replaced.
  std::string Keep(const std::string& run) {
    fs::remove(At("a")); // what is kept is its second name
    WriteText(At("a"), "content of " + run);
    TUndoManifest manifest;
    manifest.Run = {.Id = run, .At = "2026-11-22T00:31:21Z", .By = "eva"};
    manifest.Files.push_back({.Kind = TUndoKind::Restore,
                              .Path = "a",
                              .Kept = "1",
                              .Put = {{4, 18}},
                              .Before = {{5, 19}},
                              .Mode = 0640});
    return KeepAll(manifest, {FPlace.Path().string(), "a"});
  }
  // The one file of the manifest is kept as "1".
  std::string KeepAll(const TUndoManifest& manifest, const TRemoteName& target) {
    TKeptRun request{.Run = manifest.Run.Id, .Bytes = 10};
    request.WriteManifest = [&](const TTakeText& take) { take(UndoManifestText(manifest)); };
    request.Files.emplace_back(target, "1");
    return Store.Keep(Connection, request);
  }
  std::vector<std::string> Runs() {
    std::vector<std::string> runs;
    for (const TUndoIndex::TRun& run : Store.ReadIndex(Connection).Runs)
      runs.push_back(run.Id);
    return runs;
  }
  // As a run leaves it that is killed before it is complete.
  void LeaveHalf(const std::string& run) {
    ASSERT_EQ(Keep(run), "");
    TUndoIndex index = Store.ReadIndex(Connection);
    std::erase_if(index.Runs, [&](const TUndoIndex::TRun& each) { return each.Id == run; });
    index.Unfinished.push_back(run);
    WriteText(At("record/undo/index.json"), UndoIndexText(index));
    WriteText(At("record/undo/" + run + "/.deploymgr-0-1-0-0-.part"), "half");
    Store = TUndoStore(At("record").string()); // of the run that comes next
  }

private:
  const testing::TTemporaryDirectory FPlace;

protected:
  TFolderConnection Connection{FPlace.Path()};
  TUndoStore Store{(FPlace.Path() / "record").string()};
};

using TNames = std::vector<std::string>;

TEST_F(UndoStore, KeepsAFileOfARunAndOffersIt) {
  ASSERT_EQ(Keep("run-1"), "");
  EXPECT_EQ(Runs(), TNames{"run-1"});
  EXPECT_TRUE(Store.ReadIndex(Connection).Unfinished.empty());
  EXPECT_EQ(ReadText(At("record/undo/run-1/1")), "content of run-1");
  ASSERT_EQ(Keep("run-2"), "");
  EXPECT_EQ(Runs(), (TNames{"run-2", "run-1"}));
}

TEST_F(UndoStore, SweepsWhatAKilledRunLeft) {
  ASSERT_EQ(Keep("run-1"), "");
  LeaveHalf("run-2");
  Store.RemoveUnfinished(Connection);
  EXPECT_FALSE(fs::exists(At("record/undo/run-2")));
  EXPECT_EQ(Runs(), TNames{"run-1"});
  EXPECT_TRUE(Store.ReadIndex(Connection).Unfinished.empty());
  EXPECT_EQ(ReadText(At("record/undo/run-1/1")), "content of run-1");
}

TEST_F(UndoStore, SweepsARunWhoseManifestWasNeverWritten) {
  LeaveHalf("run-1");
  fs::remove(At("record/undo/run-1/undo.json"));
  fs::remove(At("record/undo/run-1/1"));
  Store.RemoveUnfinished(Connection);
  EXPECT_FALSE(fs::exists(At("record/undo/run-1")));
}

TEST_F(UndoStore, SweepsNothingWhereNothingIsUnfinished) {
  ASSERT_EQ(Keep("run-1"), "");
  const auto before = fs::last_write_time(At("record/undo/index.json"));
  Store.RemoveUnfinished(Connection);
  EXPECT_EQ(fs::last_write_time(At("record/undo/index.json")), before);
}

TEST_F(UndoStore, RemovesTheOldestRunsAboveItsLimits) {
  for (const char* run : {"run-1", "run-2", "run-3"})
    ASSERT_EQ(Keep(run), "");
  Store.Trim(Connection, 2, 1000);
  EXPECT_EQ(Runs(), (TNames{"run-3", "run-2"}));
  EXPECT_FALSE(fs::exists(At("record/undo/run-1")));
  Store.Trim(Connection, 2, 10);
  EXPECT_EQ(Runs(), TNames{"run-3"});
  EXPECT_FALSE(fs::exists(At("record/undo/run-2")));
  Store.Drop(Connection, "run-3");
  EXPECT_EQ(Runs(), TNames());
  EXPECT_FALSE(fs::exists(At("record/undo/run-3")));
  EXPECT_TRUE(Store.ReadIndex(Connection).Unfinished.empty());
}

TEST_F(UndoStore, NamesARunThatItCannotRemoveForTheNextOneToSweep) {
  ASSERT_EQ(Keep("run-1"), "");
  WriteText(At("record/undo/run-2/.deploymgr-0-1-0-0-.part"), "half");
  TUndoManifest manifest;
  manifest.Run.Id = "run-2";
  manifest.Files.push_back({.Kind = TUndoKind::Restore, .Path = "gone", .Kept = "1"});
  EXPECT_NE(KeepAll(manifest, {At("").string(), "gone"}), "");
  EXPECT_EQ(Runs(), TNames{"run-1"});
  EXPECT_EQ(Store.ReadIndex(Connection).Unfinished, TNames{"run-2"});
  TUndoStore next(At("record").string());
  next.RemoveUnfinished(Connection);
  EXPECT_FALSE(fs::exists(At("record/undo/run-2")));
  EXPECT_TRUE(next.ReadIndex(Connection).Unfinished.empty());
}

TEST_F(UndoStore, KeepsNothingWhenAFileCannotBeKept) {
  ASSERT_EQ(Keep("run-1"), "");
  TUndoManifest manifest;
  manifest.Run.Id = "run-2";
  manifest.Files.push_back({.Kind = TUndoKind::Restore, .Path = "gone", .Kept = "1"});
  EXPECT_NE(KeepAll(manifest, {At("").string(), "gone"}), "");
  EXPECT_EQ(Runs(), TNames{"run-1"});
  EXPECT_FALSE(fs::exists(At("record/undo/run-2")));
  EXPECT_TRUE(Store.ReadIndex(Connection).Unfinished.empty());
}

} // namespace
} // namespace workbench
