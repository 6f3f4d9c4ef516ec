#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <sys/stat.h>

namespace integration {
namespace {

// The program that a build would make is not part of what these tests look at.
constexpr const char* Class =
    "<DeployClass Name=\"File\"/>"
    "<DeployFile LocalName=\"demo.exe\" Configuration=\"Debug\" Class=\"ProjectOutput\">"
    "<Platform Name=\"Win32\"><Enabled>false</Enabled></Platform></DeployFile>";

/// One entry for Win32 with more elements in its platform record, and attributes of its own.
std::string FileEntry(const std::string& name, const std::string& record = {},
                      const std::string& attributes = {}) {
  return "<DeployFile LocalName=\"" + name + "\" Configuration=\"Base\" Class=\"File\"" +
         attributes + "><Platform Name=\"Win32\">" + record + "</Platform></DeployFile>\n";
}

/// A workplace with a project and a profile that leads to the directory "target".
class TDeployPlace : public TWorkplace {
public:
  explicit TDeployPlace(const std::string& entries, const std::string& profileOptions = {}) {
    Write("demo.vproj", ProjectWith(ListOf(Class + entries)));
    std::vector<std::string> add{"profile", "add",    "box",    "-p",
                                 "Win32",   "--path", "target", "--default"};
    if (!profileOptions.empty())
      add.push_back(profileOptions);
    const TRun run = Run(add);
    EXPECT_EQ(run.Status, 0) << run.Errors;
  }

  TRun Deploy(std::vector<std::string> options = {}) const {
    std::vector<std::string> arguments{"deploy", "demo.vproj", "-p", "Win32", "-c", "Debug"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Run(arguments);
  }
  bool Exists(const std::string& name) const { return std::filesystem::exists(Path(name)); }
  /// Error text of a deploy that must fail and copy nothing.
  std::string Refusal(std::vector<std::string> options = {}) const {
    const TRun run = Deploy(std::move(options));
    EXPECT_EQ(run.Status, 1) << run.Output << run.Errors;
    EXPECT_EQ(FilesOfTarget(), 0U);
    return run.Errors;
  }
  std::size_t FilesOfTarget() const {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Path("target")))
      count += entry.is_directory() ||
                       entry.path().string().find("/.deployment-manager/") != std::string::npos
                   ? 0
                   : 1;
    return count;
  }
};

TEST(Deploy, AndStatusUseTheDefaultProfileWhereTheProjectNamesNone) {
  const TDeployPlace place(FileEntry("a.dat"));
  place.Write("a.dat", "one");
  ASSERT_EQ(place.Deploy().Status, 0);
  const TRun status = place.Run({"status", "demo.vproj", "-p", "Win32", "-c", "Debug"});
  EXPECT_EQ(status.Status, 0) << status.Errors;
  EXPECT_NE(status.Output.find("Same"), std::string::npos) << status.Output;
}

TEST(Deploy, CopiesWhatDiffersAndNothingElse) {
  const TDeployPlace place(FileEntry("a.dat") + FileEntry("sub\\b.dat", "<RemoteDir>Assets\\"
                                                                        "</RemoteDir>"));
  place.Write("a.dat", "first");
  place.Write("sub/b.dat", "second");
  const TRun first = place.Deploy();
  ASSERT_EQ(first.Status, 0) << first.Errors;
  EXPECT_EQ(place.Read("target/demo/a.dat"), "first");
  EXPECT_EQ(place.Read("target/demo/Assets/b.dat"), "second");
  EXPECT_EQ(std::filesystem::last_write_time(place.Path("target/demo/a.dat")),
            std::filesystem::last_write_time(place.Path("a.dat")));
  const auto again = place.Deploy({"--json"}).Json();
  EXPECT_EQ(again["copied"], 0);
  EXPECT_EQ(again["unchanged"], 2);
  place.Write("a.dat", "first, longer");
  const auto third = place.Deploy({"--json"}).Json();
  EXPECT_EQ(third["copied"], 1);
  EXPECT_EQ(third["files"][0]["action"], "copied");
  EXPECT_EQ(third["files"][0]["bytes"], 13);
  EXPECT_EQ(third["files"][1]["action"], "unchanged");
  EXPECT_EQ(place.Read("target/demo/a.dat"), "first, longer");
}

TEST(Deploy, SaysInADryRunWhatItWouldDo) {
  const TDeployPlace place(FileEntry("a.dat"));
  place.Write("a.dat", "12345");
  const auto document = place.Deploy({"--dry-run", "--json"}).Json();
  EXPECT_EQ(document["platform"], "Win32");
  EXPECT_EQ(document["configuration"], "Debug");
  EXPECT_EQ(document["files"].size(), 1U);
  EXPECT_EQ(document["files"][0]["localName"], "a.dat");
  EXPECT_EQ(document["files"][0]["remoteFile"], place.Path("target/demo/a.dat").string());
  EXPECT_EQ(document["files"][0]["action"], "copied");
  EXPECT_EQ(document["files"][0]["bytes"], 5);
  EXPECT_EQ(document["files"][0]["error"], "");
  EXPECT_EQ(document["copied"], 1);
  EXPECT_EQ(document["failed"], 0);
  EXPECT_EQ(place.FilesOfTarget(), 0U);
}

TEST(Deploy, ComparesContentOnDemandAndForcesTheRest) {
  const TDeployPlace place(FileEntry("a.dat"));
  place.Write("a.dat", "12345");
  ASSERT_EQ(place.Deploy().Status, 0);
  const auto time = std::filesystem::last_write_time(place.Path("a.dat"));
  place.Write("target/demo/a.dat", "1x345");
  std::filesystem::last_write_time(place.Path("target/demo/a.dat"), time);
  EXPECT_EQ(place.Deploy({"--json"}).Json()["unchanged"], 1);
  EXPECT_EQ(place.Deploy({"--json", "--checksum"}).Json()["refused"], 1);
  EXPECT_EQ(place.Deploy({"--json", "--checksum", "--overwrite-changed"}).Json()["copied"], 1);
  EXPECT_EQ(place.Read("target/demo/a.dat"), "12345");
  EXPECT_EQ(place.Deploy({"--json", "--force"}).Json()["copied"], 1);
}

TEST(Deploy, BringsTheTimeInLineWhenTheContentIsTheSame) {
  const TDeployPlace place(FileEntry("a.dat"));
  place.Write("a.dat", "12345");
  ASSERT_EQ(place.Deploy().Status, 0);
  const auto time = std::filesystem::last_write_time(place.Path("a.dat"));
  std::filesystem::last_write_time(place.Path("target/demo/a.dat"), time - std::chrono::hours(1));
  EXPECT_EQ(place.Deploy({"--json", "--checksum"}).Json()["unchanged"], 1);
  EXPECT_EQ(std::filesystem::last_write_time(place.Path("target/demo/a.dat")), time);
}

TEST(Deploy, KeepsAFileThatMustNotBeOverwritten) {
  const TDeployPlace place(FileEntry("a.dat", "<Overwrite>false</Overwrite>"));
  place.Write("a.dat", "new");
  ASSERT_EQ(place.Deploy({"--json"}).Json()["copied"], 1);
  place.Write("a.dat", "newer");
  EXPECT_EQ(place.Deploy({"--json"}).Json()["kept"], 1);
  EXPECT_EQ(place.Deploy({"--json", "--force"}).Json()["kept"], 1);
  EXPECT_EQ(place.Read("target/demo/a.dat"), "new");
}

TEST(Deploy, FailsTheRowOfAMissingFileAndCopiesTheOthers) {
  const TDeployPlace place(FileEntry("gone.dat") + FileEntry("a.dat"));
  place.Write("a.dat", "a");
  const TRun run = place.Deploy({"--json"});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Json()["failed"], 1);
  EXPECT_EQ(run.Json()["files"][0]["error"],
            "the local file " + place.Path("gone.dat").string() + " is missing");
  EXPECT_EQ(place.Read("target/demo/a.dat"), "a");
  const TRun skipping = place.Deploy({"--json", "--skip-missing"});
  EXPECT_EQ(skipping.Status, 0);
  EXPECT_EQ(skipping.Json()["skipped"], 1);
}

TEST(Deploy, RefusesAMissingFileThatIsRequired) {
  const TDeployPlace place(FileEntry("gone.dat", {}, " Required=\"true\"") + FileEntry("a.dat"));
  place.Write("a.dat", "a");
  EXPECT_EQ(place.Refusal({"--skip-missing"}),
            "deploymgr: nothing was copied: \"gone.dat\": the local file " +
                place.Path("gone.dat").string() + " is missing, and it is required\n");
}

TEST(Deploy, RefusesTwoFilesInOnePlace) {
  const TDeployPlace place(FileEntry("x\\a.dat") + FileEntry("y\\A.DAT"));
  place.Write("x/a.dat", "a");
  place.Write("y/A.DAT", "a");
  EXPECT_NE(place.Refusal().find("and so does \"x\\a.dat\""), std::string::npos);
}

TEST(Deploy, RefusesPathsThatLeaveTheProfile) {
  for (const std::string directory : {"..\\..\\out", "/abs", "~\\home", "C:\\x", "a/../../../b"}) {
    const TDeployPlace place(FileEntry("a.dat", "<RemoteDir>" + directory + "</RemoteDir>"));
    place.Write("a.dat", "a");
    EXPECT_NE(place.Refusal().find("leaves the path of the profile"), std::string::npos)
        << directory;
  }
}

TEST(Deploy, RefusesALinkThatLeadsOutside) {
  const TDeployPlace place(FileEntry("a.dat", "<RemoteDir>link</RemoteDir>"));
  place.Write("a.dat", "a");
  std::filesystem::create_directories(place.Path("outside"));
  std::filesystem::create_directories(place.Path("target/demo"));
  std::filesystem::create_directory_symlink(place.Path("outside"), place.Path("target/demo/link"));
  const TRun run = place.Deploy();
  EXPECT_EQ(run.Status, 1);
  EXPECT_NE(run.Errors.find("outside the path of the profile"), std::string::npos) << run.Errors;
  EXPECT_TRUE(std::filesystem::is_empty(place.Path("outside")));
}

TEST(Deploy, GoesOutsideWhenTheProfileAllowsIt) {
  TDeployPlace place("", "--allow-outside");
  const std::string outside = place.Path("outside").string();
  place.Write("demo.vproj", ProjectWith(ListOf(Class + FileEntry("a.dat", "<RemoteDir>" + outside +
                                                                              "</RemoteDir>"))));
  place.Write("a.dat", "a");
  const TRun run = place.Deploy();
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(place.Read("outside/a.dat"), "a");
}

TEST(Deploy, RefusesNamesThatTheTargetCannotHold) {
  for (const std::string name : {"nul.txt", "COM1", "a?b", "dot.", "blank ", "a:b"}) {
    const TDeployPlace place(FileEntry("a.dat", "<RemoteName>" + name + "</RemoteName>"));
    place.Write("a.dat", "a");
    EXPECT_NE(place.Refusal().find("in its remote path"), std::string::npos) << name;
  }
}

TEST(Deploy, RunsCommandsWithConsentOnly) {
  const TDeployPlace place(FileEntry("a.dat", "<LocalCommand>touch before</LocalCommand>"
                                              "<RemoteCommand>touch after</RemoteCommand>"));
  place.Write("a.dat", "a");
  const TRun refused = place.Deploy();
  EXPECT_EQ(refused.Status, 6);
  EXPECT_NE(refused.Errors.find("on this machine: touch before; on the target: touch after"),
            std::string::npos)
      << refused.Errors;
  EXPECT_EQ(place.FilesOfTarget(), 0U);
  const TRun allowed = place.Deploy({"--allow-commands"});
  EXPECT_EQ(allowed.Status, 0) << allowed.Errors;
  EXPECT_TRUE(place.Exists("before"));
  EXPECT_TRUE(place.Exists("target/demo/after"));
  EXPECT_EQ(place.Deploy().Status, 6);
}

TEST(Deploy, RemembersAYesForExactlyTheseCommands) {
  const TDeployPlace place(FileEntry("a.dat", "<LocalCommand>touch before</LocalCommand>"));
  place.Write("a.dat", "a");
  const auto yes = [](const TQuestion&) { return std::string("y"); };
  ASSERT_EQ(place.RunAtTerminal({"deploy", "demo.vproj", "-p", "Win32"}, yes).Status, 0);
  EXPECT_EQ(place.Deploy().Status, 0);
  place.Write("demo.vproj", Replaced(place.Read("demo.vproj"), "touch before", "touch  before"));
  EXPECT_EQ(place.Deploy().Status, 6);
}

TEST(Deploy, NamesAMissingConnection) {
  const TDeployPlace place(FileEntry("a.dat"));
  place.Write("a.dat", "a");
  std::filesystem::remove_all(place.Path("target"));
  const TRun gone = place.Deploy({"--json"});
  EXPECT_EQ(gone.Status, 5);
  EXPECT_EQ(gone.Json()["error"]["code"], 5);
  place.Write("target", "a file");
  EXPECT_EQ(place.Deploy().Errors,
            "deploymgr: " + place.Path("target").string() + " is a file, not a directory\n");
  ASSERT_EQ(place.Run({"profile", "remove", "box"}).Status, 0);
  EXPECT_EQ(place.Deploy().Status, 5);
}

TEST(Deploy, StagesThePackageOfAndroid) {
  TWorkplace place;
  place.Write("demo.vproj", ProjectWith(""));
  place.Write("a.dat", "a");
  ASSERT_EQ(place
                .Run({"add", "demo.vproj", "a.dat", "-p", "Android", "-c", "Debug", "--remote-dir",
                      "res\\raw"})
                .Status,
            0);
  const TRun dry = place.Run({"deploy", "demo.vproj", "-p", "Android", "--dry-run", "--json"});
  std::string staged;
  const auto document = dry.Json();
  for (const auto& file : document["files"]) {
    if (file["localName"] == "a.dat")
      staged = file["remoteFile"];
  }
  EXPECT_TRUE(staged.ends_with("/package/res/raw/a.dat")) << staged;
  EXPECT_FALSE(std::filesystem::exists(staged));
  const TRun run = place.Run({"deploy", "demo.vproj", "-p", "Android", "--skip-missing"});
  EXPECT_TRUE(std::filesystem::exists(staged)) << run.Output << run.Errors;
}

TEST(Deploy, LeavesNoHalfFileWhenItIsKilled) {
  std::string entries;
  for (int i = 0; i < 40; ++i)
    entries += FileEntry("f" + std::to_string(i) + ".dat");
  const TDeployPlace place(entries);
  const std::string content(400000, 'x');
  for (int i = 0; i < 40; ++i)
    place.Write("f" + std::to_string(i) + ".dat", content);
  std::size_t killed = 0;
  for (int delay = 5; delay < 120; delay += 7) {
    TStart start = place.Start({"deploy", "demo.vproj", "-p", "Win32", "--force"});
    start.Patience = std::chrono::milliseconds(delay);
    killed += RunProgram(std::move(start)).Status == 128 + SIGKILL ? 1 : 0;
    if (!place.Exists("target/demo"))
      continue;
    for (const auto& entry : std::filesystem::directory_iterator(place.Path("target/demo"))) {
      const bool isUnfinished = entry.path().filename().string().starts_with(".deploymgr-");
      EXPECT_TRUE(isUnfinished || entry.file_size() == content.size()) << entry.path();
    }
  }
  EXPECT_GT(killed, 0U);
  const TRun last = place.Deploy({"--force"});
  ASSERT_EQ(last.Status, 0) << last.Errors;
  EXPECT_EQ(place.FilesOfTarget(), 40U);
}

TEST(Deploy, FailsTheRowsOfATargetWithoutPermission) {
  TDeployPlace place(FileEntry("a.dat"));
  place.Write("a.dat", "a");
  std::filesystem::create_directories(place.Path("target/demo"));
  if (!place.BecomeOrdinary())
    GTEST_SKIP() << "the program stands where an ordinary user may not look";
  std::filesystem::permissions(place.Path("target/demo"), std::filesystem::perms(0555));
  const TRun run = place.Deploy({"--json"});
  std::filesystem::permissions(place.Path("target/demo"), std::filesystem::perms(0755));
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Json()["files"][0]["error"],
            "making a temporary file beside it: Permission denied");
}

TEST(Deploy, LeavesNothingHalfOnAFullDisk) {
  const TDeployPlace place(FileEntry("a.dat") + FileEntry("small.dat"));
  place.Write("a.dat", std::string(3000000, 'x'));
  place.Write("small.dat", "s");
  const std::string script = "mount -t tmpfs -o size=1m none target && " +
                             std::string(DEPLOYMGR_PROGRAM) +
                             " deploy demo.vproj -p Win32; echo status $?; ls -A target/demo";
  const TRun run = place.RunProgram({"unshare", "-m", "sh", "-c", script});
  if (run.Output.find("status") == std::string::npos)
    GTEST_SKIP() << "no mounts here: " << run.Errors;
  EXPECT_NE(run.Output.find("status 1\nsmall.dat\n"), std::string::npos) << run.Output;
  EXPECT_NE(run.Errors.find("No space left on device"), std::string::npos) << run.Errors;
}

TEST(Deploy, WantsASinglePlatform) {
  const TDeployPlace place(FileEntry("a.dat"));
  EXPECT_EQ(place.Run({"deploy", "demo.vproj", "-p", "all"}).Status, 2);
}

} // namespace
} // namespace integration
