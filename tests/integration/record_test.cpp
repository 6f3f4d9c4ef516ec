// What a target remembers of deploys, and what follows from it.
#include "tests/integration/ssh_place.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <sys/stat.h>
#include <thread>

namespace integration {
namespace {

namespace fs = std::filesystem;
using TJson = nlohmann::ordered_json;
using TTexts = std::vector<std::string>;

constexpr const char* Record = "target/.deployment-manager/demo/record.json";
constexpr const char* Lock = "target/.deployment-manager/demo/lock";

std::string DeployedEntry(const std::string& name, const std::string& record = {}) {
  return "<DeployFile LocalName=\"" + name +
         "\" Configuration=\"Base\" Class=\"File\"><Platform Name=\"Win32\">" + record +
         "</Platform></DeployFile>\n";
}

/// A project of these entries whose profile leads to the directory "target".
class TRecordPlace : public TWorkplace {
public:
  explicit TRecordPlace(const std::string& entries, const TTexts& options = {}) {
    SetEntries(entries);
    TTexts add{"profile", "add", "box", "-p", "Win32", "--path", "target", "--default"};
    add.insert(add.end(), options.begin(), options.end());
    EXPECT_EQ(Run(add).Status, 0);
  }
  void SetEntries(const std::string& entries) const {
    Write("demo.vproj",
          ProjectWith(ListOf("<DeployClass Name=\"File\"/>"
                             "<DeployFile LocalName=\"demo.exe\" Configuration=\"Debug\" "
                             "Class=\"ProjectOutput\"><Platform Name=\"Win32\"><Enabled>false"
                             "</Enabled></Platform></DeployFile>" +
                             entries)));
  }
  TRun Do(const std::string& command, TTexts options = {}) const {
    TTexts arguments{command, "demo.vproj", "-p", "Win32", "-c", "Debug", "--json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Run(arguments);
  }
  TJson RecordNow() const { return TJson::parse(Read(Record)); }
  /// State and action of each file of a deploy or a dry run, by name.
  static std::string Actions(const TRun& run) {
    std::string text;
    const TJson document = run.Json();
    for (const auto& file : document["files"])
      text += file["localName"].get<std::string>() + " " +
              (file["state"].is_null() ? "-" : file["state"].get<std::string>()) + " " +
              file["action"].get<std::string>() + ";";
    return text;
  }
  /// Another content of the same size, and a time that tells.
  void ChangeThere(const std::string& name) const {
    const fs::path file = Path("target/demo/" + name);
    Write("target/demo/" + name, std::string(fs::file_size(file), '#'));
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::seconds(30));
  }
};

TEST(Record, RemembersWhatWasDeployed) {
  const TRecordPlace place(DeployedEntry("a.dat") + DeployedEntry("sub\\b.dat"));
  place.Write("a.dat", "first");
  place.Write("sub/b.dat", "second");
  ::chmod(place.Path("a.dat").c_str(), 0640);
  const TRun deploy = place.Do("deploy");
  ASSERT_EQ(deploy.Status, 0) << deploy.Errors;
  const TJson record = place.RecordNow();
  EXPECT_EQ(record["format"], 1);
  EXPECT_EQ(record["project"], "demo");
  EXPECT_EQ(record["platform"], "Win32");
  EXPECT_EQ(record["configuration"], "Debug");
  ASSERT_EQ(record["runs"].size(), 1U);
  EXPECT_EQ(record["runs"][0]["copied"], 2);
  EXPECT_EQ(record["runs"][0]["failed"], 0);
  EXPECT_EQ(record["runs"][0]["result"], "done");
  EXPECT_EQ(record["files"].size(), 2U);
  const TJson& file = record["files"]["demo/a.dat"];
  EXPECT_EQ(file["localName"], "a.dat");
  EXPECT_EQ(file["class"], "File");
  EXPECT_EQ(file["size"], 5);
  EXPECT_EQ(file["mode"], "0640");
  EXPECT_EQ(file["sha256"], "a7937b64b8caa58f03721bb6bacf5c78cb235febe0e70b1b84cd99541461a08e");
  EXPECT_EQ(file["run"], record["runs"][0]["id"]);
  EXPECT_EQ(place.Read("target/.deployment-manager/demo/lock"), "");
  EXPECT_FALSE(fs::exists(place.Path(Lock)));
  // A deploy that changes nothing leaves it alone.
  const auto time = fs::last_write_time(place.Path(Record));
  ASSERT_EQ(place.Do("deploy").Status, 0);
  EXPECT_EQ(fs::last_write_time(place.Path(Record)), time);
  const TJson history = place.Do("history").Json();
  EXPECT_EQ(history["runs"], record["runs"]);
}

TEST(Record, IsLeftByNoStatelessProfile) {
  const TRecordPlace place(DeployedEntry("a.dat"), {"--stateless"});
  place.Write("a.dat", "first");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  EXPECT_FALSE(fs::exists(place.Path("target/.deployment-manager")));
  EXPECT_EQ(place.Do("history").Json()["runs"].size(), 0U);
}

TEST(Record, TakesAFileThatIsFoundTheSameForDeployed) {
  const TRecordPlace place(DeployedEntry("a.dat"), {"--stateless"});
  place.Write("a.dat", "first");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  ASSERT_EQ(place.Run({"profile", "remove", "box"}).Status, 0);
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Win32", "--path", "target", "--default"}).Status,
      0);
  EXPECT_EQ(TRecordPlace::Actions(place.Do("deploy")), "a.dat same unchanged;");
  EXPECT_EQ(place.RecordNow()["files"].size(), 1U);
  EXPECT_EQ(place.RecordNow()["runs"].size(), 0U);
}

TEST(Record, TellsWhoChangedWhat) {
  const TRecordPlace place(DeployedEntry("same") + DeployedEntry("here") + DeployedEntry("there") +
                           DeployedEntry("both") + DeployedEntry("gone") + DeployedEntry("new") +
                           DeployedEntry("old"));
  for (const char* name : {"same", "here", "there", "both", "gone"})
    place.Write(name, std::string("content of ") + name);
  place.Write("target/demo/old", "somebody's");
  ASSERT_EQ(place.Do("deploy", {"--skip-missing"}).Status, 0);
  place.Write("new", "n");
  place.Write("old", "ours");
  place.Write("here", "changed!");
  place.Write("both", "changed!");
  place.ChangeThere("there");
  place.ChangeThere("both");
  fs::remove(place.Path("target/demo/gone"));
  const TRun status = place.Do("status");
  ASSERT_EQ(status.Status, 0) << status.Errors;
  std::string states;
  const TJson document = status.Json();
  for (const auto& row : document["rows"]) {
    if (row["checked"] == true)
      states += row["localName"].get<std::string>() + " " + row["state"].get<std::string>() + " " +
                row["decidedBy"].get<std::string>() + ";";
  }
  EXPECT_EQ(states, "same same time;here changed time;there changed-there hash;both conflict hash;"
                    "gone gone-there time;new new time;old unrecorded time;");
  EXPECT_EQ(document["lastRun"]["copied"], 5);
  const TRun deploy = place.Do("deploy");
  EXPECT_EQ(deploy.Status, 8) << deploy.Errors;
  EXPECT_EQ(TRecordPlace::Actions(deploy),
            "same same unchanged;here changed copied;there changed-there refused;"
            "both conflict refused;gone gone-there copied;new new copied;old unrecorded copied;");
  EXPECT_EQ(deploy.Json()["refused"], 2);
  EXPECT_NE(deploy.Json()["files"][2]["reason"], "");
  EXPECT_EQ(place.Read("target/demo/there"), "################");
  // By force alone they stay, too.
  EXPECT_EQ(place.Do("deploy", {"--force"}).Status, 8);
  EXPECT_EQ(place.Do("deploy", {"--overwrite-changed"}).Status, 0);
  EXPECT_EQ(place.Read("target/demo/there"), "content of there");
  EXPECT_EQ(place.Read("target/demo/both"), "changed!");
}

TEST(Record, LetsLeftOversBeRemoved) {
  const TRecordPlace place(DeployedEntry("a") + DeployedEntry("b") + DeployedEntry("c"));
  for (const char* name : {"a", "b", "c"})
    place.Write(name, std::string("content of ") + name);
  ASSERT_EQ(place.Do("deploy").Status, 0);
  place.SetEntries(DeployedEntry("a"));
  place.ChangeThere("c");
  const TJson status = place.Do("status").Json();
  ASSERT_EQ(status["leftOvers"].size(), 2U);
  EXPECT_EQ(status["leftOvers"][0]["localName"], "b");
  EXPECT_EQ(status["leftOvers"][0]["state"], "left-over");
  EXPECT_EQ(status["leftOvers"][1]["state"], "left-over-changed");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  EXPECT_TRUE(fs::exists(place.Path("target/demo/b")));
  const TRun prune = place.Do("deploy", {"--prune"});
  EXPECT_EQ(prune.Status, 8) << prune.Errors;
  EXPECT_EQ(prune.Json()["removed"], 1);
  EXPECT_FALSE(fs::exists(place.Path("target/demo/b")));
  EXPECT_TRUE(fs::exists(place.Path("target/demo/c")));
  EXPECT_FALSE(place.RecordNow()["files"].contains("demo/b"));
  // Files of another configuration are none.
  EXPECT_EQ(place.Run({"status", "demo.vproj", "-p", "Win32", "-c", "Release", "--json"})
                .Json()["leftOvers"]
                .size(),
            0U);
}

TEST(Record, ThatIsHostileLeadsNowhere) {
  const TRecordPlace place(DeployedEntry("a"));
  place.Write("a", "a");
  place.Write("victim", "precious");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  const std::string record = place.Read(Record);
  for (const std::string& text :
       {std::string("{"), Replaced(record, "demo/a", "../victim"),
        Replaced(record, "demo/a", "demo/../../victim"), Replaced(record, "\"0644\"", "\"9\"")}) {
    place.Write(Record, text);
    const TRun run = place.Do("deploy", {"--prune"});
    EXPECT_EQ(run.Status, 0) << run.Errors;
    EXPECT_NE(run.Errors.find("the record on the target is damaged"), std::string::npos)
        << run.Errors;
    EXPECT_EQ(place.Read("victim"), "precious");
    EXPECT_EQ(place.Read("target/.deployment-manager/demo/record.damaged"), text);
    EXPECT_EQ(place.RecordNow()["files"].size(), 1U);
  }
  place.Write(Record, R"({"format":2})");
  EXPECT_EQ(place.Do("deploy").Status, 8);
  EXPECT_EQ(place.Read(Record), R"({"format":2})");
}

TEST(Record, LinksLeadNowhere) {
  const TRecordPlace place(DeployedEntry("a"));
  place.Write("a", "a");
  fs::create_directories(place.Path("outside/demo"));
  fs::create_directories(place.Path("target"));
  fs::create_directory_symlink(place.Path("outside"), place.Path("target/.deployment-manager"));
  const TRun run = place.Do("deploy");
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(run.Errors.find("cannot remember"), std::string::npos) << run.Errors;
  EXPECT_TRUE(fs::is_empty(place.Path("outside/demo")));
}

TEST(Record, LetsOneDeployAtATime) {
  const TRecordPlace place(DeployedEntry("a"));
  place.Write("a", "a");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  place.Write("a", "another");
  place.Write(Lock,
              R"({"by":"eva","machine":"bench","process":4711,"since":"2026-11-22T00:00:00Z"})");
  const TRun refused = place.Do("deploy");
  EXPECT_EQ(refused.Status, 1);
  EXPECT_NE(refused.Errors.find("eva on bench (process 4711), since 2026-11-22T00:00:00Z"),
            std::string::npos)
      << refused.Errors;
  EXPECT_EQ(place.Read("target/demo/a"), "a");
  EXPECT_EQ(place.Do("deploy", {"--break-lock"}).Status, 0);
  EXPECT_EQ(place.Read("target/demo/a"), "another");
  EXPECT_FALSE(fs::exists(place.Path(Lock)));
  // One whose holder never said its name was given up when it was made.
  place.Write("a", "second");
  place.Write(Lock, "");
  EXPECT_EQ(place.Do("deploy").Status, 1);
  fs::last_write_time(place.Path(Lock), fs::file_time_type::clock::now() - std::chrono::seconds(6));
  EXPECT_EQ(place.Do("deploy").Status, 0);
  // One that nobody refreshes is stale.
  place.Write("a", "third");
  place.Write(Lock, "{}");
  fs::last_write_time(place.Path(Lock),
                      fs::file_time_type::clock::now() - std::chrono::seconds(61));
  EXPECT_EQ(place.Do("deploy").Status, 0);
  EXPECT_EQ(place.Read("target/demo/a"), "third");
}

TEST(Record, IsAnsweredByVerify) {
  const TRecordPlace place(DeployedEntry("a") +
                           DeployedEntry("kept", "<Overwrite>false</Overwrite>"));
  place.Write("a", "content");
  place.Write("kept", "content");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  EXPECT_EQ(place.Do("verify").Status, 0);
  place.Write("target/demo/kept", "edited there");
  EXPECT_EQ(place.Do("verify").Status, 0);
  // Content alone, with size and time as before.
  const auto time = fs::last_write_time(place.Path("target/demo/a"));
  place.Write("target/demo/a", "c0ntent");
  fs::last_write_time(place.Path("target/demo/a"), time);
  const TRun verify = place.Do("verify");
  EXPECT_EQ(verify.Status, 8);
  ASSERT_EQ(verify.Json()["rows"].size(), 1U);
  EXPECT_EQ(verify.Json()["rows"][0]["state"], "changed-there");
  EXPECT_EQ(verify.Json()["rows"][0]["remoteFile"], place.Path("target/demo/a").string());
}

TEST(Deploy, BringsTheRightsOfAFileInLine) {
  const TRecordPlace place(DeployedEntry("a"));
  place.Write("a", "content");
  ::chmod(place.Path("a").c_str(), 0644);
  ASSERT_EQ(place.Do("deploy").Status, 0);
  ::chmod(place.Path("a").c_str(), 0755);
  EXPECT_EQ(TRecordPlace::Actions(place.Do("deploy", {"--dry-run"})), "a same mode;");
  EXPECT_EQ(place.Do("verify").Status, 8);
  EXPECT_EQ(TRecordPlace::Actions(place.Do("deploy")), "a same mode;");
  struct stat status = {};
  ASSERT_EQ(::stat(place.Path("target/demo/a").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0755U);
  EXPECT_EQ(TRecordPlace::Actions(place.Do("deploy")), "a same unchanged;");
  EXPECT_EQ(place.Do("verify").Status, 0);
}

TEST(Deploy, DoesWhatIsOwedUntilItSucceeds) {
  const TRecordPlace place(DeployedEntry("a", "<RemoteCommand>test -e go &amp;&amp; touch done"
                                              "</RemoteCommand>"));
  place.Write("a", "content");
  const TTexts allowed{"--allow-commands"};
  EXPECT_EQ(place.Do("deploy", allowed).Status, 1);
  EXPECT_EQ(place.Read("target/demo/a"), "content");
  const TJson owed = place.Do("status").Json()["owed"];
  ASSERT_EQ(owed.size(), 1U);
  EXPECT_EQ(owed[0]["remoteFile"], "demo/a");
  EXPECT_EQ(owed[0]["command"], "test -e go && touch done");
  const TJson planned = place.Do("deploy", {"--dry-run"}).Json()["commands"];
  ASSERT_EQ(planned.size(), 1U);
  EXPECT_EQ(planned[0]["command"], "test -e go && touch done");
  EXPECT_EQ(place.Do("deploy", allowed).Status, 1);
  EXPECT_EQ(place.Do("deploy", {"--check"}).Status, 7);
  place.Write("target/demo/go", "");
  EXPECT_EQ(place.Do("deploy", allowed).Status, 0);
  EXPECT_TRUE(fs::exists(place.Path("target/demo/done")));
  EXPECT_EQ(place.Do("status").Json()["owed"].size(), 0U);
  fs::remove(place.Path("target/demo/done"));
  EXPECT_EQ(place.Do("deploy", allowed).Status, 0);
  EXPECT_FALSE(fs::exists(place.Path("target/demo/done")));
}

TEST(Deploy, DoesWhatIsOwedAfterAnInterrupt) {
  const TRecordPlace place(
      DeployedEntry("a", "<RemoteCommand>touch began; test -e go || sleep 60; touch done"
                         "</RemoteCommand>"));
  place.Write("a", "content");
  TStart start = place.Start(
      {"deploy", "demo.vproj", "-p", "Win32", "-c", "Debug", "--json", "--allow-commands"});
  start.Meanwhile = [&place](pid_t process) {
    while (!fs::exists(place.Path("target/demo/began")) && ::kill(process, 0) == 0)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    ::kill(process, SIGINT);
  };
  const TRun interrupted = integration::RunProgram(start);
  EXPECT_EQ(interrupted.Status, 130) << interrupted.Errors;
  EXPECT_FALSE(fs::exists(place.Path("target/demo/done")));
  EXPECT_EQ(place.Do("status").Json()["owed"].size(), 1U);
  place.Write("target/demo/go", "");
  EXPECT_EQ(place.Do("deploy", {"--allow-commands"}).Status, 0);
  EXPECT_TRUE(fs::exists(place.Path("target/demo/done")));
}

TEST(Deploy, ChecksWithoutChangingAnything) {
  const TRecordPlace place(DeployedEntry("a"));
  place.Write("a", "content");
  EXPECT_EQ(place.Do("deploy", {"--check"}).Status, 7);
  EXPECT_TRUE(fs::is_empty(place.Path("target")));
  ASSERT_EQ(place.Do("deploy").Status, 0);
  EXPECT_EQ(place.Do("deploy", {"--check"}).Status, 0);
  place.ChangeThere("a");
  EXPECT_EQ(place.Do("deploy", {"--check"}).Status, 8);
}

TEST(Record, IsKeptThroughSshAlike) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a") + RemoteEntry("b", "<RemoteCommand>test -e go</RemoteCommand>"));
  place.Server().Introduce();
  place.Write("a", "content");
  place.Write("b", "content");
  EXPECT_EQ(place.Deploy({"--allow-commands"}).Status, 1);
  EXPECT_EQ(place.Status().Json()["owed"].size(), 1U);
  EXPECT_EQ(place.Status().Json()["lastRun"]["result"], "partly");
  place.Write("target/demo/go", "");
  EXPECT_EQ(place.Deploy({"--allow-commands"}).Status, 0);
  EXPECT_EQ(place.Deploy({"--allow-commands", "--json"}).Json()["unchanged"], 2);
  place.Write("target/demo/a", "changed there");
  const TRun refused = place.Deploy({"--allow-commands", "--json"});
  EXPECT_EQ(refused.Status, 8);
  EXPECT_EQ(refused.Json()["files"][0]["state"], "changed-there");
  EXPECT_EQ(place.Run({"verify", "demo.vproj"}).Status, 8);
  EXPECT_EQ(place.Deploy({"--allow-commands", "--overwrite-changed"}).Status, 0);
  EXPECT_EQ(place.Run({"verify", "demo.vproj"}).Status, 0);
  EXPECT_EQ(place.TargetFiles(), (TTexts{"demo/a", "demo/b", "demo/go"}));
}

} // namespace
} // namespace integration
