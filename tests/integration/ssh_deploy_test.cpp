#include "tests/integration/ssh_place.h"

#include <chrono>

namespace integration {
namespace {

namespace fs = std::filesystem;
using TTexts = std::vector<std::string>;

// A place whose server is known to the client.
class TKnownPlace : public TSshPlace {
public:
  explicit TKnownPlace(const std::string& entries) : TSshPlace(entries) { Server().Introduce(); }
};

TEST(SshDeploy, BringsEverythingThereOnce) {
  NEEDS_SSH_SERVER();
  const TKnownPlace place(RemoteEntry("a.dat") +
                          RemoteEntry("b.dat", "<RemoteDir>sub\\deep</RemoteDir>"));
  place.Write("a.dat", "first");
  place.Write("b.dat", "second");
  EXPECT_EQ(place.States(), (TTexts{"a.dat Not Found", "b.dat Not Found"}));
  const TRun first = place.Deploy({"--json"});
  ASSERT_EQ(first.Status, 0) << first.Errors;
  EXPECT_EQ(first.Json()["copied"], 2);
  EXPECT_EQ(first.Json()["files"][0]["remoteFile"], place.Path("target/demo/a.dat").string());
  EXPECT_EQ(place.Read("target/demo/a.dat"), "first");
  EXPECT_EQ(place.Read("target/demo/sub/deep/b.dat"), "second");
  EXPECT_EQ(place.States(), (TTexts{"a.dat Same", "b.dat Same"}));
  const auto again = place.Deploy({"--json"}).Json();
  EXPECT_EQ(again["copied"], 0);
  EXPECT_EQ(again["unchanged"], 2);
  EXPECT_EQ(again["files"][0]["bytes"], 0);
  EXPECT_EQ(place.UnfinishedCount(), 0U);
}

TEST(SshDeploy, ShowsWhatWasChangedOnTheTarget) {
  NEEDS_SSH_SERVER();
  const TKnownPlace place(RemoteEntry("a.dat") + RemoteEntry("b.dat") + RemoteEntry("c.dat"));
  for (const char* name : {"a.dat", "b.dat", "c.dat"})
    place.Write(name, "content");
  ASSERT_EQ(place.Deploy().Status, 0);
  const auto time = fs::last_write_time(place.Path("target/demo/a.dat"));
  fs::last_write_time(place.Path("target/demo/a.dat"), time + std::chrono::hours(1));
  fs::last_write_time(place.Path("target/demo/b.dat"), time - std::chrono::hours(1));
  fs::remove(place.Path("target/demo/c.dat"));
  EXPECT_EQ(place.States(), (TTexts{"a.dat Newer", "b.dat Older", "c.dat Not Found"}));
  // The content is the same still, so that only the time stamps are brought in line.
  EXPECT_EQ(place.Deploy({"--json"}).Json()["copied"], 1);
  EXPECT_EQ(place.States(), (TTexts{"a.dat Same", "b.dat Same", "c.dat Same"}));
}

TEST(SshDeploy, ComparesContentOnDemand) {
  NEEDS_SSH_SERVER();
  const TKnownPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "12345");
  ASSERT_EQ(place.Deploy().Status, 0);
  const auto time = fs::last_write_time(place.Path("target/demo/a.dat"));
  place.Write("target/demo/a.dat", "1x345");
  fs::last_write_time(place.Path("target/demo/a.dat"), time);
  EXPECT_EQ(place.Deploy({"--json"}).Json()["unchanged"], 1);
  EXPECT_EQ(place.Deploy({"--json", "--checksum"}).Json()["refused"], 1);
  EXPECT_EQ(place.Deploy({"--json", "--checksum", "--overwrite-changed"}).Json()["copied"], 1);
  EXPECT_EQ(place.Read("target/demo/a.dat"), "12345");
}

TEST(SshDeploy, RunsCommandsOnTheTargetWithConsent) {
  NEEDS_SSH_SERVER();
  const TKnownPlace place(RemoteEntry("a.dat", "<RemoteCommand>cat a.dat > after</RemoteCommand>"));
  place.Write("a.dat", "content");
  EXPECT_EQ(place.Deploy().Status, 6);
  const TRun run = place.Deploy({"--allow-commands"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(place.Read("target/demo/after"), "content");
}

TEST(SshDeploy, TellsInADryRunWhatItWouldDo) {
  NEEDS_SSH_SERVER();
  const TKnownPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "content");
  EXPECT_EQ(place.Deploy({"--dry-run", "--json"}).Json()["copied"], 1);
  EXPECT_FALSE(fs::exists(place.Path("target")));
}

TEST(SshDeploy, RefusesARootThatIsAFile) {
  NEEDS_SSH_SERVER();
  const TKnownPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "a");
  place.Write("target", "a file");
  const TRun run = place.Deploy();
  EXPECT_EQ(run.Status, 5);
  EXPECT_EQ(run.Errors,
            "deploymgr: " + place.Path("target").string() + " is a file, not a directory\n");
  EXPECT_EQ(place.Read("target"), "a file");
}

TEST(SshDeploy, RefusesALinkThatLeadsOutside) {
  NEEDS_SSH_SERVER();
  const TKnownPlace place(RemoteEntry("a.dat", "<RemoteDir>link</RemoteDir>"));
  place.Write("a.dat", "a");
  fs::create_directories(place.Path("outside"));
  fs::create_directories(place.Path("target/demo"));
  fs::create_directory_symlink(place.Path("outside"), place.Path("target/demo/link"));
  const TRun run = place.Deploy();
  EXPECT_EQ(run.Status, 1);
  EXPECT_NE(run.Errors.find("\"a.dat\": "), std::string::npos) << run.Errors;
  EXPECT_NE(run.Errors.find("outside the path of the profile"), std::string::npos) << run.Errors;
  EXPECT_TRUE(fs::is_empty(place.Path("outside")));
}

TEST(SshDeploy, RefusesNamesThatTheTargetCannotHold) {
  NEEDS_SSH_SERVER();
  const std::string longName(256, 'n');
  for (const std::string& name : {longName, std::string(".."), std::string("a/../../../b")}) {
    const TKnownPlace place(RemoteEntry("a.dat", "<RemoteName>" + name + "</RemoteName>"));
    place.Write("a.dat", "a");
    const TRun run = place.Deploy();
    EXPECT_EQ(run.Status, 1) << name;
    EXPECT_NE(run.Errors.find("nothing was copied: \"a.dat\": "), std::string::npos) << run.Errors;
    EXPECT_TRUE(!fs::exists(place.Path("target")) || place.TargetFiles().empty());
  }
}

TEST(SshDeploy, RefusesForWindowsWhatOnlyOthersCanHold) {
  NEEDS_SSH_SERVER();
  TKnownPlace place("");
  ASSERT_EQ(place.AddProfile("pc", {"-p", "Win32"}).Status, 0);
  const auto refusal = [&](const std::string& entries) {
    place.Write("pc.vproj",
                Replaced(Replaced(place.Read("demo.vproj"), "<Profile>box", "<Profile>pc"),
                         "</Deployment>", entries + "</Deployment>"));
    place.Write("pc.vproj", Replaced(place.Read("pc.vproj"), "OSX32", "Win32"));
    const TRun run = place.Run({"deploy", "pc.vproj", "--skip-missing"});
    EXPECT_EQ(run.Status, 1);
    EXPECT_FALSE(fs::exists(place.Path("target")));
    return run.Errors;
  };
  place.Write("a.dat", "a");
  place.Write("x/A.DAT", "a");
  EXPECT_NE(refusal(RemoteEntry("a.dat", "<RemoteName>nul.txt</RemoteName>")).find("\"a.dat\": "),
            std::string::npos);
  EXPECT_NE(refusal(RemoteEntry("a.dat") + RemoteEntry("x\\A.DAT")).find("and so does \"a.dat\""),
            std::string::npos);
}

TEST(SshDeploy, FailsTheRowsOfATargetWithoutPermission) {
  NEEDS_SSH_SERVER();
  TKnownPlace place(RemoteEntry("a.dat") + RemoteEntry("b.dat", "<RemoteDir>free</RemoteDir>"));
  place.Write("a.dat", "a");
  place.Write("b.dat", "b");
  fs::create_directories(place.Path("target/demo/free"));
  fs::permissions(place.Path("target/demo/free"), fs::perms::all);
  fs::permissions(place.Path("target/demo"), fs::perms(0555));
  if (::getuid() == 0) {
    fs::permissions(place.Directory(), fs::perms(0755));
    place.Server().SetTransfer("exec setpriv --reuid=65534 --regid=65534 --clear-groups "
                               "/usr/lib/openssh/sftp-server");
  }
  const TRun run = place.Deploy({"--json"});
  fs::permissions(place.Path("target/demo"), fs::perms(0755));
  EXPECT_EQ(run.Status, 1) << run.Errors;
  EXPECT_EQ(run.Json()["failed"], 1);
  const std::string error = run.Json()["files"][0]["error"];
  EXPECT_NE(error.find("permission denied"), std::string::npos) << error;
  EXPECT_EQ(place.TargetFiles(), TTexts{"demo/free/b.dat"});
  place.Server().ResetTransfer();
  EXPECT_EQ(place.Deploy().Status, 0);
}

} // namespace
} // namespace integration
