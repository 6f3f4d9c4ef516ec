// Signals are heard in every phase, and what they leave is in order.
#include "tests/integration/record_place.h"
#include "tests/integration/ssh_place.h"
#include "tests/support/sanitized.h"

#include <chrono>
#include <csignal>
#include <sys/stat.h>
#include <thread>

namespace integration {
namespace {

namespace fs = std::filesystem;
using TTexts = std::vector<std::string>;
using TClock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds HeardWithin(testing_support::IsSanitized ? 3000 : 1000);
constexpr const char* Reached = "reached"; // is there once the phase is

// Which requests of the file transfer protocol lead to a phase.
constexpr const char* Greeting = "1";
constexpr const char* Opening = "3";
constexpr const char* WritingMuch = "much"; // not the texts beside the files
constexpr const char* Looking = "7";
constexpr const char* Listing = "11";
constexpr const char* Making = "14";
constexpr const char* Resolving = "16";
constexpr const char* Linking = "hardlink";

struct TSignalled {
  TRun Run;
  TClock::duration Took = {}; ///< from the signal to the end
};

// Sends the signal as soon as the phase is reached.
TSignalled RunUntil(TStart start, int signal, const std::function<bool()>& isReached) {
  TClock::time_point sent;
  start.Meanwhile = [&](pid_t process) {
    while (!isReached() && ::kill(process, 0) == 0)
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    sent = TClock::now();
    ::kill(process, signal);
  };
  TSignalled result{.Run = RunProgram(std::move(start))};
  result.Took = TClock::now() - sent;
  return result;
}

void ExpectHeard(const TSignalled& result, int signal, const std::string& phase) {
  EXPECT_EQ(result.Run.Status, 128 + signal) << phase << ": " << result.Run.Errors;
  EXPECT_LT(result.Took, HeardWithin) << phase;
}

// A deployed file and a newer one of that name, through a server that holds still at a request.
class TSilentPlace : public TSshPlace {
public:
  TSilentPlace() : TSshPlace(RemoteEntry("a.dat")) {
    Write("a.dat", "first");
    Server().Introduce();
    EXPECT_EQ(Deploy().Status, 0);
    Write("a.dat", Second);
  }
  void HoldAt(const std::string& request) {
    fs::remove(Path(Reached));
    const fs::path liar = fs::path(DEPLOYMGR_PROGRAM).parent_path() / "lying_server";
    Server().SetTransfer("exec '" + liar.string() + "' 'hold:" + request + ":" +
                         Path(Reached).string() + "' /usr/lib/openssh/sftp-server");
  }
  bool IsReached() const { return fs::exists(Path(Reached)); }
  inline static const std::string Second = std::string(100000, '2');
  /// The target is as it was, and the next deploy does all of it.
  void ExpectNothingLost() {
    Server().KillConnections();
    Server().ResetTransfer();
    const TRun run = Deploy();
    EXPECT_EQ(run.Status, 0) << run.Errors;
    EXPECT_TRUE(Read("target/demo/a.dat") == Second);
    EXPECT_EQ(UnfinishedCount(), 0U);
    EXPECT_FALSE(fs::exists(Path(LockFile)));
  }
};

struct TPhase {
  const char* Request;
  int Signal;
  TTexts Command;
};

// One place for all: each finds what the one before it left.
TEST(Cancel, IsHeardWhereverAServerHoldsStill) {
  NEEDS_SSH_SERVER();
  const TTexts deploy{"deploy", "demo.vproj"};
  const std::vector<TPhase> phases{{Greeting, SIGINT, deploy},
                                   {Resolving, SIGTERM, deploy},
                                   {Looking, SIGHUP, deploy},
                                   {Listing, SIGINT, deploy},
                                   {Opening, SIGTERM, deploy},
                                   {Linking, SIGHUP, deploy},
                                   {Making, SIGINT, deploy},
                                   {WritingMuch, SIGTERM, deploy},
                                   {Looking, SIGINT, {"status", "demo.vproj"}},
                                   {Opening, SIGTERM, {"verify", "demo.vproj"}},
                                   {Opening, SIGHUP, {"undo", "demo.vproj", "--yes"}},
                                   {Resolving, SIGINT, {"history", "demo.vproj"}},
                                   {Looking, SIGTERM, {"plan", "demo.vproj", "--out", "p"}},
                                   {Greeting, SIGHUP, {"profile", "test", "box"}}};
  TSilentPlace place;
  for (const TPhase& phase : phases) {
    const std::string name = phase.Command.front() + " at " + phase.Request;
    place.HoldAt(phase.Request);
    const TSignalled result =
        RunUntil(place.Start(phase.Command), phase.Signal, [&] { return place.IsReached(); });
    EXPECT_TRUE(place.IsReached()) << name << ": " << result.Run.Errors;
    ExpectHeard(result, phase.Signal, name);
    EXPECT_EQ(place.Read("target/demo/a.dat"), "first") << name;
  }
  place.ExpectNothingLost();
}

TEST(Cancel, IsHeardWhileAConnectionIsMade) {
  NEEDS_SSH_SERVER();
  const workbench::testing::TTextServer server("");
  TSshPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "a");
  place.ChangeProfile({"--port", std::to_string(server.Port()), "--connect-timeout", "600"});
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const std::size_t before = server.Count();
    const TSignalled result =
        RunUntil(place.StartDeploy(), signal, [&] { return server.Count() > before; });
    ExpectHeard(result, signal, "connecting");
  }
  EXPECT_FALSE(fs::exists(place.Path("target")));
}

TEST(Cancel, LeavesNoTerminalSilentAtAQuestionForAPassphrase) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "a");
  workbench::testing::MakeKey(place.Path("locked"), "a passphrase");
  place.Server().Admit(place.Path("locked"));
  place.Server().Introduce();
  place.ChangeProfile({"--identity", place.Path("locked").string()});
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    bool wasHidden = false;
    TClock::time_point sent;
    const TRun run = place.RunAtTerminal({"deploy", "demo.vproj"}, [&](const TQuestion& question) {
      wasHidden = question.IsHidden;
      sent = TClock::now();
      ::kill(question.Process, signal);
      siginfo_t end = {};
      for (int i = 0; i < 1000 && end.si_pid == 0; ++i) {
        ::waitid(P_PID, static_cast<id_t>(question.Process), &end, WEXITED | WNOWAIT | WNOHANG);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
      }
      return "";
    });
    ExpectHeard({run, TClock::now() - sent}, signal, "a passphrase");
    EXPECT_TRUE(wasHidden);
    EXPECT_FALSE(run.IsTerminalSilent);
  }
  EXPECT_FALSE(fs::exists(place.Path("target")));
}

TEST(Cancel, IsHeardWhileContentsAreComparedOnAnotherMachine) {
  NEEDS_SSH_SERVER();
  TSilentPlace place;
  place.Write("a.dat", "FIRST"); // as large as there, and of another time
  place.Write("tools/sha256sum",
              "#!/bin/sh\ntouch " + place.Path(Reached).string() + "\nsleep 60\n");
  ::chmod(place.Path("tools/sha256sum").c_str(), 0755);
  place.Server().SetSearchPath(place.Path("tools").string() + ":/usr/bin:/bin");
  const TSignalled result =
      RunUntil(place.StartDeploy({"--checksum"}), SIGTERM, [&] { return place.IsReached(); });
  ASSERT_TRUE(place.IsReached());
  ExpectHeard(result, SIGTERM, "comparing");
  EXPECT_FALSE(fs::exists(place.Path(LockFile)));
  EXPECT_EQ(place.Read("target/demo/a.dat"), "first");
}

TEST(Cancel, IsHeardWhileACommandRunsOnAnotherMachine) {
  NEEDS_SSH_SERVER();
  TSshPlace place(
      RemoteEntry("a.dat", "<RemoteCommand>touch ../../reached; sleep 60</RemoteCommand>"));
  place.Server().Introduce();
  place.Write("a.dat", "a");
  const TSignalled result = RunUntil(place.StartDeploy({"--allow-commands"}), SIGHUP,
                                     [&] { return fs::exists(place.Path(Reached)); });
  ExpectHeard(result, SIGHUP, "a remote command");
  EXPECT_FALSE(fs::exists(place.Path(LockFile)));
  EXPECT_EQ(place.UnfinishedCount(), 0U);
  EXPECT_EQ(place.Status().Json()["owed"].size(), 1U);
}

// Carries a folder deploy to a phase and expects it to leave the target in order.
void ExpectHeardInFolder(const TRecordPlace& place, const TTexts& options, int signal,
                         const std::function<bool()>& isReached, const std::string& phase) {
  TTexts command{"deploy", "demo.vproj", "-p", "Win32", "-c", "Debug"};
  command.insert(command.end(), options.begin(), options.end());
  const TSignalled result = RunUntil(place.Start(command), signal, isReached);
  ASSERT_TRUE(isReached()) << result.Run.Errors;
  ExpectHeard(result, signal, phase);
  EXPECT_FALSE(fs::exists(place.Path(LockFile))) << phase;
  for (const std::string& file : place.Files())
    EXPECT_EQ(file.find("target/demo/.deploymgr-"), std::string::npos) << phase << ": " << file;
}

TEST(Cancel, IsHeardWhileALargeFileGoesToAFolder) {
  const TRecordPlace place(RecordEntry("large"));
  place.Write("large", "");
  fs::resize_file(place.Path("large"), std::uintmax_t(64) << 30U);
  const auto isBegun = [&] {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(place.Path("target/demo"), ignored)) {
      if (entry.path().filename().string().starts_with(".deploymgr-"))
        return true;
    }
    return false;
  };
  bool wasBegun = false;
  ExpectHeardInFolder(
      place, {}, SIGTERM, [&] { return wasBegun = wasBegun || isBegun(); }, "copying");
  EXPECT_FALSE(fs::exists(place.Path("target/demo/large")));
}

TEST(Cancel, IsHeardWhileContentsAreComparedInAFolder) {
  const TRecordPlace place(RecordEntry("a") + RecordEntry("large"));
  place.Write("a", "a");
  place.Write("large", "");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  for (const char* name : {"large", "target/demo/large"})
    fs::resize_file(place.Path(name), std::uintmax_t(64) << 30U);
  const TClock::time_point begun = TClock::now();
  ExpectHeardInFolder(
      place, {"--checksum"}, SIGHUP,
      [&] { return TClock::now() - begun > std::chrono::milliseconds(300); }, "comparing");
}

TEST(Cancel, IsHeardWhileACommandRunsHere) {
  const TRecordPlace place(
      RecordEntry("a", "<LocalCommand>touch reached; sleep 60</LocalCommand>"));
  place.Write("a", "a");
  ExpectHeardInFolder(
      place, {"--allow-commands"}, SIGINT, [&] { return fs::exists(place.Path(Reached)); },
      "a local command");
  EXPECT_FALSE(fs::exists(place.Path("target/demo/a")));
}

TEST(Cancel, IsHeardWhileTheCommandAfterADeployRuns) {
  const TRecordPlace place(RecordEntry("a"), {"--after-deploy", "touch ../reached; sleep 60"});
  place.Write("a", "a");
  ExpectHeardInFolder(
      place, {"--allow-commands"}, SIGTERM, [&] { return fs::exists(place.Path(Reached)); },
      "the command after a deploy");
  EXPECT_EQ(place.Read("target/demo/a"), "a");
  EXPECT_EQ(place.Do("status").Json()["owed"].size(), 1U);
}

} // namespace
} // namespace integration
