#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/deploy/plan/row_choices.h"
#include "workbench/files/sha256.h"
#include "workbench/remote/target/file_times.h"

#include <algorithm>

namespace workbench {
namespace {

using testing::TRemotePlace;
using TKind = TRowChoice::TKind;

const deployment::TDeploymentTarget ChoiceTarget{"Debug", "Win32"};

// Three files: "a" was changed on the target, "b" is new, "c" is deployed and not listed any more.
class RowChoices : public ::testing::Test {
protected:
  void SetUp() override {
    FFiles = {FPlace.File("a", "a", "deployed"), FPlace.File("b", "b", "12345")};
    TRemotePlace::Write(FPlace.Target("a"),
                        "a longer hotfix"); // seen by its size, whatever its time
    TRemotePlace::Write(FPlace.Target("c"), "left over");
    Record("a", "deployed");
    Record("c", "left over");
  }
  void Record(const std::string& path, const std::string& content) {
    TSHA256 hash;
    hash.Add(content);
    FPlace.Record.Files[path] = {.LocalName = path,
                                 .Size = content.size(),
                                 .Time = 1000,
                                 .Hash = hash.Text(),
                                 .Mode = 0644,
                                 .Platform = ChoiceTarget.Platform,
                                 .Configuration = ChoiceTarget.Configuration};
  }
  TDeployPlan Plan(const TRowChoices& choices = {}) const {
    return FPlace.Plan(FFiles, {.Choices = choices, .Target = ChoiceTarget});
  }
  // The decision about a file as it stands on the target now.
  TRowChoices About(const std::string& name, TKind kind) const {
    const TDeployPlan plan = Plan();
    TRowChoices choices;
    for (const TPlannedFile& file : plan.Files)
      if (file.Target.Name == name)
        choices[file.RemoteFile()] = {kind, file.There.Size, file.There.Modified};
    for (const TLeftOver& file : plan.LeftOvers)
      if (file.Target.Name == name)
        choices[file.RemoteFile()] = {kind, file.There.Size, file.There.Modified};
    EXPECT_EQ(choices.size(), 1U);
    return choices;
  }
  static TDeployAction ActionOf(const TDeployPlan& plan, const std::string& name) {
    const auto found = std::ranges::find_if(
        plan.Files, [&](const TPlannedFile& file) { return file.Target.Name == name; });
    return found == plan.Files.end() ? TDeployAction::Failed : found->Action;
  }

  TRemotePlace FPlace;
  std::vector<TDeployFile> FFiles;
};

TEST_F(RowChoices, ChangeNothingWhereThereAreNone) {
  const TDeployPlan plan = Plan();
  EXPECT_EQ(ActionOf(plan, "a"), TDeployAction::Refused);
  EXPECT_EQ(ActionOf(plan, "b"), TDeployAction::Copied);
  EXPECT_EQ(plan.Files.size(), 2U);
  ASSERT_EQ(plan.LeftOvers.size(), 1U);
}

TEST_F(RowChoices, TakingOursCopiesOverWhatOthersChanged) {
  const TDeployPlan plan = Plan(About("a", TKind::Take));
  EXPECT_EQ(ActionOf(plan, "a"), TDeployAction::Copied);
  EXPECT_EQ(plan.Files[0].Bytes, 8U);
  EXPECT_EQ(plan.Files[0].Reason, "");
}

TEST_F(RowChoices, TakingOursHoldsForWhatWasSeenAlone) {
  const TRowChoices choices = About("a", TKind::Take);
  TRemotePlace::Write(FPlace.Target("a"), "another hotfix");
  const TDeployPlan plan = Plan(choices);
  EXPECT_EQ(ActionOf(plan, "a"), TDeployAction::Refused);
  EXPECT_EQ(plan.Files[0].Reason,
            "it was changed on the target again since the plan was looked at");
}

TEST_F(RowChoices, KeepingTheirsIsNoRefusal) {
  const TDeployPlan plan = Plan(About("a", TKind::Leave));
  EXPECT_EQ(ActionOf(plan, "a"), TDeployAction::Kept);
  EXPECT_EQ(plan.Files[0].Reason, "");
  EXPECT_EQ(ActionOf(plan, "b"), TDeployAction::Copied);
}

TEST_F(RowChoices, AFileThatIsLeftOutIsSkippedWithItsCommands) {
  FFiles[1].RemoteCommands = {"restart"};
  const TDeployPlan plan = Plan(About("b", TKind::Leave));
  EXPECT_EQ(ActionOf(plan, "b"), TDeployAction::Skipped);
  EXPECT_EQ(plan.Files[1].Bytes, 0U);
  EXPECT_TRUE(plan.Files[1].Steps.empty());
}

TEST_F(RowChoices, ALeftOverThatIsTakenIsRemovedAndOthersStay) {
  TRemotePlace::Write(FPlace.Target("d"), "left over");
  Record("d", "left over");
  const TDeployPlan plan = Plan(About("c", TKind::Take));
  EXPECT_EQ(ActionOf(plan, "c"), TDeployAction::Removed);
  EXPECT_EQ(plan.Files.size(), 3U);
}

TEST_F(RowChoices, ALeftOverThatOthersChangedIsNeverRemoved) {
  TRowChoices choices = About("c", TKind::Take);
  TRemotePlace::Write(FPlace.Target("c"), "changed by somebody");
  EXPECT_EQ(Plan(choices).Files.size(), 2U);
  for (auto& choice : choices)
    choice.second.SizeThere = 19;
  choices.begin()->second.TimeThere = Plan().LeftOvers[0].There.Modified;
  EXPECT_EQ(ActionOf(Plan(choices), "c"), TDeployAction::Refused);
}

TEST_F(RowChoices, WhatIsLeftOutNeedsNoConsentToBeSent) {
  const TRowChoices choices = About("b", TKind::Leave);
  const TPlanOptions options{
      .Choices = choices, .SourceRoots = {FPlace.Local("elsewhere")}, .Target = ChoiceTarget};
  EXPECT_EQ(FPlace.Plan(FFiles, options).Outside,
            std::vector<std::string>{FPlace.Local("a").string()});
}

} // namespace
} // namespace workbench
