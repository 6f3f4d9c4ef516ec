#include "tests/workbench/services/edit_fixture.h"
#include "workbench/files/text_hash.h"
#include "workbench/services/recovery.h"
#include "workbench/services/recovery_journal.h"

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>

namespace workbench {
namespace {

using deployment::TInputError;
using testing::EntryNamed;
using testing::ErrorOf;
using testing::ProjectHead;
using testing::ProjectWith;

class Recovery : public testing::TEditTest {
protected:
  /// Opens the entries with a journal that every step goes to.
  void EditWithJournal(const std::vector<std::string>& localNames) {
    Edit(localNames);
    StartJournal();
  }
  void StartJournal() {
    FJournal = std::make_unique<TRecoveryJournal>(FFile);
    FHistory->SetOnStep([this](const TListChange& change) { FJournal->Append(change); });
  }
  /// Everything goes as when the program is killed.
  void EndWithoutAWord() {
    FHistory.reset();
    FJournal.reset();
    if (FProject)
      Host().Close(*FProject);
    FProject = nullptr;
  }
  void Reopen() {
    FHistory.reset();
    FProject = &Open(TOpenPurpose::Edit);
    FHistory = std::make_unique<TEditHistory>(*FProject);
  }
  /// The one thing that can be recovered.
  static TRecoverable Only() {
    const TRecoverySearch search = FindRecoverable();
    EXPECT_TRUE(search.Problems.empty());
    EXPECT_EQ(search.Found.size(), 1U);
    return search.Found.empty() ? TRecoverable() : search.Found.front();
  }
  std::filesystem::path Directory() const {
    return FRoot / "state" / "deployment-manager" / "recovery";
  }
  std::size_t JournalCount() const {
    std::error_code error;
    std::size_t count = 0;
    for (std::filesystem::directory_iterator entry(Directory(), error), end; entry != end; ++entry)
      ++count;
    return count;
  }
  void TearDown() override {
    FJournal.reset();
    TEditTest::TearDown();
  }

  std::unique_ptr<TRecoveryJournal> FJournal;
};

TEST_F(Recovery, WritesNothingBeforeTheFirstStep) {
  EditWithJournal({"a"});
  EXPECT_EQ(JournalCount(), 0U);
  FHistory->EndStep("Nothing");
  EXPECT_EQ(JournalCount(), 0U);
  EXPECT_TRUE(FindRecoverable().Found.empty());
}

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

TEST_F(Recovery, OffersNothingOfAProgramThatRuns) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EXPECT_EQ(JournalCount(), 1U);
  const TRecoverySearch search = FindRecoverable();
  EXPECT_TRUE(search.Found.empty());
  EXPECT_TRUE(search.Problems.empty());
  EXPECT_EQ(JournalCount(), 1U);
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

TEST_F(Recovery, IsDiscarded) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EndWithoutAWord();
  const TRecoverable found = Only();
  Discard(found);
  EXPECT_TRUE(FindRecoverable().Found.empty());
  EXPECT_EQ(JournalCount(), 0U);
  EXPECT_NE(ErrorOf<TInputError>([&] { Discard(found); }), "");
  Reopen();
  EXPECT_NE(ErrorOf<TInputError>([&] { Recover(found, *FProject); }), "");
  EXPECT_FALSE(FProject->HasChanges());
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

TEST_F(Recovery, KeepsTwoProjectsApart) {
  const std::filesystem::path first = FFile;
  EditWithJournal({"a"});
  File("a")->SetRemoteDir("Win32", "first\\");
  FHistory->EndStep("Edit");
  EndWithoutAWord();
  FFile = FDirectory / "other.vproj";
  EditWithJournal({"a"});
  File("a")->SetRemoteDir("Win32", "second\\");
  FHistory->EndStep("Edit");
  EndWithoutAWord();
  const TRecoverySearch search = FindRecoverable();
  ASSERT_EQ(search.Found.size(), 2U);
  const bool inOrder = IsOfProject(search.Found[0], first);
  const TRecoverable& other = search.Found[inOrder ? 1 : 0];
  EXPECT_TRUE(IsOfProject(other, FFile));
  EXPECT_FALSE(IsOfProject(other, first));
  Reopen();
  EXPECT_EQ(ErrorOf<TInputError>([&] { Recover(search.Found[inOrder ? 0 : 1], *FProject); }),
            "the recovery journal is of another project, " + first.string());
  Recover(other, *FProject);
  EXPECT_EQ(File("a")->GetRemoteDir("Win32"), "second\\");
}

TEST_F(Recovery, KnowsTheProjectUnderTheNameOfALink) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Edit");
  EndWithoutAWord();
  const std::filesystem::path link = FDirectory / "link.vproj";
  std::filesystem::create_symlink(FFile, link);
  EXPECT_TRUE(IsOfProject(Only(), link));
}

TEST_F(Recovery, LeavesABrokenLastLineOut) {
  EditWithJournal({"a"});
  File("a")->SetRemoteDir("Win32", "first\\");
  FHistory->EndStep("First");
  File("a")->SetRemoteDir("Win32", "second\\");
  FHistory->EndStep("Second");
  EndWithoutAWord();
  TRecoverable found = Only();
  const std::string text = Read(found.Journal);
  Write(found.Journal, text.substr(0, text.size() - 40));
  found = Only();
  EXPECT_FALSE(found.IsDamaged);
  Reopen();
  Recover(found, *FProject);
  EXPECT_EQ(File("a")->GetRemoteDir("Win32"), "first\\");
}

TEST_F(Recovery, SaysWhenItIsDamagedInTheMiddle) {
  EditWithJournal({"a"});
  for (const char* directory : {"first\\", "second\\", "third\\"}) {
    File("a")->SetRemoteDir("Win32", directory);
    FHistory->EndStep("Remote path");
  }
  EndWithoutAWord();
  TRecoverable found = Only();
  std::string text = Read(found.Journal);
  text[text.find("second")] = 'S';
  Write(found.Journal, text);
  found = Only();
  EXPECT_TRUE(found.IsDamaged);
  Reopen();
  Recover(found, *FProject);
  EXPECT_EQ(File("a")->GetRemoteDir("Win32"), "first\\");
}

TEST_F(Recovery, ReportsWhatItCannotReadAndLeavesItInPlace) {
  std::filesystem::create_directories(Directory());
  const auto problemOf = [this](std::string_view content) {
    const std::filesystem::path file = Directory() / "x.journal";
    Write(file, content);
    const TRecoverySearch search = FindRecoverable();
    EXPECT_TRUE(search.Found.empty());
    EXPECT_EQ(search.Problems.size(), 1U);
    EXPECT_EQ(Read(file), content);
    const std::string start = file.string() + ": the recovery journal cannot be understood: ";
    EXPECT_EQ(search.Problems.at(0).substr(0, start.size()), start);
    return search.Problems.at(0).substr(start.size());
  };
  EXPECT_EQ(problemOf(""), "it is no recovery journal");
  EXPECT_EQ(problemOf(std::string("\0\xff\xfe\n\n\x80", 6)), "it is no recovery journal");
  EXPECT_EQ(problemOf("hello\nworld\n"), "it is no recovery journal");
  const auto line = [](const std::string& json) { return TextHash(json) + " " + json + "\n"; };
  EXPECT_NE(problemOf(line("{\"a\":1}")).find("journal"), std::string::npos);
  EXPECT_NE(problemOf(line("[1")).find("parse error"), std::string::npos);
  EXPECT_EQ(problemOf(line("{\"journal\":99}")),
            "it was written by another version of this program (format 99)");
  const std::string head = HeadLine("/p/x.vproj", {1, "00"});
  EXPECT_NE(problemOf(head + line("{\"step\":\"s\"}")).find("entries"), std::string::npos);
  EXPECT_NE(problemOf(head + line("{\"step\":\"s\",\"entries\":[{\"after\":7}]}")).find("type"),
            std::string::npos);
  std::filesystem::remove(Directory() / "x.journal");
  std::filesystem::create_directory(Directory() / "d.journal");
  Write(Directory() / "unrelated.txt", "no journal");
  EXPECT_EQ(FindRecoverable().Problems,
            std::vector<std::string>{(Directory() / "d.journal").string() +
                                     ": the path names a directory, not a "
                                     "recovery journal"});
}

TEST_F(Recovery, KeepsNamesThatAreNoText) {
  EditWithJournal({"a"});
  AddFile(*FProject, "caf\xe9.dat");
  FHistory->EndStep("Add");
  EXPECT_EQ(FJournal->Trouble(), "");
  EndWithoutAWord();
  const TRecoverable found = Only();
  Reopen();
  Recover(found, *FProject);
  EXPECT_NE(File("caf\xe9.dat"), nullptr);
}

TEST_F(Recovery, IsForTheUserAlone) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  struct stat status = {};
  ASSERT_EQ(::stat(Directory().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  ASSERT_EQ(::stat(FJournal->File().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(Recovery, SaysWhenEditsCannotBeKeptAndLetsTheUserGoOn) {
  Write(FRoot / "state", "a file where the directory should be");
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EXPECT_EQ(FJournal->Trouble().find("unsaved edits of " + FFile.string() + " would be lost"), 0U)
      << FJournal->Trouble();
  EXPECT_EQ(FJournal->File(), std::filesystem::path());
  std::filesystem::remove(FRoot / "state");
  FJournal->Remove();
  EXPECT_EQ(FJournal->Trouble(), "");
  File("a")->SetEnabled("Win32", true);
  FHistory->EndStep("Switch on");
  EXPECT_EQ(FJournal->Trouble(), "");
  EXPECT_TRUE(std::filesystem::exists(FJournal->File()));
}

TEST_F(Recovery, BringsTenThousandEntriesBack) {
  std::vector<std::string> names(10000);
  for (std::size_t i = 0; i < names.size(); ++i)
    names[i] = "data\\file" + std::to_string(i);
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

} // namespace
} // namespace workbench
