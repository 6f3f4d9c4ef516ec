// Deploys through a real SFTP server.
#include "tests/workbench/remote/sftp/sftp_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace workbench {
namespace {

using testing::Program;
using testing::SftpServer;
using testing::TRemotePlace;
using testing::TTestRun;

// This process may open so many files more, as long as the object lives.
class TFewOpenFiles {
public:
  explicit TFewOpenFiles(rlim_t count) {
    EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &FBefore), 0);
    const int next = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    EXPECT_GE(next, 0);
    ::close(next);
    const rlimit few{static_cast<rlim_t>(next) + count, FBefore.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
  }
  ~TFewOpenFiles() { static_cast<void>(::setrlimit(RLIMIT_NOFILE, &FBefore)); }
  TFewOpenFiles(const TFewOpenFiles&) = delete;
  TFewOpenFiles& operator=(const TFewOpenFiles&) = delete;

private:
  rlimit FBefore = {};
};

class SftpDeploy : public testing::SftpTest {
protected:
  std::vector<TDeployFile> ManyFiles(int count, std::size_t size) const {
    std::vector<TDeployFile> files;
    for (int i = 0; i < count; ++i) {
      const std::string name = std::to_string(i % 7) + "/" + std::to_string(i);
      files.push_back(Place.File(name, name, std::string(size, static_cast<char>('a' + i % 26))));
    }
    return files;
  }
  TTestRun& Deploy(std::vector<TDeployFile> files) {
    Run = std::make_unique<TTestRun>();
    Execute(Plan(std::move(files)), *Run);
    return *Run;
  }

  // True when the server's end made a row fail.
  bool FailsAgainst(const std::string& blocks, const TDeployPlan& plan) {
    try {
      TSftpMachine machine = Machine();
      machine.Sftp = ServerThatDies(blocks);
      TSftpConnection connection(machine, Facts);
      Run = std::make_unique<TTestRun>();
      Run->Jobs = 1;
      Run->Execute(
          plan, connection, [this] { return Connect(); }, Place.Local());
      return std::ranges::any_of(Run->Report.Rows, [](const TDeployRow& row) {
        return row.Action == TDeployAction::Failed;
      });
    } catch (const TConnectionError&) {
      return false;
    }
  }

  std::unique_ptr<TTestRun> Run;

private:
  // A server that ends after so many blocks of at most 64 KiB from us.
  static TProcessStart ServerThatDies(const std::string& blocks) {
    return Program(
        {"/bin/sh", "-c", "dd bs=65536 count=" + blocks + " 2>/dev/null | " + SftpServer});
  }
};

class TCancelAt final : public IDeployObserver {
public:
  TCancelAt(std::uint64_t bytes, std::atomic<int>& flag) : FLeft(bytes), FFlag(flag) {}
  void Planned(const std::vector<TDeployRow>& /*rows*/) override {}
  void BytesSent(std::uint64_t count) override {
    FLeft -= std::min(FLeft, count);
    if (FLeft == 0)
      FFlag = 2;
  }
  void RowDone(std::size_t /*index*/, const TDeployRow& /*row*/) override { ++Done; }

  std::size_t Done = 0;

private:
  std::uint64_t FLeft;
  std::atomic<int>& FFlag;
};

TEST_F(SftpDeploy, SendsOfALargeFileWhatDiffersWhereBothSidesHaveRsync) {
  if (std::system("rsync --version > /dev/null 2>&1") != 0)
    GTEST_SKIP() << "rsync is not installed";
  TRemotePlace::Write(Place.Local("rsh"), "#!/bin/sh\nshift\nexec \"$@\"\n");
  std::filesystem::permissions(Place.Local("rsh"), std::filesystem::perms(0755));
  std::string content(5 * 1024 * 1024, 'a');
  for (std::size_t i = 0; i < content.size(); i += 97)
    content[i] = static_cast<char>('a' + i / 97 % 26);
  const auto sendWith = [&](const std::string& remoteShell) {
    content[content.size() / 2] ^= 1;
    content += 'x'; // the protocol's times are too coarse to tell the states
    TSftpMachine machine = Machine();
    machine.RemoteShell = {remoteShell, "box"};
    TSftpConnection connection(machine, std::make_shared<TMachineFacts>());
    TTestRun run;
    run.Execute(
        Plan({Place.File("large", "large", content)}), connection, [this] { return Connect(); },
        Place.Local());
    EXPECT_EQ(run.Report.Rows[0].Action, TDeployAction::Copied) << run.Report.Rows[0].Error;
    EXPECT_TRUE(TRemotePlace::Read(Place.Target("large")) == content);
    for (const auto& entry : std::filesystem::directory_iterator(Place.Target()))
      EXPECT_FALSE(IsUnfinishedName(entry.path().filename().string())) << entry.path();
    return run.Report.Rows[0].Bytes;
  };
  const std::string shell = Place.Local("rsh").string();
  const std::uint64_t first = sendWith(shell); // there is no old one yet
  EXPECT_EQ(first, content.size());
  EXPECT_EQ(sendWith(shell), 0U);
  const std::uint64_t last = sendWith("false"); // without a way to the machine all of it is sent
  EXPECT_EQ(last, content.size());
}

TEST_F(SftpDeploy, CopiesManyFilesWholeWithTimesAndRights) {
  std::vector<TDeployFile> files = ManyFiles(1000, 5000);
  files.push_back(Place.File("empty", "empty", ""));
  files.push_back(Place.File("program", "bin/program", "#!"));
  files.back().Executable = true;
  files.push_back(Place.File("large", "large", std::string(5'000'000, 'x') + "end"));
  const TTestRun& run = Deploy(files);
  ASSERT_EQ(run.Report.Rows.size(), 1003U);
  for (const TDeployRow& row : run.Report.Rows) {
    EXPECT_EQ(row.Action, TDeployAction::Copied) << row.Error;
    EXPECT_EQ(TRemotePlace::Read(row.RemoteFile), TRemotePlace::Read(Place.Local(row.LocalName)));
    EXPECT_EQ(row.Bytes, std::filesystem::file_size(row.RemoteFile));
  }
  struct stat status = {};
  ASSERT_EQ(::stat(Place.Target("bin/program").c_str(), &status), 0);
  EXPECT_NE(status.st_mode & S_IXUSR, 0U);
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
  for (const TPlannedFile& file : Plan(files).Files)
    EXPECT_EQ(file.Action, TDeployAction::Unchanged) << file.File.LocalName;
}

// As with several targets at once, each of which opens as many files as suit its line.
TEST_F(SftpDeploy, SendsAllFilesWhereFewMayBeOpenAtATime) {
  const std::vector<TDeployFile> files = ManyFiles(600, 100);
  const TFewOpenFiles few(60);
  const TTestRun& run = Deploy(files);
  for (const TDeployRow& row : run.Report.Rows)
    ASSERT_EQ(row.Action, TDeployAction::Copied) << row.LocalName << ": " << row.Error;
  EXPECT_EQ(run.Report.Rows.size(), files.size());
}

TEST_F(SftpDeploy, ReplacesAFileThatIsThere) {
  Place.Write(Place.Target("a"), "old and longer");
  Deploy({Place.File("a", "a", "new")});
  EXPECT_EQ(TRemotePlace::Read(Place.Target("a")), "new");
}

TEST_F(SftpDeploy, ReportsWhatTheServerRefusesForEachFile) {
  if (::geteuid() == 0)
    GTEST_SKIP() << "root may write everywhere";
  std::filesystem::create_directory(Place.Target("closed"));
  std::filesystem::permissions(Place.Target("closed"), std::filesystem::perms::owner_exec);
  const TTestRun& run = Deploy({Place.File("a", "closed/a"), Place.File("b", "b")});
  EXPECT_EQ(run.Report.Rows[0].Error, "making a temporary file beside it: permission denied");
  EXPECT_EQ(run.Report.Rows[1].Action, TDeployAction::Copied);
  std::filesystem::permissions(Place.Target("closed"), std::filesystem::perms::owner_all);
}

TEST_F(SftpDeploy, RefusesAPlaceThatIsADirectory) {
  std::filesystem::create_directory(Place.Target("a"));
  const TDeployPlan plan = Plan({Place.File("a", "a")});
  EXPECT_EQ(plan.Problems,
            std::vector<std::string>{"\"a\": it lands on " + Place.Target("a").string() +
                                     ", which is a directory on the target"});
}

TEST_F(SftpDeploy, LeavesNoHalfFileWhenItIsInterrupted) {
  const std::vector<TDeployFile> files = ManyFiles(400, 20000);
  const TDeployPlan plan = Plan(files);
  TTestRun run;
  TCancelAt progress(2'000'000, run.Cancelled);
  run.Observer = &progress;
  Execute(plan, run);
  EXPECT_EQ(progress.Done, 400U);
  for (const TDeployRow& row : run.Report.Rows) {
    const bool isThere = std::filesystem::exists(row.RemoteFile);
    EXPECT_EQ(isThere, row.Action == TDeployAction::Copied);
    if (isThere) {
      EXPECT_EQ(TRemotePlace::Read(row.RemoteFile), TRemotePlace::Read(Place.Local(row.LocalName)));
    } else {
      EXPECT_EQ(row.Error, "the run was interrupted");
    }
  }
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
}

TEST_F(SftpDeploy, GoesOnWithALargeFileWhereAnEarlierRunWasCut) {
  const std::string content = [] {
    std::string text;
    for (int i = 0; text.size() < 12'000'000; ++i)
      text += std::to_string(i) + "\n";
    return text;
  }();
  const std::vector<TDeployFile> files{Place.File("large", "large", content)};
  TDeployPlan plan = Plan(files);
  // Another process does the first run, so that it is gone in the second one.
  const pid_t child = ::fork();
  if (child == 0)
    ::_exit(FailsAgainst("140", plan) ? 0 : 1);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  ASSERT_EQ(Unfinished().size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(Place.Target("large")));
  const TTestRun& run = Deploy(files);
  EXPECT_EQ(run.Report.Rows[0].Action, TDeployAction::Copied) << run.Report.Rows[0].Error;
  // The cut one counted what the server heard, in pieces of any size; about half had arrived.
  EXPECT_LT(run.Report.Rows[0].Bytes, 9'000'000U);
  EXPECT_EQ(TRemotePlace::Read(Place.Target("large")), content);
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
}

TEST_F(SftpDeploy, SaysThatTheLineBrokeAndTheNextRunCompletes) {
  const std::vector<TDeployFile> files = ManyFiles(300, 10000);
  const TDeployPlan plan = Plan(files);
  EXPECT_TRUE(FailsAgainst("20", plan));
  const std::unique_ptr<TTestRun> first = std::move(Run);
  const TTestRun& run = *first;
  std::size_t failed = 0;
  for (const TDeployRow& row : run.Report.Rows) {
    if (row.Action == TDeployAction::Failed) {
      ++failed;
      EXPECT_EQ(row.Error, "the connection was lost");
    } else {
      EXPECT_EQ(TRemotePlace::Read(row.RemoteFile), TRemotePlace::Read(Place.Local(row.LocalName)));
    }
  }
  EXPECT_GT(failed, 200U);
  EXPECT_EQ(run.Report.Message, "the connection was lost");
  const TTestRun& second = Deploy(files);
  for (const TDeployRow& row : second.Report.Rows)
    EXPECT_NE(row.Action, TDeployAction::Failed) << row.Error;
  for (const TDeployFile& file : files)
    EXPECT_EQ(TRemotePlace::Read(Place.Target(file.RemoteName)),
              TRemotePlace::Read(file.LocalFile));
}

TEST_F(SftpDeploy, LeavesUnfinishedFilesOfOtherRunsAlone) {
  const std::string ours = Place.Target(".deploymgr-0123-77-aa-0-.part").string();
  Place.Write(ours, "x");
  Deploy({Place.File("a", "a")});
  EXPECT_TRUE(std::filesystem::exists(ours));
}

TEST_F(SftpDeploy, RemovesUnfinishedFilesThatNobodyCanBeWritingAnyMore) {
  const std::string old = Place.Target(".deploymgr-0123-77-aa-0-.part").string();
  Place.Write(old, "x");
  const timespec times[2] = {{1700000000, 0}, {1700000000, 0}};
  ::utimensat(AT_FDCWD, old.c_str(), times, 0);
  Deploy({Place.File("a", "a")});
  EXPECT_FALSE(std::filesystem::exists(old));
}

} // namespace
} // namespace workbench
