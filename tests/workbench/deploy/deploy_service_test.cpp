#include "tests/workbench/session/session_fixture.h"
#include "workbench/deploy/deploy_service.h"
#include "workbench/remote/target/seen_files.h"
#include "workbench/services/remote_profile_services.h"

namespace workbench {
namespace {

// A project with one file, deployed to a folder.
class DeployService : public testing::TSessionTest {
protected:
  void SetUp() override {
    TSessionTest::SetUp();
    std::filesystem::create_directories(FRoot / "place");
    Host().RemoteProfiles().AddProfile({.Name = "place",
                                        .Platform = "Win32",
                                        .Path = (FRoot / "place").string(),
                                        .IsDefault = true});
    Write(FFile.parent_path() / "levels.dat", "levels");
    FOpen = &OpenText(testing::ProjectWith(""));
    FOpen->Deployment().AddFile("Debug", "Win32", "levels.dat")->SetEnabled("Win32", true);
  }
  TDeployReport Deploy(const TMayBegin& mayBegin, const TRowChoices& choices = {}) {
    TSilentObserver nobody;
    TDeployRequest request{.Project = FOpen->Project(), .Target = {"Debug", "Win32"}};
    request.MayBegin = mayBegin;
    request.Options.Choices = choices;
    return Host().RemoteProfiles().Deploys().Deploy(request, nobody);
  }
  bool IsThere() const {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(FRoot / "place"))
      if (entry.path().filename() == "levels.dat")
        return true;
    return false;
  }

  TOpenProject* FOpen = nullptr;
};

TEST_F(DeployService, ShowsThePlanBeforeItBeginsAndDoesNothingWithoutAYes) {
  std::vector<TDeployRow> planned;
  const TDeployReport report = Deploy([&](const TDeployReport& plan) {
    planned = plan.Rows;
    return false;
  });
  EXPECT_EQ(report.End, TDeployEnd::NotStarted);
  EXPECT_FALSE(report.WasCarriedOut);
  ASSERT_EQ(planned.size(), 1U);
  EXPECT_EQ(planned[0].LocalName, "levels.dat");
  EXPECT_EQ(planned[0].Action, TDeployAction::Copied);
  EXPECT_EQ(planned[0].LocalFile, FFile.parent_path() / "levels.dat");
  EXPECT_EQ(planned[0].SizeHere, 6U);
  EXPECT_FALSE(IsThere());
}

// Rows and states of one status ask about the same files; a deploy looks itself.
TEST_F(DeployService, PlansAStatusWithWhatItsRowsSawOfTheTarget) {
  TRemoteProfileServices& services = Host().RemoteProfiles();
  TSilentObserver nobody;
  const auto planned = [&](TSeenFiles* seen, bool dryRun) {
    TDeployRequest request{.Project = FOpen->Project(), .Target = {"Debug", "Win32"}};
    request.Options = {.DryRun = dryRun, .SkipMissing = true};
    request.MayBegin = [](const TDeployReport&) { return false; };
    request.Seen = seen;
    return services.Deploys().Deploy(request, nobody).Rows.front();
  };
  const std::filesystem::path there = planned(nullptr, /*dryRun=*/true).RemoteFile;
  std::filesystem::create_directories(there.parent_path());

  TSeenFiles seen;
  services.ShareAnswers(&seen);
  const auto profile = services.FindProfile("place");
  std::vector<std::string> names;
  for (const TFilePair& pair : services.Deploys().FilePairsOf(FOpen->Project(), {"Debug", "Win32"}))
    names.push_back(pair.RemoteName);
  services.BeginRemoteQueries(*profile);
  services.ExpectRemoteQueries(*profile, names);
  services.EndRemoteQueries(*profile);
  services.ShareAnswers(nullptr);

  Write(there, "of somebody else");
  EXPECT_EQ(planned(&seen, /*dryRun=*/true).State, TFileState::New);
  EXPECT_EQ(planned(nullptr, /*dryRun=*/true).State, TFileState::Unrecorded);
  EXPECT_EQ(planned(&seen, /*dryRun=*/false).State, TFileState::Unrecorded);
}

TEST_F(DeployService, BeginsAfterAYes) {
  const TDeployReport report = Deploy([](const TDeployReport&) { return true; });
  EXPECT_EQ(report.End, TDeployEnd::Done);
  EXPECT_TRUE(report.WasCarriedOut);
  EXPECT_TRUE(IsThere());
}

TEST_F(DeployService, LeavesOutWhatWasDecidedSo) {
  std::string file;
  Deploy([&](const TDeployReport& plan) {
    file = plan.Rows.at(0).RemoteFile;
    return false;
  });
  const TDeployReport report = Deploy(nullptr, {{file, {}}});
  EXPECT_EQ(report.End, TDeployEnd::Done);
  ASSERT_EQ(report.Rows.size(), 1U);
  EXPECT_EQ(report.Rows[0].Action, TDeployAction::Skipped);
  EXPECT_FALSE(IsThere());
}

TEST_F(DeployService, PausesWhileALongListIsReadAndHearsCancelThere) {
  for (int i = 0; i < 600; ++i)
    FOpen->Deployment().AddFile("Debug", "Win32", std::to_string(i) + ".dat");
  TSilentObserver nobody;
  std::atomic<int> cancelled = 0;
  int pauses = 0;
  TDeployRequest request{.Project = FOpen->Project(), .Target = {"Debug", "Win32"}};
  request.MayBegin = [](const TDeployReport&) { return false; };
  request.Cancelled = &cancelled;
  request.Pause = [&] { ++pauses; };
  const TDeployService& service = Host().RemoteProfiles().Deploys();
  EXPECT_EQ(service.Deploy(request, nobody).End, TDeployEnd::NotStarted);
  EXPECT_EQ(pauses, 2);
  request.Pause = [&] {
    ++pauses;
    cancelled = 2;
  };
  const TDeployReport report = service.Deploy(request, nobody);
  EXPECT_EQ(report.End, TDeployEnd::Interrupted);
  EXPECT_EQ(report.Signal, 2);
  EXPECT_TRUE(report.Rows.empty());
  EXPECT_EQ(pauses, 3);
}

TEST_F(DeployService, RefusesWhenSomebodyDeployedBetweenThePlanAndTheLock) {
  const TDeployReport report = Deploy([&](const TDeployReport&) {
    EXPECT_EQ(Deploy(nullptr).End, TDeployEnd::Done);
    return true;
  });
  EXPECT_EQ(report.End, TDeployEnd::Refused);
  EXPECT_EQ(report.Problems,
            std::vector<std::string>{"somebody else deployed there meanwhile; deploy again"});
  EXPECT_EQ(Deploy(nullptr).End, TDeployEnd::Done); // the lock was taken back
}

TEST_F(DeployService, TakesNothingBackWhenSomebodyDeployedBetweenTheQuestionAndTheLock) {
  Deploy(nullptr);
  TUndoRequest request;
  request.MayUndo = [&](const TUndoReport&) {
    Write(FFile.parent_path() / "levels.dat", "levels of another size");
    EXPECT_EQ(Deploy(nullptr).End, TDeployEnd::Done);
    return true;
  };
  const TUndoReport report =
      Host().RemoteProfiles().Deploys().Undo(FOpen->Project(), {"Debug", "Win32"}, request);
  EXPECT_EQ(report.End, TDeployEnd::Refused);
  EXPECT_EQ(report.Problems,
            std::vector<std::string>{"somebody else deployed there meanwhile; try again"});
  EXPECT_TRUE(IsThere());
}

TEST_F(DeployService, ForetellsOfEachRunWhatTheNewerOnesLeaveToIt) {
  std::vector<std::string> runs;
  for (const char* content : {"1", "22", "333"}) {
    Write(FFile.parent_path() / "levels.dat", content);
    runs.push_back(Deploy(nullptr).LastRun.value().Id);
  }
  const TUndoRequest request{.To = runs[0], .DryRun = true};
  const TUndoReport report =
      Host().RemoteProfiles().Deploys().Undo(FOpen->Project(), {"Debug", "Win32"}, request);
  EXPECT_EQ(report.End, TDeployEnd::Done);
  ASSERT_EQ(report.Rows.size(), 2U);
  for (const TUndoRow& row : report.Rows)
    EXPECT_EQ(row.Action, TUndoAction::Restored) << row.Reason;
}

TEST_F(DeployService, TellsHowFarTakingBackHasCome) {
  Deploy(nullptr);
  ASSERT_TRUE(IsThere());
  std::vector<std::size_t> told;
  TUndoRequest request;
  request.Progress = [&](std::size_t done, std::size_t files) {
    told.push_back(done);
    told.push_back(files);
  };
  const TUndoReport report =
      Host().RemoteProfiles().Deploys().Undo(FOpen->Project(), {"Debug", "Win32"}, request);
  EXPECT_EQ(report.End, TDeployEnd::Done);
  EXPECT_EQ(told, (std::vector<std::size_t>{1, 1}));
  EXPECT_FALSE(IsThere());
}

} // namespace
} // namespace workbench
