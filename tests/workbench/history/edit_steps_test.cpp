#include "tests/workbench/history/edit_fixture.h"

#include <algorithm>

namespace workbench {
namespace {

using deployment::TDeploymentItemAction;

using EditSteps = testing::TEditTest;

TEST_F(EditSteps, HasNoStepsAtFirstAndNoneWithoutAChange) {
  Edit({"a", "b"});
  FHistory->EndStep("Nothing");
  EXPECT_FALSE(FHistory->CanUndo());
  EXPECT_FALSE(FHistory->CanRedo());
  EXPECT_EQ(FHistory->UndoName(), "");
  EXPECT_EQ(FHistory->RedoName(), "");
  FHistory->Undo();
  FHistory->Redo();
  EXPECT_FALSE(FProject->HasChanges());
}

TEST_F(EditSteps, NamesItsSteps) {
  Edit({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  File("a")->SetRemoteDir("Win32", "x\\");
  FHistory->EndStep("Remote path");
  EXPECT_EQ(FHistory->UndoName(), "Remote path");
  FHistory->Undo();
  EXPECT_EQ(FHistory->UndoName(), "Switch off");
  EXPECT_EQ(FHistory->RedoName(), "Remote path");
}

TEST_F(EditSteps, DropsWhatWasUndoneAtTheNextStep) {
  Edit({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("First");
  FHistory->Undo();
  File("a")->SetRemoteDir("Win32", "x\\");
  FHistory->EndStep("Second");
  EXPECT_FALSE(FHistory->CanRedo());
  EXPECT_EQ(FHistory->UndoName(), "Second");
}

TEST_F(EditSteps, TakesAnOpenStepBackFirst) {
  Edit({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("First");
  File("a")->SetRemoteDir("Win32", "x\\");
  FHistory->Undo();
  EXPECT_EQ(File("a")->GetRemoteDir("Win32"), "");
  EXPECT_FALSE(File("a")->GetEnabled("Win32"));
  EXPECT_EQ(FHistory->UndoName(), "First");
}

TEST_F(EditSteps, KeepsTheNewestStepsOnly) {
  Edit({"a"}, {3, 100});
  for (int i = 1; i <= 5; ++i) {
    File("a")->SetRemoteName("Win32", std::to_string(i));
    FHistory->EndStep(std::to_string(i));
  }
  for (int i = 0; i < 5; ++i)
    FHistory->Undo();
  EXPECT_FALSE(FHistory->CanUndo());
  EXPECT_EQ(File("a")->GetRemoteName("Win32"), "2");
}

TEST_F(EditSteps, KeepsFewerStepsWhenTheyAreLargeButAlwaysTheLast) {
  Edit({"a", "b", "c"}, {100, 4});
  const auto setAll = [this](std::string_view name) {
    for (const auto& file : Deployment().GetFiles())
      file->SetRemoteName("Win32", name);
    FHistory->EndStep(std::string(name));
  };
  setAll("1");
  setAll("2");
  FHistory->Undo();
  EXPECT_FALSE(FHistory->CanUndo());
  EXPECT_EQ(File("a")->GetRemoteName("Win32"), "1");
}

TEST_F(EditSteps, ForgetsItsSteps) {
  Edit({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("First");
  FHistory->Clear();
  EXPECT_FALSE(FHistory->CanUndo());
  EXPECT_FALSE(FHistory->CanRedo());
  EXPECT_FALSE(File("a")->GetEnabled("Win32"));
  EXPECT_FALSE(FHistory->IsAtSavedStep());
}

TEST_F(EditSteps, KnowsTheStepAtWhichTheListWasSaved) {
  Edit({"a"});
  EXPECT_TRUE(FHistory->IsAtSavedStep());
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("First");
  EXPECT_FALSE(FHistory->IsAtSavedStep());
  FHistory->Undo();
  EXPECT_TRUE(FHistory->IsAtSavedStep());
  FHistory->Redo();
  FProject->Save(false);
  FHistory->MarkSaved();
  EXPECT_TRUE(FHistory->IsAtSavedStep());
  FHistory->Undo();
  EXPECT_FALSE(FHistory->IsAtSavedStep());
  File("a")->SetRemoteDir("Win32", "x\\");
  FHistory->EndStep("Other");
  FHistory->Undo();
  EXPECT_FALSE(FHistory->IsAtSavedStep()) << "what was saved cannot be reached any more";
}

TEST_F(EditSteps, LeavesTheFileAsItWasAfterUndoAndSave) {
  Edit({"a", "b", "c"});
  FProject->MarkChanged();
  FProject->Save(false);
  const std::string saved = Read(FFile);
  Deployment().RemoveFile("Debug", "Win32", "a");
  File("b")->SetRemoteName("OSX32", "bb");
  FHistory->EndStep("Edit");
  FProject->Save(false);
  EXPECT_NE(Read(FFile), saved);
  FHistory->Undo();
  EXPECT_TRUE(FProject->HasChanges());
  FProject->Save(false);
  EXPECT_EQ(Read(FFile), saved);
}

class TCounter final : public deployment::IProjectDeploymentNotifier {
public:
  void ItemChanged(deployment::IProjectDeploymentItem& /*item*/,
                   TDeploymentItemAction action) override {
    Actions.push_back(action);
  }
  void Loaded(std::string_view /*projectName*/) override {}
  void Destroyed() override {}

  std::vector<TDeploymentItemAction> Actions;
};

TEST_F(EditSteps, TellsListenersOnceForEachUndoAndRedo) {
  Edit({"a", "b"});
  for (const auto& file : Deployment().GetFiles())
    file->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  Deployment().RemoveFilesOfClass("File");
  FHistory->EndStep("Delete");
  const auto counter = std::make_shared<TCounter>();
  const int index = Deployment().AddNotifier(counter);
  FHistory->Undo();
  EXPECT_EQ(counter->Actions, std::vector{TDeploymentItemAction::Modified});
  FHistory->Undo();
  FHistory->Redo();
  EXPECT_EQ(counter->Actions.size(), 3U);
  FHistory->Redo();
  EXPECT_EQ(counter->Actions.size(), 4U);
  EXPECT_EQ(counter->Actions.back(), TDeploymentItemAction::Removed) << "the list is empty now";
  Deployment().RemoveNotifier(index);
}

TEST_F(EditSteps, TellsWhatEachStepUndoAndRedoDid) {
  Edit({"a", "b", "c"});
  std::vector<TListChange> reported;
  FHistory->SetOnStep([&](const TListChange& change) { reported.push_back(change); });
  Deployment().RemoveFile("Debug", "Win32", "b");
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Edit");
  FHistory->Undo();
  FHistory->Redo();
  ASSERT_EQ(reported.size(), 3U);
  const TListChange& back = reported[1];
  EXPECT_EQ(back.Name, "Edit");
  EXPECT_EQ(back.Classes, nullptr);
  ASSERT_EQ(back.Entries.size(), 2U);
  EXPECT_EQ(back.Entries[0].After->Names.LocalName, "a");
  EXPECT_TRUE(back.Entries[0].After->Platforms[0].Enabled);
  EXPECT_FALSE(back.Entries[0].Before->Platforms[0].Enabled);
  EXPECT_FALSE(back.Entries[0].Position.has_value());
  EXPECT_FALSE(back.Entries[1].Before.has_value());
  EXPECT_EQ(back.Entries[1].After->Names.LocalName, "b");
  EXPECT_EQ(back.Entries[1].Position, 1U);
  for (const std::size_t forth : {0U, 2U}) {
    ASSERT_EQ(reported[forth].Entries.size(), 2U);
    const auto removed = std::ranges::count_if(
        reported[forth].Entries, [](const TEntryDifference& each) { return !each.After; });
    EXPECT_EQ(removed, 1);
  }
}

TEST_F(EditSteps, LooksAtOneEntryOfTenThousandWhenOneIsEdited) {
  Edit(TenThousandNames());
  std::size_t reported = 0;
  FHistory->SetOnStep([&](const TListChange& change) { reported = change.Entries.size(); });
  File("data\\file5000")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EXPECT_EQ(FHistory->LookedAt(), 1U);
  EXPECT_EQ(reported, 1U);
  AddFile(*FProject, "one more");
  FHistory->EndStep("Add");
  EXPECT_LE(FHistory->LookedAt(), 2U);
  EXPECT_EQ(reported, 1U);
  FHistory->Undo();
  FHistory->Undo();
  EXPECT_LE(FHistory->LookedAt(), 1U);
  EXPECT_TRUE(File("data\\file5000")->GetEnabled("Win32"));
}

} // namespace
} // namespace workbench
