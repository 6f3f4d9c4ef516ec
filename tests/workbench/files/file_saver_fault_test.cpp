// What a save leaves behind when the system fails it, or when it is killed, at every single step.
#include "tests/workbench/files/save_fixture.h"
#include "workbench/files/file_saver.h"

#include <array>
#include <chrono>
#include <fcntl.h>
#include <future>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace workbench {
namespace {

constexpr int MostCalls = 60;

class FileSaverFault : public testing::TSaveTest {
protected:
  void SetUp() override {
    TSaveTest::SetUp();
    FOld = FRoot / "old";
    FNew = FRoot / "new";
    Write(FOld, std::string(30000, 'o'));
    Write(FNew, std::string(200000, 'n'));
    Restore();
    FProbe = Neighbour("save_probe");
    ASSERT_TRUE(std::filesystem::exists(FProbe)) << FProbe << " is not built";
  }
  void Restore() {
    std::filesystem::remove_all(FDirectory);
    std::filesystem::create_directory(FDirectory);
    std::filesystem::copy_file(FOld, FFile);
  }
  std::string ProbeCommand() const {
    return FProbe + " " + FFile.string() + " " + FOld.string() + " " + FNew.string();
  }
  std::filesystem::path Log() const { return FRoot / "log"; }
  std::filesystem::path Errors() const { return FRoot / "errors"; }

  // Runs the probe with the fault at the `when`-th call; false when there was no such call.
  bool RunWithFault(const std::string& call, const std::string& fault, int when) {
    Restore();
    // Leak checkers do not work under a tracer.
    FStatus =
        Shell("ASAN_OPTIONS=detect_leaks=0 strace -f -o " + Log().string() + " -e trace=" + call +
              " -e inject=" + call + ":" + fault + ":when=" + std::to_string(when) + " " +
              ProbeCommand() + " > /dev/null 2> " + Errors().string());
    const std::string log = Read(Log());
    return log.find("(INJECTED)") != std::string::npos ||
           log.find("killed by SIGKILL") != std::string::npos;
  }
  bool HasOld() const { return Read(FFile) == Read(FOld); }
  bool HasNew() const { return Read(FFile) == Read(FNew); }
  static bool HasTracer() {
    return Shell("strace -o /dev/null -e trace=none true > /dev/null 2>&1") == 0;
  }

  std::filesystem::path FOld;
  std::filesystem::path FNew;
  std::string FProbe;
  int FStatus = 0;
};

// Every call that a save makes, by the name that the system has for it.
constexpr std::array SavingCalls = {"openat",   "newfstatat", "pread64",   "writev",
                                    "fsync",    "close",      "fchmod",    "flock",
                                    "renameat", "link",       "faccessat2"};

TEST_F(FileSaverFault, SaysTheTruthAboutTheContentWhereverACallFails) {
  if (!HasTracer())
    GTEST_SKIP() << "this machine has no tracer";
  int faults = 0;
  for (const std::string call : SavingCalls) {
    for (int when = 1; when < MostCalls && RunWithFault(call, "error=EIO", when); ++when) {
      ++faults;
      const std::string text = Read(Errors());
      SCOPED_TRACE(::testing::Message() << call << " " << when << ": " << text);
      const bool isNew =
          FStatus == 0 || text.find("the new content is in place") != std::string::npos;
      EXPECT_TRUE(isNew ? HasNew() : HasOld());
      const bool isExplained = text.find("is in place") != std::string::npos ||
                               text.find("nothing was written") != std::string::npos;
      EXPECT_TRUE(FStatus != 1 || isExplained);
      EXPECT_EQ(Names(), std::vector<std::string>{"demo.vproj"});
    }
  }
  EXPECT_GE(faults, 15);
}

TEST_F(FileSaverFault, LeavesTheOldOrTheNewContentWhereverItIsKilled) {
  if (!HasTracer())
    GTEST_SKIP() << "this machine has no tracer";
  int kills = 0;
  for (const std::string call : SavingCalls) {
    for (int when = 1; when < MostCalls && RunWithFault(call, "signal=KILL", when); ++when) {
      ++kills;
      SCOPED_TRACE(::testing::Message() << call << " " << when);
      EXPECT_TRUE(HasOld() || HasNew());
      for (const std::string& name : Names())
        EXPECT_TRUE(name == "demo.vproj" ||
                    (name.starts_with(".demo.vproj.") && name.ends_with(".tmp")))
            << name;
      const int next = HasOld() ? Shell(ProbeCommand() + " > /dev/null") : 0;
      EXPECT_EQ(next, 0);
      EXPECT_TRUE(HasNew());
    }
  }
  EXPECT_GE(kills, 15);
}

TEST_F(FileSaverFault, NamesTheFailedStepAndTheContentInPlace) {
  if (!HasTracer())
    GTEST_SKIP() << "this machine has no tracer";
  struct TCase {
    const char* Call;
    const char* Fault;
    int When;
    std::string Text;
    bool IsNewInPlace;
  };
  const std::string kept = "; the old content is in place\n";
  const std::vector<TCase> cases = {
      {"writev", "error=ENOSPC", 1, "writing the new content: No space left on device" + kept,
       false},
      {"fsync", "error=EIO", 1, "bringing the new content to the disk: Input/output error" + kept,
       false},
      {"renameat", "error=EXDEV", 1,
       "putting the new content in place: Invalid cross-device link" + kept, false},
      {"fsync", "error=EIO", 2,
       "bringing its directory to the disk: Input/output error; the new content is in place\n",
       true},
  };
  for (const TCase& item : cases) {
    SCOPED_TRACE(item.Text);
    std::filesystem::remove_all(FRoot / "state");
    ASSERT_TRUE(RunWithFault(item.Call, item.Fault, item.When));
    EXPECT_EQ(FStatus, 1);
    EXPECT_EQ(Read(Errors()),
              FFile.string() +
                  (item.IsNewInPlace ? " was written but may be lost if the machine stops now: "
                                     : " was not written: ") +
                  item.Text);
    EXPECT_TRUE(item.IsNewInPlace ? HasNew() : HasOld());
    EXPECT_EQ(Names(), std::vector<std::string>{"demo.vproj"});
    EXPECT_EQ(NewestBackup(FFile).has_value(), item.IsNewInPlace);
  }
}

TEST_F(FileSaverFault, CopiesTheBackupWhereTheSystemRefusesASecondName) {
  if (!HasTracer())
    GTEST_SKIP() << "this machine has no tracer";
  ASSERT_TRUE(RunWithFault("link", "error=EXDEV", 1));
  EXPECT_EQ(FStatus, 0);
  EXPECT_TRUE(HasNew());
  EXPECT_EQ(Read(NewestBackup(FFile).value()), Read(FOld));
}

TEST_F(FileSaverFault, NoticesThatTheFileIsReplacedWhileItIsSaved) {
  if (!HasTracer())
    GTEST_SKIP() << "this machine has no tracer";
  auto run = std::async(std::launch::async,
                        [this] { return RunWithFault("fsync", "delay_enter=1500000", 1); });
  while (Names().size() < 2)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  Write(FRoot / "theirs", "of an editor");
  std::filesystem::rename(FRoot / "theirs", FFile);
  run.wait();
  EXPECT_EQ(FStatus, 1);
  EXPECT_EQ(Read(Errors()), FFile.string() +
                                " changed on disk since it was read; nothing was written "
                                "(--force-save overwrites it)\n");
  EXPECT_EQ(Read(FFile), "of an editor");
  EXPECT_EQ(Names(), std::vector<std::string>{"demo.vproj"});
  EXPECT_EQ(NewestBackup(FFile), std::nullopt);
}

TEST_F(FileSaverFault, KeepsTheOldContentOnAFullDisk) {
  const std::string mounted = (FRoot / "small").string();
  std::filesystem::create_directory(mounted);
  const std::string mount = "mount -t tmpfs -o size=64k none " + mounted;
  if (Shell("unshare -m sh -c '" + mount + "' 2> /dev/null") != 0)
    GTEST_SKIP() << "this user cannot mount a small disk";
  const std::string target = mounted + "/demo.vproj";
  EXPECT_EQ(Shell("unshare -m sh -c '" + mount + " && cp " + FOld.string() + " " + target +
                  " && { " + FProbe + " " + target + " " + FOld.string() + " " + FNew.string() +
                  " 2> " + Errors().string() + "; cmp " + target + " " + FOld.string() +
                  " && ls -A " + mounted + " > " + Log().string() + "; }'"),
            0);
  EXPECT_EQ(Read(Errors()), target + " was not written: writing the new content: "
                                     "No space left on device; the old content is in place\n");
  EXPECT_EQ(Read(Log()), "demo.vproj\n");
}

TEST_F(FileSaverFault, SurvivesAKillAtAnyMoment) {
  Write(FNew, std::string(8'000'000, 'n'));
  posix_spawn_file_actions_t quiet = {};
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  for (int step = 0; step < 40; ++step) {
    Restore();
    const std::string target = FFile.string();
    const std::string oldFile = FOld.string();
    const std::string newFile = FNew.string();
    std::array<char*, 5> arguments = {FProbe.data(), const_cast<char*>(target.c_str()),
                                      const_cast<char*>(oldFile.c_str()),
                                      const_cast<char*>(newFile.c_str()), nullptr};
    pid_t child = 0;
    ASSERT_EQ(posix_spawn(&child, FProbe.c_str(), &quiet, nullptr, arguments.data(), environ), 0);
    std::this_thread::sleep_for(std::chrono::microseconds(700 * step));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(HasOld() || HasNew()) << step;
    for (const std::string& name : Names())
      EXPECT_TRUE(name == "demo.vproj" || name.ends_with(".tmp")) << name;
  }
  posix_spawn_file_actions_destroy(&quiet);
}

} // namespace
} // namespace workbench
