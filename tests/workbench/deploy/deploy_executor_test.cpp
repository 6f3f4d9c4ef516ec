#include "tests/workbench/remote/target/remote_fixture.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace workbench {
namespace {

using deployment::TDeployOperation;
using testing::TRemotePlace;
using testing::TTestRun;

class TCountingProgress final : public IDeployObserver {
public:
  void Planned(const std::vector<TDeployRow>& /*rows*/) override {}
  void BytesSent(std::uint64_t count) override {
    Bytes += count;
    if (CancelAt && Bytes >= CancelAt)
      *Flag = 2;
  }
  void RowDone(std::size_t index, const TDeployRow& /*row*/) override { Done.push_back(index); }

  std::uint64_t Bytes = 0;
  std::uint64_t CancelAt = 0; // 0: never
  std::atomic<int>* Flag = nullptr;
  std::vector<std::size_t> Done;
};

std::vector<TDeployFile> ManyFiles(const TRemotePlace& place, int count, std::size_t size) {
  std::vector<TDeployFile> files;
  for (int i = 0; i < count; ++i) {
    const std::string name = std::to_string(i % 7) + "/" + std::to_string(i);
    files.push_back(place.File(name, name, std::string(size, static_cast<char>('a' + i % 26))));
  }
  return files;
}

TEST(DeployExecutor, CopiesWithSeveralLanesAndEndsEveryRowOnce) {
  const TRemotePlace place;
  const TDeployPlan plan = place.Plan(ManyFiles(place, 500, 1000));
  TCountingProgress progress;
  TTestRun run;
  run.Jobs = 4;
  run.Observer = &progress;
  place.Execute(plan, run);
  std::ranges::sort(progress.Done);
  ASSERT_EQ(progress.Done.size(), 500U);
  for (std::size_t i = 0; i < progress.Done.size(); ++i)
    EXPECT_EQ(progress.Done[i], i);
  EXPECT_EQ(progress.Bytes, 500000U);
  for (const TDeployRow& row : run.Report.Rows) {
    EXPECT_EQ(row.Action, TDeployAction::Copied) << row.Error;
    EXPECT_EQ(TRemotePlace::Read(row.RemoteFile), TRemotePlace::Read(place.Local(row.LocalName)));
  }
}

TEST(DeployExecutor, StopsWhenItIsInterruptedAndLeavesNoHalfFile) {
  const TRemotePlace place;
  const TDeployPlan plan = place.Plan(ManyFiles(place, 200, 20000));
  TTestRun run;
  TCountingProgress progress;
  progress.CancelAt = 1000000;
  progress.Flag = &run.Cancelled;
  run.Jobs = 3;
  run.Observer = &progress;
  place.Execute(plan, run);
  EXPECT_EQ(progress.Done.size(), 200U);
  std::size_t copied = 0;
  for (const TDeployRow& row : run.Report.Rows) {
    EXPECT_EQ(std::filesystem::exists(row.RemoteFile), row.Action == TDeployAction::Copied);
    copied += row.Action == TDeployAction::Copied ? 1 : 0;
    EXPECT_EQ(row.Error, row.Action == TDeployAction::Copied ? "" : "the run was interrupted");
  }
  EXPECT_GE(copied, 40U);
  EXPECT_LT(copied, 60U);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(place.Target()))
    EXPECT_FALSE(IsUnfinishedName(entry.path().filename().string())) << entry.path();
}

TEST(DeployExecutor, SendsTheRestWhenAFileIsGoneSinceThePlan) {
  const TRemotePlace place;
  const TDeployPlan plan = place.Plan({place.File("a", "a"), place.File("b", "b")});
  std::filesystem::remove(place.Local("a"));
  TTestRun run;
  place.Execute(plan, run);
  EXPECT_EQ(run.Report.Rows[0].Error, "reading it: No such file or directory");
  EXPECT_EQ(TRemotePlace::Read(place.Target("b")), "content");
}

TEST(DeployExecutor, DoesNotFollowALinkThatTookTheDirectorysPlace) {
  const TRemotePlace place;
  std::filesystem::create_directories(place.Target("demo"));
  std::filesystem::create_directories(place.Local("outside"));
  const TDeployPlan plan = place.Plan({place.File("a", "demo\\a")});
  std::filesystem::remove(place.Target("demo"));
  std::filesystem::create_directory_symlink(place.Local("outside"), place.Target("demo"));
  TTestRun run;
  place.Execute(plan, run);
  EXPECT_EQ(run.Report.Rows[0].Action, TDeployAction::Failed);
  EXPECT_TRUE(std::filesystem::is_empty(place.Local("outside")));
}

TEST(DeployExecutor, ReplacesALinkInsteadOfWritingThroughIt) {
  const TRemotePlace place;
  TRemotePlace::Write(place.Local("other"), "other");
  std::filesystem::create_symlink(place.Local("other"), place.Target("a"));
  TTestRun run;
  place.Execute(place.Plan({place.File("a", "a")}), run);
  EXPECT_EQ(run.Report.Rows[0].Action, TDeployAction::Copied) << run.Report.Rows[0].Error;
  EXPECT_FALSE(std::filesystem::is_symlink(place.Target("a")));
  EXPECT_EQ(TRemotePlace::Read(place.Local("other")), "other");
}

TEST(DeployExecutor, RemovesWhatAnEarlierRunLeftButNotWhatAnotherIsWriting) {
  const TRemotePlace place;
  const auto left = place.Target(".deploymgr-0123-0.part");
  const auto busy = place.Target(".deploymgr-0123-1.part");
  TRemotePlace::Write(left, "half");
  TRemotePlace::Write(busy, "half");
  const TFileDescriptor writer(::open(busy.c_str(), O_WRONLY | O_CLOEXEC));
  ASSERT_EQ(::flock(writer.Get(), LOCK_EX | LOCK_NB), 0);
  TTestRun run;
  place.Execute(place.Plan({place.File("a", "a")}), run);
  EXPECT_FALSE(std::filesystem::exists(left));
  EXPECT_TRUE(std::filesystem::exists(busy));
}

TEST(DeployExecutor, NoticesAFileThatChangesWhileItIsCopied) {
  const TRemotePlace place;
  const TDeployPlan plan = place.Plan({place.File("a", "a", std::string(8000000, 'x'))});
  class TChangingProgress final : public IDeployObserver {
  public:
    explicit TChangingProgress(std::filesystem::path file) : FFile(std::move(file)) {}
    void Planned(const std::vector<TDeployRow>& /*rows*/) override {}
    void BytesSent(std::uint64_t /*count*/) override {
      std::ofstream(FFile, std::ios::binary | std::ios::app) << "y";
    }
    void RowDone(std::size_t /*index*/, const TDeployRow& /*row*/) override {}

  private:
    std::filesystem::path FFile;
  };
  TChangingProgress progress(place.Local("a"));
  TTestRun run;
  run.Observer = &progress;
  place.Execute(plan, run);
  EXPECT_EQ(run.Report.Rows[0].Error, "it changed while it was copied");
  EXPECT_TRUE(std::filesystem::is_empty(place.Target()));
}

TEST(DeployExecutor, DoesWhatTheOperationSays) {
  const TRemotePlace place;
  TDeployFile ran = place.File("ran", "ran", "#!/bin/sh\necho done > result\n");
  ran.Operation = TDeployOperation::RunAndRemove;
  ran.Executable = true;
  TRemotePlace::Write(place.Target("old"), "x");
  TDeployFile removed{.LocalName = "old", .LocalFile = {}, .RemoteName = "old"};
  removed.Operation = TDeployOperation::Remove;
  TTestRun run;
  place.Execute(place.Plan({ran, removed}), run);
  EXPECT_EQ(run.Report.Rows[0].Error, "");
  EXPECT_EQ(TRemotePlace::Read(place.Target("result")), "done\n");
  EXPECT_FALSE(std::filesystem::exists(place.Target("ran")));
  EXPECT_FALSE(std::filesystem::exists(place.Target("old")));
}

TEST(DeployExecutor, ReportsACommandThatFails) {
  const TRemotePlace place;
  TDeployFile before = place.File("a", "a");
  before.LocalCommands = {"exit 3"};
  TDeployFile after = place.File("b", "b");
  after.RemoteCommands = {"kill -9 $$"};
  TTestRun run;
  place.Execute(place.Plan({before, after}), run);
  EXPECT_EQ(run.Report.Rows[0].Error, "the local command \"exit 3\" ended with status 3");
  EXPECT_FALSE(std::filesystem::exists(place.Target("a")));
  EXPECT_EQ(run.Report.Rows[1].Error, "was copied, but \"kill -9 $$\" was ended by signal 9");
}

TEST(DeployExecutor, EndsACommandWhenTheRunIsInterrupted) {
  const TRemotePlace place;
  TDeployFile file = place.File("a", "a");
  file.LocalCommands = {"sleep 30"};
  const TDeployPlan plan = place.Plan({file});
  TTestRun run;
  std::jthread interrupt([&run] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    run.Cancelled = 2;
  });
  place.Execute(plan, run);
  EXPECT_EQ(run.Report.Rows[0].Error, "the local command \"sleep 30\" was interrupted");
}

} // namespace
} // namespace workbench
