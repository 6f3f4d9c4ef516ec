// Deploys that are taken back where the target makes it hard.
#include "tests/integration/record_place.h"
#include "tests/integration/ssh_place.h"

#include <sys/stat.h>

namespace integration {
namespace {

namespace fs = std::filesystem;
using TTexts = std::vector<std::string>;

constexpr const char* Cannot = "this deploy cannot be taken back";
constexpr const char* KeptDirectory = "target/.deployment-manager/demo/undo";

// A file that was replaced by a deploy, as "first" by "second!".
class TReplacedPlace : public TRecordPlace {
public:
  explicit TReplacedPlace(bool withHardLinks = true) : TRecordPlace(RecordEntry("a")) {
    Write("a", "first");
    EXPECT_EQ(RunSo("deploy", {}, withHardLinks).Status, 0);
    Write("a", "second!");
    ::chmod(Path("a").c_str(), 0600);
    const TRun run = RunSo("deploy", {}, withHardLinks);
    EXPECT_EQ(run.Status, 0) << run.Errors;
    EXPECT_EQ(run.Errors.find(Cannot), std::string::npos) << run.Errors;
  }
  TRun RunSo(const std::string& command, const TTexts& options, bool withHardLinks) const {
    TTexts arguments{command, "demo.vproj", "-p", "Win32", "-c", "Debug", "--json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    TStart start = Start(arguments);
    start.WithoutHardLinks = !withHardLinks;
    return integration::RunProgram(std::move(start));
  }
};

TEST(UndoWithoutHardLinks, KeepsACopyAndBringsItBackWithItsTimeAndRights) {
  const TReplacedPlace place(/*withHardLinks=*/false);
  const std::string run = place.RecordNow()["runs"][0]["id"];
  const fs::path kept = place.Path(std::string(KeptDirectory) + "/" + run + "/1");
  EXPECT_EQ(place.Read(kept.string()), "first");
  EXPECT_EQ(fs::hard_link_count(kept), 1U);
  const auto time = fs::last_write_time(kept);
  const TRun undo = place.RunSo("undo", {"--yes"}, false);
  EXPECT_EQ(undo.Status, 0) << undo.Errors;
  EXPECT_EQ(undo.Json()["restored"], 1);
  EXPECT_EQ(place.Read("target/demo/a"), "first");
  EXPECT_EQ(fs::last_write_time(place.Path("target/demo/a")), time);
  EXPECT_EQ(fs::status(place.Path("target/demo/a")).permissions(), fs::perms(0644));
  EXPECT_EQ(place.RunSo("undo", {"--yes"}, false).Status, 0);
  EXPECT_FALSE(fs::exists(place.Path("target/demo")));
}

TEST(UndoWithoutHardLinks, KeepsNoMoreThanItsBudget) {
  const TReplacedPlace place(/*withHardLinks=*/false);
  ASSERT_EQ(place.Run({"settings", "set", "undo-bytes", "6"}).Status, 0);
  place.Write("a", "third");
  const TRun run = place.RunSo("deploy", {}, false);
  EXPECT_EQ(run.Status, 0);
  EXPECT_NE(run.Errors.find(Cannot), std::string::npos) << run.Errors;
  EXPECT_EQ(place.Read("target/demo/a"), "third");
  // What was kept of the run before stays within it, too.
  std::size_t runs = 0;
  for (const auto& entry : fs::directory_iterator(place.Path(KeptDirectory)))
    runs += entry.is_directory() ? 1 : 0;
  EXPECT_EQ(runs, 2U);
  ASSERT_EQ(place.Run({"settings", "set", "undo-bytes", "9"}).Status, 0);
  place.Write("a", "4th");
  EXPECT_EQ(place.RunSo("deploy", {}, false).Status, 0);
  EXPECT_EQ(place.RunSo("undo", {"--yes"}, false).Status, 0);
  EXPECT_EQ(place.Read("target/demo/a"), "third");
}

TEST(UndoWithoutHardLinks, WorksOnAnotherMachine) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a"));
  place.Server().Introduce();
  place.Server().SetTransfer("exec /usr/lib/openssh/sftp-server -P hardlink");
  place.Write("a", "first");
  ASSERT_EQ(place.Deploy().Status, 0);
  place.Write("a", "second!");
  ASSERT_EQ(place.Deploy().Status, 0);
  EXPECT_EQ(fs::hard_link_count(place.Path("target/demo/a")), 1U);
  const TRun run = place.Run({"undo", "demo.vproj", "--yes"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(place.Read("target/demo/a"), "first");
}

// Runs a script in a mount namespace where "target" is a file system of a megabyte.
// "$1" and so on are deploymgr, its command, and the project with its target follow.
class TSmallDisk : public TRecordPlace {
public:
  TSmallDisk() : TRecordPlace(RecordEntry("a")) { Write("a", "first"); }
  /// False where no file system can be mounted.
  bool Try(const std::string& script, bool withHardLinks = true) const {
    fs::create_directories(Path("target"));
    TStart start = Start({});
    const std::string program = start.Command.front();
    const std::string prologue = "mount -t tmpfs -o size=1m none target || exit 99\n"
                                 "run() { \"" +
                                 program +
                                 "\" \"$1\" demo.vproj -p Win32 -c Debug $2 >out 2>>messages; "
                                 "echo \"$1 $? $(cat target/demo/a | head -c 20)\" >>log; }\n";
    start.Command = {"unshare", ::getuid() == 0 ? "-m" : "-rm", "sh", "-c", prologue + script};
    start.WithoutHardLinks = !withHardLinks;
    const TRun run = integration::RunProgram(std::move(start));
    EXPECT_TRUE(run.Status == 0 || run.Status == 99 || run.Status == 1) << run.Errors;
    return run.Status == 0;
  }
};

#define NEEDS_MOUNTS(call)                                                                         \
  do {                                                                                             \
    if (!(call))                                                                                   \
      GTEST_SKIP() << "no mounts here";                                                            \
  } while (false)

TEST(UndoOnAFullDisk, ChangesNothingAndCompletesWhenThereIsRoom) {
  const TSmallDisk place;
  NEEDS_MOUNTS(place.Try("run deploy; printf second! >a; run deploy\n"
                         "dd if=/dev/zero of=target/fill bs=4096 2>dd\n"
                         "run undo --yes; run status; rm target/fill; run undo --yes; run deploy\n"
                         "ls -A target/.deployment-manager/demo >left"));
  EXPECT_EQ(place.Read("log"), "deploy 0 first\ndeploy 0 second!\nundo 1 second!\n"
                               "status 0 second!\nundo 0 first\ndeploy 0 second!\n");
  EXPECT_NE(place.Read("messages").find("No space left on device"), std::string::npos)
      << place.Read("messages");
  EXPECT_EQ(place.Read("left"), "record.json\nundo\n");
}

// The lock finds room, the record does not: it still says that the run stands.
TEST(UndoOnAFullDisk, IsToldToTheRecordByTheNextOne) {
  const TSmallDisk place;
  std::string entries = RecordEntry("a");
  for (int i = 0; i < 60; ++i) {
    const std::string name = "other" + std::to_string(i);
    place.Write(name, "o");
    entries += RecordEntry(name);
  }
  place.SetEntries(entries);
  NEEDS_MOUNTS(place.Try("run deploy; printf second! >a; run deploy\n"
                         "dd if=/dev/zero of=target/fill bs=4096 2>dd\n"
                         "truncate -s -8192 target/fill\n"
                         "run undo --yes; rm target/fill; run undo --yes; run history\n"
                         "cp target/.deployment-manager/demo/record.json remembered"));
  EXPECT_EQ(place.Read("log"), "deploy 0 first\ndeploy 0 second!\nundo 0 first\n"
                               "undo 0 first\nhistory 0 first\n");
  EXPECT_NE(place.Read("messages").find("cannot remember what was taken back"), std::string::npos)
      << place.Read("messages");
  const auto record = nlohmann::ordered_json::parse(place.Read("remembered"));
  EXPECT_EQ(record["runs"][0]["result"], "undone");
  EXPECT_EQ(record["runs"][1]["result"], "done");
  EXPECT_EQ(record["files"]["demo/a"]["size"], 5);
}

TEST(UndoOnAFullDisk, IsNotKeptWhereACopyFindsNoRoom) {
  const TSmallDisk place;
  NEEDS_MOUNTS(place.Try("head -c 600000 /dev/zero | tr '\\0' x >a; run deploy\n"
                         "printf small >a; run deploy; run undo --yes\n"
                         "find target -type f -size +100k >large",
                         /*withHardLinks=*/false));
  EXPECT_EQ(place.Read("log"), "deploy 0 xxxxxxxxxxxxxxxxxxxx\ndeploy 0 small\nundo 1 small\n");
  EXPECT_NE(place.Read("messages").find(Cannot), std::string::npos) << place.Read("messages");
  EXPECT_EQ(place.Read("large"), "");
}

TEST(UndoOnAReadOnlyTarget, ChangesNothingAndCompletesWhenItMayWrite) {
  TReplacedPlace place;
  if (!place.BecomeOrdinary())
    GTEST_SKIP() << "the program cannot be run by another user";
  const fs::path kept = place.Path("target/.deployment-manager/demo");
  ::chmod(kept.c_str(), 0555);
  const TRun locked = place.Do("undo", {"--yes"});
  EXPECT_EQ(locked.Status, 1);
  EXPECT_NE(locked.Errors.find("ermission denied"), std::string::npos) << locked.Errors;
  EXPECT_EQ(place.Read("target/demo/a"), "second!");
  ::chmod(kept.c_str(), 0755);
  // Where only the files cannot be written, each is named.
  ::chmod(place.Path("target/demo").c_str(), 0555);
  const TRun run = place.Do("undo", {"--yes"});
  EXPECT_EQ(run.Status, 1) << run.Errors;
  EXPECT_EQ(run.Json()["result"], "partly");
  EXPECT_EQ(run.Json()["files"][0]["action"], "failed");
  EXPECT_NE(run.Json()["files"][0]["reason"], "");
  EXPECT_EQ(place.Read("target/demo/a"), "second!");
  EXPECT_FALSE(fs::exists(place.Path(LockFile)));
  ::chmod(place.Path("target/demo").c_str(), 0755);
  EXPECT_EQ(place.Do("verify").Status, 0);
  const TRun again = place.Do("undo", {"--yes"});
  EXPECT_EQ(again.Status, 0) << again.Errors;
  EXPECT_EQ(place.Read("target/demo/a"), "first");
}

TEST(UndoOnAReadOnlyTarget, IsSaidByADeployThatCannotBeRemembered) {
  TReplacedPlace place;
  if (!place.BecomeOrdinary())
    GTEST_SKIP() << "the program cannot be run by another user";
  ::chmod(place.Path("target/.deployment-manager/demo").c_str(), 0555);
  place.Write("a", "the third");
  const TRun run = place.Do("deploy");
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(run.Errors.find("the target cannot remember this deploy"), std::string::npos)
      << run.Errors;
  EXPECT_EQ(place.Read("target/demo/a"), "the third");
  ::chmod(place.Path("target/.deployment-manager/demo").c_str(), 0755);
  EXPECT_EQ(place.Do("undo", {"--yes"}).Status, 8);
  EXPECT_EQ(place.Read("target/demo/a"), "the third");
}

} // namespace
} // namespace integration
