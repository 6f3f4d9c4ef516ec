#include "tests/workbench/history/edit_fixture.h"

namespace workbench {
namespace {

using deployment::TDeploymentItemAction;
using testing::ProjectHead;
using testing::ProjectWith;
using testing::StoredEntry;

class EditHistory : public testing::TEditTest {
protected:
  /// Ends the step, takes it back and does it again; the list must follow.
  void ExpectStepGoesBothWays(const std::vector<TEntryRecord>& before) {
    const std::vector<TEntryRecord> after = List();
    EXPECT_FALSE(before == after) << "the step changes nothing";
    FHistory->EndStep("Step");
    FHistory->Undo();
    EXPECT_TRUE(List() == before);
    FHistory->Redo();
    EXPECT_TRUE(List() == after);
    FHistory->Undo();
    EXPECT_TRUE(List() == before);
  }
};

TEST_F(EditHistory, TakesBackEachValueOfAnEntry) {
  const std::vector<std::function<void(deployment::IProjectDeploymentFile&)>> edits{
      [](auto& file) { file.SetEnabled("Win32", false); },
      [](auto& file) { file.SetRemoteName("Win32", "other.dat"); },
      [](auto& file) { file.SetRemoteDir("Win32", "other\\"); },
      [](auto& file) { file.SetOverwrite("Win32", false); },
      [](auto& file) { file.SetOperation("Win32", deployment::TDeployOperation::Run); },
      [](auto& file) { file.SetRequired(true); },
      [](auto& file) { file.SetCondition("'$(X)'=='1'"); },
      [](auto& file) { file.SetDeploymentClass("Other"); },
      [](auto& file) { file.SetRemoteName("OSX32", "on.dat"); },
      [](auto& file) {
        file.SetRemoteName("OSX32", "on.dat");
        file.RemovePlatform("Win32");
      },
  };
  for (const auto& edit : edits) {
    EditText(ProjectWith(StoredEntry));
    const auto before = List();
    edit(*File("data\\levels.dat"));
    ExpectStepGoesBothWays(before);
    FHistory.reset();
    Host().Close(*FProject);
  }
}

TEST_F(EditHistory, GoesBackAndForthOverSeveralSteps) {
  Edit({"a", "b", "c"});
  std::vector<std::vector<TEntryRecord>> states{List()};
  const auto step = [&] {
    FHistory->EndStep("Step");
    states.push_back(List());
  };
  File("b")->SetEnabled("Win32", false);
  step();
  AddFile(*FProject, "d");
  step();
  Deployment().RemoveFile("Debug", "Win32", "a");
  step();
  File("d")->SetRemoteName("Win32", "dd");
  File("c")->SetRemoteName("Win32", "cc");
  step();
  Deployment().RemoveFile("Debug", "Win32", "d");
  step();
  for (int round = 0; round < 2; ++round) {
    for (std::size_t i = states.size() - 1; i > 0; --i) {
      FHistory->Undo();
      EXPECT_TRUE(List() == states[i - 1]) << i;
    }
    EXPECT_FALSE(FHistory->CanUndo());
    for (std::size_t i = 1; i < states.size(); ++i) {
      FHistory->Redo();
      EXPECT_TRUE(List() == states[i]) << i;
    }
    EXPECT_FALSE(FHistory->CanRedo());
  }
}

TEST_F(EditHistory, PutsADeletedEntryBackAtItsPlaceAsTheVeryEntry) {
  Edit({"a", "b", "c", "d"});
  const auto before = List();
  const auto entry = File("b");
  Deployment().RemoveFileEntry(*entry);
  Deployment().RemoveFileEntry(*File("c"));
  FHistory->EndStep("Delete");
  EXPECT_EQ(Names(), "a d");
  FHistory->Undo();
  EXPECT_EQ(Names(), "a b c d");
  EXPECT_TRUE(List() == before);
  EXPECT_EQ(File("b"), entry);
}

TEST_F(EditHistory, BringsTheFirstAndTheLastEntryBack) {
  Edit({"a", "b", "c"});
  Deployment().RemoveFile("Debug", "Win32", "a");
  Deployment().RemoveFile("Debug", "Win32", "c");
  FHistory->EndStep("Delete");
  FHistory->Undo();
  EXPECT_EQ(Names(), "a b c");
  FHistory->Redo();
  EXPECT_EQ(Names(), "b");
}

TEST_F(EditHistory, BringsBackAListThatWasEmptied) {
  Edit({"a", "b"});
  Deployment().RemoveFilesOfClass("File");
  FHistory->EndStep("Delete");
  FHistory->Undo();
  EXPECT_EQ(Names(), "a b");
  FHistory->Redo();
  EXPECT_EQ(Names(), "");
}

TEST_F(EditHistory, TakesBackAnEntryThatReplacedAnother) {
  Edit({"a", "b", "c"});
  const auto before = List();
  Deployment().AddFile("Debug", "Win32", "b")->SetRemoteDir("Win32", "new\\");
  ExpectStepGoesBothWays(before);
  EXPECT_EQ(Names(), "a b c");
}

TEST_F(EditHistory, TakesBackTheMoveOfAnEntry) {
  Edit({"a", "b", "c"});
  const auto before = List();
  const auto entry = File("a");
  Deployment().RemoveFileEntry(*entry);
  Deployment().AddFileEntry("Debug", "Win32", entry);
  EXPECT_EQ(Names(), "b c a");
  ExpectStepGoesBothWays(before);
}

TEST_F(EditHistory, MakesNoStepOfWhatCameAndWentAgain) {
  Edit({"a"});
  AddFile(*FProject, "b");
  Deployment().RemoveFile("Debug", "Win32", "b");
  File("a")->SetEnabled("Win32", false);
  File("a")->SetEnabled("Win32", true);
  FHistory->EndStep("Nothing");
  EXPECT_FALSE(FHistory->CanUndo());
}

TEST_F(EditHistory, TakesBackARenameOfAnEntryUnderItsOldKey) {
  Edit({"a", "b"});
  const auto before = List();
  const auto entry = File("a");
  entry->SetLocalName("renamed");
  ExpectStepGoesBothWays(before);
  FHistory->Redo();
  Deployment().RemoveFileEntry(*entry);
  FHistory->EndStep("Delete");
  FHistory->Undo();
  EXPECT_EQ(File("a"), entry) << "the key is the one under which the entry was added";
  EXPECT_EQ(entry->GetLocalName(), "renamed");
  EXPECT_EQ(Names(), "renamed b");
}

TEST_F(EditHistory, LosesNoEntryWhereTwoWantOneKey) {
  Edit({"a", "b", "c"});
  const auto first = File("a");
  first->SetLocalName("b2");
  FHistory->EndStep("Rename");
  Deployment().RemoveFileEntry(*first);
  FHistory->EndStep("Delete");
  // Another entry takes the key meanwhile, in a way that nobody hears of.
  Deployment().SetBlockNotification(true);
  AddFile(*FProject, "a");
  Deployment().SetBlockNotification(false);
  FHistory->Undo();
  EXPECT_EQ(Deployment().GetFiles().size(), 4U);
  EXPECT_EQ(first->GetLocalName(), "b2");
}

TEST_F(EditHistory, TakesBackAReconcileAndARevert) {
  EditText(std::string(ProjectHead) + "</Project>\n");
  AddFile(*FProject, "data\\mine.dat");
  FHistory->EndStep("Add");
  const auto added = List();
  const auto classes = ClassRecordsOf(Deployment());
  ASSERT_EQ(Deployment().Reconcile("Debug", "Win32"), deployment::TReconcileResult::Reconciled);
  const auto reconciled = List();
  ASSERT_GT(reconciled.size(), added.size());
  FHistory->EndStep("Reconcile");
  const std::vector<std::string> platforms{"Win32"};
  Deployment().Revert(platforms, false);
  const auto reverted = List();
  EXPECT_FALSE(reverted == reconciled);
  FHistory->EndStep("Revert");
  FHistory->Undo();
  EXPECT_TRUE(List() == reconciled);
  EXPECT_TRUE(ClassRecordsOf(Deployment()) == classes);
  FHistory->Undo();
  EXPECT_TRUE(List() == added);
  FHistory->Redo();
  EXPECT_TRUE(List() == reconciled);
  FHistory->Redo();
  EXPECT_TRUE(List() == reverted);
}

TEST_F(EditHistory, TakesBackThatClassesAreReadAgain) {
  Edit({"a"});
  EXPECT_TRUE(Deployment().GetClasses().empty());
  const std::vector<std::string> platforms{"Win32"};
  Deployment().Revert(platforms, true);
  const auto classes = ClassRecordsOf(Deployment());
  EXPECT_GT(classes.size(), 20U);
  FHistory->EndStep("Revert");
  FHistory->Undo();
  EXPECT_TRUE(Deployment().GetClasses().empty());
  EXPECT_EQ(Names(), "a");
  FHistory->Redo();
  EXPECT_TRUE(ClassRecordsOf(Deployment()) == classes);
}

TEST_F(EditHistory, TakesBackAChangeOfAClass) {
  EditText(std::string(ProjectHead) + "</Project>\n");
  const auto before = ClassRecordsOf(Deployment());
  Deployment().GetClasses().at(3)->SetRemoteDir("Win32", "elsewhere\\");
  FHistory->EndStep("Class");
  const auto after = ClassRecordsOf(Deployment());
  EXPECT_FALSE(after == before);
  FHistory->Undo();
  EXPECT_TRUE(ClassRecordsOf(Deployment()) == before);
  FHistory->Redo();
  EXPECT_TRUE(ClassRecordsOf(Deployment()) == after);
}

TEST_F(EditHistory, FindsWhatNobodyWasToldOfWhenItLooksEverywhere) {
  Edit({"a", "b"});
  const auto before = List();
  File("b")->SetOverwrite("OSX32", true);
  EXPECT_FALSE(FProject->HasChanges()) << "a record of default values notifies nobody";
  FHistory->EndStep("Notified", TLook::Notified);
  EXPECT_FALSE(FHistory->CanUndo());
  FHistory->EndStep("Look", TLook::Everywhere);
  ASSERT_TRUE(FHistory->CanUndo());
  FHistory->Undo();
  EXPECT_TRUE(List() == before);
  EXPECT_TRUE(FProject->HasChanges());
}

TEST_F(EditHistory, IsAtTheSavedStepAgainWhenAllEditsSinceAreTakenBack) {
  Edit({"a", "b"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("First");
  EXPECT_FALSE(FHistory->IsAtSavedStep());
  FHistory->MarkSaved();
  File("b")->SetEnabled("Win32", false);
  FHistory->EndStep("Second");
  FHistory->Undo();
  EXPECT_TRUE(FHistory->IsAtSavedStep());
  FHistory->Undo();
  EXPECT_FALSE(FHistory->IsAtSavedStep()) << "the file has the first edit";
  FHistory->Redo();
  EXPECT_TRUE(FHistory->IsAtSavedStep());
}

TEST_F(EditHistory, LeavesTheProjectUnchangedByStepsThatAreComputed) {
  Edit({"a"});
  AddFile(*FProject, "computed");
  EXPECT_TRUE(FHistory->EndStep("Reconcile", TLook::Everywhere, TStepKind::Computed));
  EXPECT_TRUE(FHistory->IsAtSavedStep());
  File("a")->SetEnabled("Win32", false);
  EXPECT_TRUE(FHistory->EndStep("Edit"));
  AddFile(*FProject, "more");
  FHistory->EndStep("Reconcile", TLook::Everywhere, TStepKind::Computed);
  EXPECT_FALSE(FHistory->IsAtSavedStep());
  FHistory->Undo();
  EXPECT_FALSE(FHistory->IsAtSavedStep());
  FHistory->Undo();
  EXPECT_TRUE(FHistory->IsAtSavedStep());
  EXPECT_EQ(Names(), "a computed");
  EXPECT_FALSE(FHistory->EndStep("Nothing"));
}

TEST_F(EditHistory, MarksTheProjectForAnEditThatNotifiesNobody) {
  Edit({"a"});
  File("a")->SetOverwrite("OSX32", true);
  ASSERT_FALSE(FProject->HasChanges());
  FHistory->EndStep("Look", TLook::Everywhere);
  EXPECT_TRUE(FProject->HasChanges());
  EXPECT_FALSE(FHistory->IsAtSavedStep());
  FProject->Save(false);
  EXPECT_NE(Read(FFile).find("OSX32"), std::string::npos);
}

TEST_F(EditHistory, FollowsRandomEditsBackAndForth) {
  Edit({"a", "b", "c", "d", "e", "f"});
  std::mt19937 random(20260101);
  const auto below = [&](std::size_t end) { return random() % end; };
  std::vector<std::vector<TEntryRecord>> states{List()};
  std::size_t steps = 0;
  FHistory->SetOnStep([&](const TListChange&) { ++steps; });
  for (int round = 0; round < 300; ++round) {
    while (states.size() < 30) {
      for (std::size_t i = below(5); i > 0; --i)
        EditAtRandom(random, std::string(1, static_cast<char>('a' + below(12))));
      const bool changed = !(List() == states.back());
      const std::size_t before = steps;
      FHistory->EndStep("Step");
      // An entry that was made anew as it had been is a step too.
      ASSERT_TRUE(steps > before || !changed);
      if (steps > before)
        states.push_back(List());
    }
    const std::size_t depth = 1 + below(states.size() - 1);
    for (std::size_t i = 1; i <= depth; ++i) {
      FHistory->Undo();
      ASSERT_TRUE(List() == states[states.size() - 1 - i]) << "round " << round << ", undo " << i;
    }
    const std::size_t again = below(depth + 1);
    for (std::size_t i = 1; i <= again; ++i) {
      FHistory->Redo();
      ASSERT_TRUE(List() == states[states.size() - 1 - depth + i]) << "round " << round;
    }
    states.resize(states.size() - depth + again);
  }
}

TEST_F(EditHistory, TakesBackABulkOfTenThousandInOneStep) {
  Edit(TenThousandNames());
  const auto before = List();
  for (int i = 0; i < 10000; i += 2)
    Deployment().RemoveFile("Debug", "Win32", "data\\file" + std::to_string(i));
  for (const auto& file : Deployment().GetFiles())
    file->SetRemoteDir("Win32", "moved\\");
  ExpectStepGoesBothWays(before);
}

} // namespace
} // namespace workbench
