#include "tests/workbench/history/recovery_fixture.h"
#include "workbench/files/text_hash.h"

#include <sys/stat.h>

namespace workbench {
namespace {

using deployment::TInputError;
using testing::ErrorOf;

using RecoveryFiles = testing::TRecoveryTest;

TEST_F(RecoveryFiles, WritesNothingBeforeTheFirstStep) {
  EditWithJournal({"a"});
  EXPECT_EQ(JournalCount(), 0U);
  FHistory->EndStep("Nothing");
  EXPECT_EQ(JournalCount(), 0U);
  EXPECT_TRUE(FindRecoverable().Found.empty());
}

TEST_F(RecoveryFiles, OffersNothingOfAProgramThatRuns) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EXPECT_EQ(JournalCount(), 1U);
  const TRecoverySearch search = FindRecoverable();
  EXPECT_TRUE(search.Found.empty());
  EXPECT_TRUE(search.Problems.empty());
  EXPECT_EQ(JournalCount(), 1U);
}

TEST_F(RecoveryFiles, IsDiscarded) {
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

TEST_F(RecoveryFiles, KeepsTwoProjectsApart) {
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

TEST_F(RecoveryFiles, KnowsTheProjectUnderTheNameOfALink) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Edit");
  EndWithoutAWord();
  const std::filesystem::path link = FDirectory / "link.vproj";
  std::filesystem::create_symlink(FFile, link);
  EXPECT_TRUE(IsOfProject(Only(), link));
}

TEST_F(RecoveryFiles, LeavesABrokenLastLineOut) {
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

TEST_F(RecoveryFiles, SaysWhenItIsDamagedInTheMiddle) {
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

TEST_F(RecoveryFiles, ReportsWhatItCannotReadAndLeavesItInPlace) {
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
  EXPECT_NE(problemOf(line("[1")).find("it is no JSON"), std::string::npos);
  EXPECT_EQ(problemOf(line("{\"journal\":99}")),
            "it was written by another version of this program (format 99)");
  const std::string head = HeadLine("/p/x.vproj", {1, "00"});
  EXPECT_NE(problemOf(head + line("{\"step\":\"s\"}")).find("entries"), std::string::npos);
  EXPECT_NE(problemOf(head + line("{\"step\":\"s\",\"entries\":[{\"after\":7}]}")).find("should be"),
            std::string::npos);
  std::filesystem::remove(Directory() / "x.journal");
  std::filesystem::create_directory(Directory() / "d.journal");
  Write(Directory() / "unrelated.txt", "no journal");
  EXPECT_EQ(FindRecoverable().Problems,
            std::vector<std::string>{(Directory() / "d.journal").string() +
                                     ": the path names a directory, not a "
                                     "recovery journal"});
}

TEST_F(RecoveryFiles, KeepsNamesThatAreNoText) {
  EditWithJournal({"a"});
  AddFile(*FProject, "caf\xe9.dat");
  FHistory->EndStep("Add");
  EXPECT_EQ(FJournal->Problem(), "");
  EndWithoutAWord();
  const TRecoverable found = Only();
  Reopen();
  Recover(found, *FProject);
  EXPECT_NE(File("caf\xe9.dat"), nullptr);
}

TEST_F(RecoveryFiles, GrowsNoLargerThanCanBeRead) {
  Edit({"a"});
  FJournal = std::make_unique<TRecoveryJournal>(FFile, 900);
  FHistory->SetOnStep([this](const TListChange& change) { FJournal->Append(change); });
  int steps = 0;
  for (; FJournal->Problem().empty() && steps < 100; ++steps) {
    File("a")->SetRemoteDir("Win32", "directory" + std::to_string(steps));
    FHistory->EndStep("Edit");
  }
  ASSERT_LT(steps, 100);
  EXPECT_NE(FJournal->Problem().find("(it would be too large; a save starts a new one)"),
            std::string::npos)
      << FJournal->Problem();
  EXPECT_LE(std::filesystem::file_size(FJournal->File()), 900U);
  EndWithoutAWord();
  const TRecoverable found = Only();
  Reopen();
  Recover(found, *FProject);
  EXPECT_EQ(File("a")->GetRemoteDir("Win32"), "directory" + std::to_string(steps - 2));
}

TEST_F(RecoveryFiles, IsForTheUserAlone) {
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  struct stat status = {};
  ASSERT_EQ(::stat(Directory().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  ASSERT_EQ(::stat(FJournal->File().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(RecoveryFiles, SaysWhenEditsCannotBeKeptAndLetsTheUserGoOn) {
  Write(FRoot / "state", "a file where the directory should be");
  EditWithJournal({"a"});
  File("a")->SetEnabled("Win32", false);
  FHistory->EndStep("Switch off");
  EXPECT_EQ(FJournal->Problem().find("unsaved edits of " + FFile.string() + " would be lost"), 0U)
      << FJournal->Problem();
  EXPECT_EQ(FJournal->File(), std::filesystem::path());
  std::filesystem::remove(FRoot / "state");
  FJournal->Remove();
  EXPECT_EQ(FJournal->Problem(), "");
  File("a")->SetEnabled("Win32", true);
  FHistory->EndStep("Switch on");
  EXPECT_EQ(FJournal->Problem(), "");
  EXPECT_TRUE(std::filesystem::exists(FJournal->File()));
}

} // namespace
} // namespace workbench
