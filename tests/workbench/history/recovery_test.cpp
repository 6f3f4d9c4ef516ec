#include "tests/workbench/history/recovery_fixture.h"

#include <csignal>
#include <sys/wait.h>

namespace workbench {
namespace {

using testing::EntryNamed;
using testing::ProjectWith;

using Recovery = testing::TRecoveryTest;

TEST_F(Recovery, BringsTheEditsOfAnEndedProgramBack) {
  EditWithJournal({"a", "b", "c"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  Deployment().RemoveFile("Debug", "Win32", "b");
  FHistory->EndStep("Delete");
  AddFile(*FProject, "d");
  FHistory->EndStep("Add");
  File("c")->SetRemoteName("Win32", "cc");
  File("d")->SetRemoteName("OSX32", "dd");
  FHistory->EndStep("Rename");
  FHistory->Undo();
  FHistory->Redo();
  const auto edited = List();
  EndWithoutAWord();

  const TRecoverable found = Only();
  EXPECT_EQ(found.Project, FFile);
  EXPECT_EQ(found.ChangedEntries, 4U);
  EXPECT_FALSE(found.ChangesClasses);
  EXPECT_FALSE(found.IsDamaged);
  EXPECT_EQ(found.State, TProjectState::Same);
  EXPECT_LT(std::chrono::abs(std::chrono::system_clock::now() - found.When), std::chrono::hours(1));
  Reopen();
  EXPECT_EQ(Names(), "a b c");
  Recover(found, *FProject);
  EXPECT_TRUE(List() == edited);
  EXPECT_TRUE(FProject->HasChanges());
}

TEST_F(Recovery, MakesTheRecoveredEditsAStepOfTheNextJournal) {
  EditWithJournal({"a", "b"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EndWithoutAWord();
  const TRecoverable found = Only();
  Reopen();
  StartJournal();
  const auto before = List();
  Recover(found, *FProject);
  FHistory->EndStep("Recovered", TLook::Everywhere);
  Discard(found);
  EXPECT_EQ(JournalCount(), 1U);
  FHistory->Undo();
  EXPECT_TRUE(List() == before);
  FHistory->Redo();
  EndWithoutAWord();
  EXPECT_EQ(Only().ChangedEntries, 1U);
}

TEST_F(Recovery, SurvivesAKilledProcess) {
  Write(FFile, ProjectWith(EntryNamed("a") + EntryNamed("b")));
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Reopen();
    StartJournal();
    File("b")->SetRemoteDir("Win32", "kept\\");
    FHistory->EndStep("Remote path");
    ::kill(::getpid(), SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
  const TRecoverable found = Only();
  Reopen();
  Recover(found, *FProject);
  EXPECT_EQ(File("b")->GetRemoteDir("Win32"), "kept\\");
}

TEST_F(Recovery, OffersNothingThatWasUndone) {
  EditWithJournal({"a", "b", "c"});
  Deployment().RemoveFile("Debug", "Win32", "b");
  File("a")->SetEnabled("Win32", false);
  AddFile(*FProject, "d");
  FHistory->EndStep("Edit");
  FHistory->Undo();
  EndWithoutAWord();
  EXPECT_EQ(JournalCount(), 1U);
  EXPECT_TRUE(FindRecoverable().Found.empty());
  EXPECT_EQ(JournalCount(), 0U) << "there was nothing in it";
}

TEST_F(Recovery, KeepsTheOrderOfTheList) {
  EditWithJournal({"a", "b", "c", "d", "e"});
  Deployment().RemoveFile("Debug", "Win32", "b");
  FHistory->EndStep("Delete");
  AddFile(*FProject, "f");
  FHistory->EndStep("Add");
  const auto moved = File("a");
  Deployment().RemoveFileEntry(*moved);
  Deployment().AddFileEntry("Debug", "Win32", moved);
  FHistory->EndStep("Move");
  FHistory->Undo();
  FHistory->Undo();
  FHistory->Undo();
  Deployment().RemoveFile("Debug", "Win32", "d");
  FHistory->EndStep("Delete");
  const auto edited = List();
  EXPECT_EQ(Names(), "a b c e");
  EndWithoutAWord();
  const TRecoverable found = Only();
  EXPECT_EQ(found.ChangedEntries, 1U);
  Reopen();
  Recover(found, *FProject);
  EXPECT_TRUE(List() == edited);
}

TEST_F(Recovery, BringsClassesBack) {
  EditWithJournal({"a"});
  const std::vector<std::string> platforms{"Win32"};
  Deployment().Revert(platforms, true);
  FHistory->EndStep("Revert");
  const auto edited = List();
  const auto classes = ClassRecordsOf(Deployment());
  EXPECT_GT(classes.size(), 20U);
  EndWithoutAWord();
  const TRecoverable found = Only();
  EXPECT_TRUE(found.ChangesClasses);
  Reopen();
  Recover(found, *FProject);
  EXPECT_TRUE(List() == edited);
  EXPECT_TRUE(ClassRecordsOf(Deployment()) == classes);
}

TEST_F(Recovery, FindsEntriesThatAreKnownUnderOtherKeysAfterASave) {
  EditWithJournal({"a", "b"});
  File("a")->SetRemoteName("OSX32", "aa");
  File("b")->SetLocalName("renamed");
  FHistory->EndStep("Edit");
  FProject->Save(false);
  FHistory->MarkSaved();
  FJournal->Remove();
  EXPECT_EQ(JournalCount(), 0U);
  File("a")->SetEnabled("OSX32", false);
  File("b")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EndWithoutAWord();
  const TRecoverable found = Only();
  EXPECT_EQ(found.State, TProjectState::Same);
  Reopen();
  Recover(found, *FProject);
  ASSERT_EQ(Names(), "a renamed");
  EXPECT_FALSE(Deployment().GetFiles()[0]->GetEnabled("OSX32"));
  EXPECT_FALSE(Deployment().GetFiles()[1]->GetEnabled("Win32"));
}

TEST_F(Recovery, IsOverAfterASaveAndGoesOnWithTheNextEdit) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("First");
  FProject->Save(false);
  FJournal->Remove();
  EXPECT_EQ(JournalCount(), 0U);
  File("a")->SetRemoteDir("Win32", "x\\");
  FHistory->EndStep("Second");
  EndWithoutAWord();
  const TRecoverable found = Only();
  EXPECT_EQ(found.State, TProjectState::Same);
  EXPECT_EQ(found.ChangedEntries, 1U);
}

TEST_F(Recovery, GoesOnWhenTheProjectFileIsWrittenWithoutTheList) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EXPECT_TRUE(FProject->AssignProfile("Win32", "lab", false));
  FJournal->ProjectFileWritten();
  EndWithoutAWord();
  EXPECT_EQ(Only().State, TProjectState::Same);
}

TEST_F(Recovery, SeesThatTheProjectFileChangedOrWent) {
  EditWithJournal({"a", "b"});
  File("a")->SetEnabled("Win32", false);
  Deployment().RemoveFile("Debug", "Win32", "b");
  AddFile(*FProject, "c");
  FHistory->EndStep("Edit");
  EndWithoutAWord();
  // As somebody else may have edited it: one entry changed, one went, one came.
  std::string other = ProjectWith(EntryNamed("a") + EntryNamed("c") + EntryNamed("z"));
  other.replace(other.find("<Overwrite>true"), 15, "<Overwrite>false");
  Write(FFile, other);
  TRecoverable found = Only();
  EXPECT_EQ(found.State, TProjectState::Changed);
  Reopen();
  Recover(found, *FProject);
  EXPECT_EQ(Names(), "a c z");
  EXPECT_FALSE(File("a")->GetEnabled("Win32"));
  EXPECT_EQ(File("c")->GetRemoteDir("Win32"), "data\\");
  EndWithoutAWord();
  std::filesystem::remove(FFile);
  EXPECT_EQ(Only().State, TProjectState::Gone);
}

TEST_F(Recovery, BringsTenThousandEntriesBack) {
  const auto names = TenThousandNames();
  EditWithJournal(names);
  for (std::size_t i = 0; i < names.size(); i += 2)
    Deployment().RemoveFile("Debug", "Win32", names[i]);
  for (const auto& file : Deployment().GetFiles())
    file->SetRemoteDir("Win32", "moved\\");
  FHistory->EndStep("Edit");
  FHistory->Undo();
  FHistory->Redo();
  const auto edited = List();
  EndWithoutAWord();
  const TRecoverable found = Only();
  EXPECT_EQ(found.ChangedEntries, 10000U);
  Reopen();
  Recover(found, *FProject);
  EXPECT_TRUE(List() == edited);
}

TEST_F(Recovery, FindsEntriesThatWereAddedAndSavedByTheirStoredNames) {
  EditWithJournal({"a"});
  for (const char* name : {"x", "y", "z"}) {
    AddFile(*FProject, name);
    File(name)->SetRemoteDir("OSX32", "mac\\"); // the file keeps this platform as the last one
  }
  FHistory->EndStep("Add");
  File("y")->SetRemoteName("Win32", "yy");
  FHistory->EndStep("Edit");
  FProject->Save(false); // killed before the journal was removed
  EndWithoutAWord();
  const TRecoverable found = Only();
  EXPECT_EQ(found.State, TProjectState::Changed);
  Reopen();
  const auto saved = List();
  Recover(found, *FProject);
  EXPECT_EQ(Names(), "a x y z");
  EXPECT_FALSE(FHistory->EndStep("Recovered", TLook::Everywhere)) << "nothing is another one";
  EXPECT_TRUE(List() == saved);
}

TEST_F(Recovery, DoublesNothingOfRandomEditsThatWereSaved) {
  int renames = 0;
  for (unsigned seed = 1; seed <= 40; ++seed) {
    std::mt19937 random(seed);
    EditWithJournal({"a", "b", "c", "d", "e", "f"});
    for (int step = 0; step < 12; ++step) {
      EditAtRandom(random, "renamed" + std::to_string(++renames));
      for (const auto& file : Deployment().GetFiles())
        file->SetRemoteDir("Android", "assets\\");
      FHistory->EndStep("Step");
    }
    FProject->Save(false);
    EndWithoutAWord();
    const TRecoverable found = Only();
    Reopen();
    std::string saved = Names();
    Recover(found, *FProject);
    EXPECT_EQ(Names(), saved) << "seed " << seed;
    EndWithoutAWord();
    Discard(found);
  }
}

TEST_F(Recovery, LeavesTwoEntriesOfOneNameApartInAFileThatIsWhatItWas) {
  EditText(ProjectWith([] {
    std::string entry = EntryNamed("x");
    return entry.replace(entry.find("Win32"), 5, "Android");
  }()));
  StartJournal();
  AddFile(*FProject, "x");
  FHistory->EndStep("Add");
  EndWithoutAWord();
  const TRecoverable found = Only();
  Reopen();
  Recover(found, *FProject);
  EXPECT_EQ(Names(), "x x");
}

TEST_F(Recovery, OffersNothingThatComesBackByItself) {
  EditWithJournal({"a"});
  AddFile(*FProject, "computed");
  FHistory->EndStep("Reconcile", TLook::Everywhere, TStepKind::Computed);
  EndWithoutAWord();
  EXPECT_TRUE(FindRecoverable().Found.empty());
  EditWithJournal({"a"});
  AddFile(*FProject, "computed");
  FHistory->EndStep("Reconcile", TLook::Everywhere, TStepKind::Computed);
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EndWithoutAWord();
  EXPECT_EQ(Only().ChangedEntries, 1U);
}

TEST_F(Recovery, KnowsTheNameThatTheProjectGotMeanwhile) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  const auto renamed = FDirectory / "renamed.vproj";
  std::filesystem::rename(FFile, renamed);
  FJournal->ProjectRenamed(renamed);
  EndWithoutAWord();
  const TRecoverable found = Only();
  EXPECT_EQ(found.Project, renamed);
  EXPECT_EQ(found.State, TProjectState::Same);
}

TEST_F(Recovery, FollowsRandomEdits) {
  int renames = 0;
  for (unsigned seed = 1; seed <= 40; ++seed) {
    std::mt19937 random(seed);
    EditWithJournal({"a", "b", "c", "d", "e", "f"});
    for (int step = 0; step < 20; ++step) {
      for (std::size_t i = random() % 5; i > 0; --i)
        EditAtRandom(random, "renamed" + std::to_string(++renames));
      FHistory->EndStep("Step");
      for (std::size_t i = random() % 3; i > 0; --i)
        FHistory->Undo();
      if (random() % 2 == 0)
        FHistory->Redo();
    }
    // Without this, all may have been undone or the order alone be another one.
    AddFile(*FProject, "last");
    FHistory->EndStep("Add");
    const auto edited = List();
    EndWithoutAWord();
    const TRecoverable found = Only();
    Reopen();
    Recover(found, *FProject);
    ASSERT_TRUE(List() == edited) << "seed " << seed;
    EndWithoutAWord();
    Discard(found);
  }
}

} // namespace
} // namespace workbench
