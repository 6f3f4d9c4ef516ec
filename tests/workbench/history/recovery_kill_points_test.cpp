// A program that is killed anywhere between an edit and the end of the save that keeps it.
#include "tests/workbench/history/kill_points.h"
#include "tests/workbench/history/recovery_fixture.h"

namespace workbench {
namespace {

namespace fs = std::filesystem;
using testing::StatesOfKills;

class RecoveryKillPoints : public testing::TRecoveryTest {
protected:
  // Adds, changes and removes entries of "a b c", a step each.
  void DoEdits() {
    AddFile(*FProject, "x");
    File("x")->SetRemoteDir("OSX32", "mac\\"); // a file keeps this platform as the last one
    FHistory->EndStep("Add");
    AddFile(*FProject, "y");
    File("b")->SetRemoteName("Win32", "bb");
    FHistory->EndStep("Edit");
    Deployment().RemoveFile("Debug", "Win32", "a");
    FHistory->EndStep("Delete");
  }
  void SaveAll() {
    FProject->Save(false);
    FHistory->MarkSaved();
    FJournal->Remove();
  }
  // As the window does it.
  void RecoverAll() {
    for (const TRecoverable& found : FindRecoverable().Found) {
      Recover(found, *FProject);
      FHistory->EndStep("Recovered", TLook::Everywhere);
      Discard(found);
    }
  }
  void Restore(const fs::path& state) {
    for (const auto& entry : fs::directory_iterator(FRoot))
      fs::remove_all(entry.path());
    fs::copy(state, FRoot, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  }
  // The names in the list after a start of the program that recovers what there is.
  std::string NamesAfterRecovery() {
    const TRecoverySearch search = FindRecoverable();
    EXPECT_TRUE(search.Problems.empty());
    Reopen();
    StartJournal();
    RecoverAll();
    const bool isB = File("b") && File("b")->GetRemoteName("Win32") == "bb";
    std::string names = Names() + (isB ? " (edited)" : "");
    EXPECT_TRUE(FindRecoverable().Found.empty());
    EndWithoutAWord();
    return names;
  }
  void ExpectWholeListAfterEach(const std::vector<fs::path>& states) {
    // Where steps were in the journal or the file already, they are there afterwards.
    const std::vector<std::string> steps{"a b c", "a b c x", "a b c x y (edited)",
                                         "b c x y (edited)"};
    std::size_t reached = 0;
    for (const fs::path& state : states) {
      Restore(state);
      const std::string names = NamesAfterRecovery();
      const auto step = std::ranges::find(steps, names);
      ASSERT_NE(step, steps.end()) << state << ": " << names;
      const auto number = static_cast<std::size_t>(step - steps.begin());
      EXPECT_GE(number, reached) << state << ": " << names;
      reached = number;
    }
    EXPECT_EQ(reached, 3U);
  }

  testing::TTemporaryDirectory FCopies;
};

TEST_F(RecoveryKillPoints, OfASaveDoubleNothingAndLoseNothing) {
  Edit({"a", "b", "c"});
  EndWithoutAWord();
  FSession.reset();
  const auto states = StatesOfKills(FRoot, FCopies.Path(), [this] {
    Reopen();
    StartJournal();
    DoEdits();
    SaveAll();
  });
  if (states.empty())
    GTEST_SKIP() << "this machine lets nobody look at processes";
  EXPECT_GE(states.size(), 15U);
  ExpectWholeListAfterEach(states);
}

TEST_F(RecoveryKillPoints, OfARecoveryDoubleNothingAndLoseNothing) {
  EditWithJournal({"a", "b", "c"});
  DoEdits();
  EndWithoutAWord();
  FSession.reset();
  const auto states = StatesOfKills(FRoot, FCopies.Path(), [this] {
    Reopen();
    StartJournal();
    RecoverAll();
    SaveAll();
  });
  if (states.empty())
    GTEST_SKIP() << "this machine lets nobody look at processes";
  EXPECT_GE(states.size(), 12U);
  ExpectWholeListAfterEach(states);
}

} // namespace
} // namespace workbench
