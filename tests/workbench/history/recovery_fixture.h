// Projects whose unsaved edits are kept, and ends that nobody wanted.
#pragma once

#include "tests/workbench/history/edit_fixture.h"
#include "workbench/history/recovery.h"
#include "workbench/history/recovery_journal.h"

namespace workbench::testing {

class TRecoveryTest : public TEditTest {
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
    FHistory.reset();
    FJournal.reset();
    TEditTest::TearDown();
  }

  std::unique_ptr<TRecoveryJournal> FJournal;
};

} // namespace workbench::testing
