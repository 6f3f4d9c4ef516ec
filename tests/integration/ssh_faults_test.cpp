#include "tests/integration/ssh_place.h"

#include <chrono>
#include <csignal>
#include <thread>

namespace integration {
namespace {

namespace fs = std::filesystem;
using TTexts = std::vector<std::string>;

constexpr std::size_t FileSize = 400000;
constexpr std::size_t Held = 500000; // the first file and a part of the second

// Three files, of which the server takes one and a part before it holds still.
class THeldPlace : public TSshPlace {
public:
  THeldPlace() : TSshPlace(RemoteEntry("a.dat") + RemoteEntry("b.dat") + RemoteEntry("c.dat")) {
    for (const char* name : {"a.dat", "b.dat", "c.dat"})
      Write(name, std::string(FileSize, name[0]));
    Server().Introduce();
    HoldTransferAfter(Held);
  }
  /// Whatever has its final name is whole.
  void ExpectNothingHalf() const {
    for (const std::string& name : TargetFiles())
      EXPECT_EQ(fs::file_size(Path("target/" + name)), FileSize) << name;
  }
  /// A deploy under better conditions brings the rest.
  void ExpectTheNextOneCompletes() {
    Server().ResetTransfer();
    const TRun run = Deploy();
    EXPECT_EQ(run.Status, 0) << run.Errors;
    EXPECT_EQ(TargetFiles(), (TTexts{"demo/a.dat", "demo/b.dat", "demo/c.dat"}));
    ExpectNothingHalf();
    EXPECT_EQ(UnfinishedCount(), 0U);
    EXPECT_EQ(States(), (TTexts{"a.dat Same", "b.dat Same", "c.dat Same"}));
  }
};

// A deploy that cannot connect; the time-out is a second.
std::string RefusalAt(unsigned port) {
  TSshPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "a");
  place.ChangeProfile({"--port", std::to_string(port), "--connect-timeout", "1"});
  const TRun run = place.Deploy();
  EXPECT_EQ(run.Status, 5);
  EXPECT_FALSE(fs::exists(place.Path("target")));
  return run.Errors;
}

TEST(SshFaults, NameAPortWhereNobodyListens) {
  NEEDS_SSH_SERVER();
  const std::string error = RefusalAt(workbench::testing::ClosedPort());
  EXPECT_NE(error.find("Connection refused"), std::string::npos) << error;
}

TEST(SshFaults, NameAMachineThatSpeaksSomethingElse) {
  NEEDS_SSH_SERVER();
  const workbench::testing::TTextServer server("HTTP/1.1 400 Bad Request\r\n\r\n");
  const std::string error = RefusalAt(server.Port());
  EXPECT_NE(error.find("banner"), std::string::npos) << error;
}

TEST(SshFaults, NameAMachineThatSaysNothing) {
  NEEDS_SSH_SERVER();
  const workbench::testing::TTextServer server("");
  const std::string error = RefusalAt(server.Port());
  EXPECT_NE(error.find("timed out"), std::string::npos) << error;
}

TEST(SshFaults, NameAMachineWithoutFileTransfer) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a.dat"));
  place.Server().Introduce();
  place.Server().SetTransfer("echo Welcome");
  const TRun run = place.Run({"profile", "test", "box"});
  EXPECT_EQ(run.Status, 5);
  EXPECT_NE(run.Errors.find("does not speak the file transfer protocol"), std::string::npos)
      << run.Errors;
}

TEST(SshFaults, LeaveNothingHalfWhenTheMachineDies) {
  NEEDS_SSH_SERVER();
  THeldPlace place;
  TStart start = place.StartDeploy({"--json"});
  start.Meanwhile = [&](pid_t) {
    EXPECT_TRUE(place.WaitForUnfinished());
    place.Server().KillConnections();
  };
  const TRun run = RunProgram(std::move(start));
  EXPECT_EQ(run.Status, 1) << run.Errors;
  const std::string error = run.Json()["files"][2]["error"];
  EXPECT_FALSE(error.empty());
  EXPECT_NE(error, "the run was interrupted");
  place.ExpectNothingHalf();
  place.ExpectTheNextOneCompletes();
}

TEST(SshFaults, EndADeployOverALineThatIsCut) {
  NEEDS_SSH_SERVER();
  THeldPlace place;
  place.ChangeProfile({"--keep-alive", "1"});
  TStart start = place.StartDeploy({"--json"});
  start.Meanwhile = [&](pid_t) {
    EXPECT_TRUE(place.WaitForUnfinished());
    place.Server().FreezeConnections();
  };
  const TRun run = RunProgram(std::move(start));
  EXPECT_EQ(run.Status, 1) << run.Errors;
  const std::string error = run.Json()["files"][2]["error"];
  EXPECT_NE(error.find("the connection was lost: the machine had not answered for "),
            std::string::npos)
      << error;
  place.Server().KillConnections();
  place.ExpectNothingHalf();
  place.ExpectTheNextOneCompletes();
}

TEST(SshFaults, LeaveNothingHalfAfterAnInterrupt) {
  NEEDS_SSH_SERVER();
  for (const int signal : {SIGINT, SIGTERM}) {
    THeldPlace place;
    TStart start = place.StartDeploy({"--json"});
    start.Meanwhile = [&](pid_t process) {
      EXPECT_TRUE(place.WaitForUnfinished());
      ::kill(process, signal);
    };
    const TRun run = RunProgram(std::move(start));
    EXPECT_EQ(run.Status, 128 + signal);
    EXPECT_EQ(run.Json()["files"][2]["error"], "the run was interrupted");
    place.ExpectNothingHalf();
    place.ExpectTheNextOneCompletes();
  }
}

TEST(SshFaults, EndAConnectionThatIsBeingMadeAfterAnInterrupt) {
  NEEDS_SSH_SERVER();
  const workbench::testing::TTextServer server("");
  TSshPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "a");
  place.ChangeProfile({"--port", std::to_string(server.Port()), "--connect-timeout", "600"});
  TStart start = place.StartDeploy();
  start.Meanwhile = [](pid_t process) {
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    ::kill(process, SIGINT);
  };
  EXPECT_EQ(RunProgram(std::move(start)).Status, 128 + SIGINT);
}

TEST(SshFaults, BringTheNewStateOfAFileThatChangesMeanwhile) {
  NEEDS_SSH_SERVER();
  THeldPlace place;
  const std::string changed(FileSize + 1, 'B');
  TStart start = place.StartDeploy({"--json"});
  start.Meanwhile = [&](pid_t) {
    EXPECT_TRUE(place.WaitForUnfinished());
    for (const char* name : {"b.dat", "c.dat"})
      place.Write(name, changed);
    place.Write("go", "");
  };
  const TRun run = RunProgram(std::move(start));
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_TRUE(place.Read("target/demo/b.dat") == changed);
  EXPECT_EQ(place.UnfinishedCount(), 0U);
  EXPECT_EQ(place.States(), (TTexts{"a.dat Same", "b.dat Same", "c.dat Same"}));
}

TEST(SshFaults, LeaveNothingHalfOnAFullDisk) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("large.dat") + RemoteEntry("small.dat"));
  place.Write("large.dat", std::string(3000000, 'x'));
  place.Write("small.dat", "s");
  place.Server().Introduce();
  fs::create_directories(place.Path("target"));
  const std::string unshare = ::getuid() == 0 ? "unshare -m" : "unshare -rm";
  if (place.RunProgram({"sh", "-c", unshare + " mount -t tmpfs none target"}).Status != 0)
    GTEST_SKIP() << "no mounts here";
  // The disk is there for the server alone, so that it says at its end what stands on it.
  const std::string target = place.Path("target").string();
  place.Server().SetTransfer(unshare + " sh -c 'mount -t tmpfs -o size=1m none " + target +
                             " && /usr/lib/openssh/sftp-server; (ls -A " + target +
                             "/demo; echo end) >> " + place.Path("listing").string() + "'");
  const TRun run = place.Deploy({"--json", "--jobs", "1"});
  EXPECT_EQ(run.Status, 1) << run.Errors;
  const std::string error = run.Json()["files"][0]["error"];
  EXPECT_NE(error.find("the disk of the target is full"), std::string::npos) << error;
  for (int i = 0; i < 500 && !place.Read("listing").ends_with("end\n"); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  // Both were on their way at the same time, so the small one may have found no room either.
  EXPECT_EQ(place.Read("listing"),
            run.Json()["files"][1]["action"] == "copied" ? "small.dat\nend\n" : "end\n");
  place.Server().ResetTransfer();
  EXPECT_EQ(place.Deploy().Status, 0);
  EXPECT_EQ(place.TargetFiles(), (TTexts{"demo/large.dat", "demo/small.dat"}));
}

} // namespace
} // namespace integration
