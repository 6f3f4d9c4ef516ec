// What a server says is held against what it was asked, and its deeds against what it says.
#include "tests/workbench/remote/sftp/sftp_fixture.h"
#include "workbench/deploy/remote_queries.h"
#include "workbench/remote/sftp/sftp_upload.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>

namespace workbench {
namespace {

using testing::Program;
using testing::SftpServer;
using testing::TTestRun;
using TClock = std::chrono::steady_clock;

class LyingServer : public testing::SftpTest {
protected:
  TSftpMachine MachineThatLies(const std::string& lie) const {
    TSftpMachine machine = Machine();
    const auto liar =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "lying_server";
    machine.Sftp = Program({liar.string(), lie, SftpServer});
    machine.Exec = nullptr;
    return machine;
  }
  std::unique_ptr<TSftpConnection> Connect(const std::string& lie,
                                           const std::atomic<int>* cancelled = nullptr) const {
    return std::make_unique<TSftpConnection>(MachineThatLies(lie),
                                             std::make_shared<TMachineFacts>(), cancelled);
  }
  /// Why the file did not come to its place; empty when it did.
  std::string Deploy(const std::string& lie, const std::string& content = "new content") const {
    const TDeployPlan plan = Plan({Place.File("a", "a", content)}, {.Force = true});
    TTestRun run;
    try {
      const auto connection = Connect(lie);
      run.Execute(
          plan, *connection, [&] { return Connect(lie); }, Place.Local());
      return run.Report.Rows[0].Error;
    } catch (const TConnectionError& error) {
      return error.what();
    }
  }
  std::string Examine(const std::string& lie) const {
    const std::vector<TRemoteName> names{{Place.Target().string(), "a"}};
    try {
      const auto answers = Connect(lie)->Examine(names);
      return answers[0].Kind == TRemoteKind::None ? "not there" : "there";
    } catch (const TConnectionError& error) {
      return error.what();
    }
  }
  std::string Sweep(const std::string& lie) const {
    const std::vector<TSendRequest> files{{Place.Local("a"), {Place.Target().string(), "a"}}};
    try {
      Connect(lie)->RemoveUnfinished(files);
      return {};
    } catch (const TConnectionError& error) {
      return error.what();
    }
  }
  void SetUp() override {
    SftpTest::SetUp();
    Place.Write(Place.Target("a"), "old");
  }
  std::string There() const { return Place.Read(Place.Target("a")); }
};

const std::string NoSense = "the machine's answer makes no sense: ";

TEST_F(LyingServer, IsNotBelievedThatAFileHasItsSecondName) {
  using TResult = TRemoteCreation::TResult;
  const TRemoteName name{Place.Target().string(), "lock"};
  const TRemoteCreation pretended = Connect("link-nothing")->CreateFile(name, "mine", {});
  EXPECT_EQ(pretended.Result, TResult::Failed);
  EXPECT_EQ(pretended.Problem, "making it: the machine says that it is there, and it is not");
  // Without second names it is made all the same.
  EXPECT_EQ(Connect("no-second-names")->CreateFile(name, "mine", {}).Result, TResult::Made);
  EXPECT_EQ(Connect("no-second-names")->CreateFile(name, "theirs", {}).Result, TResult::Exists);
  EXPECT_EQ(Place.Read(Place.Target("lock")), "mine");
  EXPECT_EQ(Connect("write-nothing")->CreateFile({name.Directory, "other"}, "", {}).Result,
            TResult::Made);
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
}

TEST_F(LyingServer, IsNotBelievedWhenItAnswersAWriteWithSomethingElse) {
  for (const char* kind : {"2", "102", "103", "104", "105", "201", "250"}) {
    EXPECT_EQ(Deploy(std::string("kind:") + kind),
              NoSense + "an answer of kind " + kind + " to a request of kind 6");
    EXPECT_EQ(There(), "old") << kind;
  }
}

TEST_F(LyingServer, IsNotBelievedWhenItAnswersARenameWithSomethingElse) {
  for (const char* kind : {"2", "102", "103", "104", "105", "201", "250"})
    EXPECT_EQ(Deploy(std::string("rename-kind:") + kind),
              NoSense + "an answer of kind " + kind + " to a request of kind 200");
}

TEST_F(LyingServer, CannotPretendToHaveWritten) {
  EXPECT_EQ(Deploy("write-nothing"), "the target has 0 of its 11 bytes");
  EXPECT_EQ(There(), "old");
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
}

TEST_F(LyingServer, CannotPretendToHaveRenamed) {
  EXPECT_EQ(Deploy("rename-nothing"), "the target has 3 of its 11 bytes");
  std::filesystem::remove(Place.Target("a"));
  EXPECT_EQ(Deploy("rename-nothing"), "looking at it on the target: no such file or directory");
}

TEST_F(LyingServer, IsAskedAgainWhenItLooksAtAFileBeforeItRenamesIt) {
  EXPECT_EQ(Deploy("early-look"), "");
  EXPECT_EQ(There(), "new content");
}

TEST_F(LyingServer, CannotGiveAHandleOrNothingForBytes) {
  const std::vector<TRemoteName> names{{Place.Target().string(), "a"}};
  const auto hash = [&](const char* lie) -> std::string {
    try {
      return Connect(lie)->Hashes(names)[0];
    } catch (const TConnectionError& error) {
      return error.what();
    }
  };
  EXPECT_EQ(hash("handle-for-data"), NoSense + "an answer of kind 102 to a request of kind 5");
  EXPECT_EQ(hash("empty-data"), NoSense + "no bytes, and not the end of the file");
}

TEST_F(LyingServer, CannotListForEver) {
  const auto start = TClock::now();
  EXPECT_EQ(Sweep("list-for-ever"), "");
  EXPECT_LT(TClock::now() - start, std::chrono::seconds(20));
  EXPECT_EQ(Sweep("list-of-none"), NoSense + "a wrong number of names");
  EXPECT_EQ(Sweep("list-of-handles"), NoSense + "an answer of kind 102 to a request of kind 12");
}

TEST_F(LyingServer, CannotHaveFilesRemovedBesideADirectory) {
  const auto beside = Place.Target().parent_path() / ".deploymgr-0-1-0-0-.part";
  Place.Write(beside, "x");
  EXPECT_EQ(Sweep("list-of-paths"), "");
  EXPECT_TRUE(std::filesystem::exists(beside));
}

TEST_F(LyingServer, NeverMakesAFileLookAsIfItWereNotThere) {
  EXPECT_EQ(Examine("end"), "the connection was lost");
  EXPECT_EQ(Examine("half"), "the connection was lost");
  EXPECT_EQ(Examine("garbage"), "the machine answers what it was not asked");
  EXPECT_EQ(Examine("wrong-id"), "the machine answers what it was not asked");
  EXPECT_EQ(Examine("long"), NoSense + "a packet ends late");
  EXPECT_EQ(Examine("short"), NoSense + "a packet ends early");
  EXPECT_EQ(Examine("many-attributes"), NoSense + "a packet ends early");
  EXPECT_EQ(Examine("many-names"), NoSense + "a wrong number of names");
  EXPECT_EQ(Examine("well-but-nothing"),
            NoSense + "all is well, but what was asked for is not there");
}

TEST_F(LyingServer, LeavesWhatWasAskedUnknown) {
  TRemoteQueries queries(Connect("end"), {});
  EXPECT_THROW(queries.Ask({"a", "b"}), TConnectionError);
  EXPECT_FALSE(queries.AnswerOf("a").IsKnown);
  EXPECT_FALSE(queries.AnswerOf("b").IsKnown);
}

TEST_F(LyingServer, IsBroughtToKeepLargeFilesOnItsDisk) {
  EXPECT_EQ(Deploy("no-sync"), "");
  EXPECT_EQ(Deploy("no-sync", std::string(SyncedFileSize, 'x')), "writing it: permission denied");
}

using PlainServer = LyingServer;

TEST_F(PlainServer, ReplacesAFileThoughItsRenameDoesNot) {
  EXPECT_EQ(Deploy("plain"), "");
  EXPECT_EQ(There(), "new content");
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
  const TRemoteName name{Place.Target().string(), "a"};
  Place.Write(Place.Target("b"), "b");
  EXPECT_EQ(Connect("plain")->Rename(name, "b"), "");
  EXPECT_EQ(Place.Read(Place.Target("b")), "new content");
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
}

TEST_F(PlainServer, KeepsTheOldFileWhenTheNewOneIsRefused) {
  EXPECT_EQ(Deploy("plain-denied:2"), "putting it in place: permission denied");
  EXPECT_EQ(There(), "old");
  EXPECT_EQ(Deploy("plain-denied:3"), "putting it in place: permission denied");
  EXPECT_EQ(There(), "old");
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
  Place.Write(Place.Target("b"), "b");
  const TRemoteName name{Place.Target().string(), "b"};
  EXPECT_EQ(Connect("plain-denied:2")->Rename(name, "a"), "renaming it: permission denied");
  EXPECT_EQ(Connect("plain-denied:3")->Rename(name, "a"), "renaming it: permission denied");
  EXPECT_EQ(There(), "old");
}

TEST_F(PlainServer, KeepsTheOldFileUntilTheNewOneIsSeenInItsPlace) {
  EXPECT_EQ(Deploy("plain-pretends:3"), "looking at it on the target: no such file or directory");
  EXPECT_EQ(There(), "old");
}

TEST_F(PlainServer, SaysWhereTheOldFileIsWhenItCannotBePutBack) {
  const std::string problem = Deploy("plain-denied:34");
  ASSERT_EQ(Unfinished().size(), 1U);
  EXPECT_EQ(problem, "putting it in place: permission denied; what stood there has the name " +
                         Unfinished()[0] + " now");
  EXPECT_EQ(Place.Read(Place.Target(Unfinished()[0])), "old");
}

class StallingServer : public LyingServer {
protected:
  /// How long the work takes that is interrupted at once.
  template <class TWork>
  void ExpectEndsInTime(const std::string& lie, TWork work) {
    std::atomic<int> cancelled = 0;
    const auto connection = Connect(lie, &cancelled);
    const std::jthread interrupt([&cancelled] {
      std::this_thread::sleep_for(std::chrono::milliseconds(30));
      cancelled = 2;
    });
    const auto start = TClock::now();
    try {
      work(*connection, cancelled);
      ADD_FAILURE() << "not interrupted: " << lie;
    } catch (const TConnectionError& error) {
      EXPECT_STREQ(error.what(), "the run was interrupted");
    }
    EXPECT_LT(TClock::now() - start, std::chrono::seconds(1));
  }
};

TEST_F(StallingServer, IsLeftWithinASecondWhileFilesAreLookedAt) {
  const std::vector<TRemoteName> names{{Place.Target().string(), "a"}};
  ExpectEndsInTime("silent-stat", [&](auto& connection, auto&) { connection.Examine(names); });
}

TEST_F(StallingServer, IsLeftWithinASecondWhileItLists) {
  const std::vector<TSendRequest> files{{Place.Local("a"), {Place.Target().string(), "a"}}};
  ExpectEndsInTime("silent-list",
                   [&](auto& connection, auto&) { connection.RemoveUnfinished(files); });
}

TEST_F(StallingServer, IsLeftWithinASecondWhileFilesAreSent) {
  class TOneFile final : public ISendJob {
  public:
    TOneFile(TSendRequest request, const std::atomic<int>& cancelled)
        : FRequest(std::move(request)), FCancelled(cancelled) {}
    bool IsCancelled() const override { return FCancelled != 0; }
    const TSendRequest* Next() override {
      return std::exchange(FIsOut, true) ? nullptr : &FRequest;
    }
    void BytesSent(std::uint64_t /*count*/) override {}
    void FileDone(const TSendRequest& /*request*/, const TSendOutcome& /*outcome*/) override {}

  private:
    TSendRequest FRequest;
    const std::atomic<int>& FCancelled;
    bool FIsOut = false;
  };
  Place.Write(Place.Local("a"), "new");
  ExpectEndsInTime("silent-write", [&](auto& connection, auto& cancelled) {
    TOneFile job({Place.Local("a"), {Place.Target().string(), "a"}}, cancelled);
    connection.Send(job);
  });
  EXPECT_EQ(There(), "old");
}

TEST_F(LyingServer, IsSpokenToAgainAfterAnInterrupt) {
  const std::atomic<int> cancelled = 2;
  const auto connection = SftpTest::Connect();
  connection->SetCancelled(&cancelled);
  const std::vector<TRemoteName> names{{Place.Target().string(), "a"}};
  EXPECT_THROW(connection->Examine(names), TConnectionError);
  EXPECT_THROW(connection->Resolve(std::vector<std::string>{"x"}), TConnectionError);
  EXPECT_EQ(connection->Remove({Place.Target().string(), "a"}), ""); // what tidies up is done
  connection->SetCancelled(nullptr);
  EXPECT_TRUE(connection->IsAlive());
  EXPECT_EQ(connection->Examine(names)[0].Kind, TRemoteKind::None);
  EXPECT_FALSE(connection->Resolve(std::vector<std::string>{"x"})[0].Exists);
}

// A machine that runs no commands cannot say whether the part is good.
TEST_F(PlainServer, IsRidOfThePartOfAnInterruptedUpload) {
  const pid_t gone = ::fork();
  if (gone == 0)
    ::_exit(0);
  ::waitpid(gone, nullptr, 0);
  const std::string content(LargeFileSize, 'x');
  const TDeployPlan plan = Plan({Place.File("a", "a", content)});
  struct stat status = {};
  ASSERT_EQ(::stat(Place.Local("a").c_str(), &status), 0);
  Place.Write(Place.Target(".deploymgr-" + ThisMachineMark() + "-" + std::to_string(gone) +
                           "-00000000-0-" + SourceMark(Place.Local("a").string(), status) +
                           ".part"),
              "xx");
  TTestRun run;
  const auto connection = Connect("plain");
  run.Execute(
      plan, *connection, [&] { return Connect("plain"); }, Place.Local());
  EXPECT_EQ(run.Report.Rows[0].Error, "");
  EXPECT_EQ(There(), content);
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
}

} // namespace
} // namespace workbench
