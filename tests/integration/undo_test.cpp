// Deploys that are taken back.
#include "tests/integration/record_place.h"
#include "tests/integration/ssh_place.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace integration {
namespace {

namespace fs = std::filesystem;
using TJson = nlohmann::ordered_json;
using TTexts = std::vector<std::string>;

constexpr const char* UndoDirectory = "target/.deployment-manager/demo/undo";

/// "result" of every run that the record has, newest first.
std::string Results(const TRecordPlace& place) {
  std::string text;
  const TJson record = place.RecordNow();
  for (const auto& run : record["runs"])
    text += run["result"].get<std::string>() + ";";
  return text;
}

/// Path and content of every file on the target but what deploys keep there.
std::string Contents(const TRecordPlace& place) {
  std::string text;
  for (const std::string& file : place.Files()) {
    if (file.starts_with("target/") && file.find(".deployment-manager") == std::string::npos)
      text += file.substr(7) + "=" + place.Read(file) + ";";
  }
  return text;
}

TEST(Undo, BringsBackWhatWasReplacedAndRemovedAndTakesWhatWasNew) {
  const TRecordPlace place(RecordEntry("kept") + RecordEntry("gone") + RecordEntry("other"));
  for (const char* name : {"kept", "gone", "other"})
    place.Write(name, std::string("first ") + name);
  ::chmod(place.Path("kept").c_str(), 0640);
  ASSERT_EQ(place.Do("deploy").Status, 0);
  const auto time = fs::last_write_time(place.Path("target/demo/kept"));
  const TJson before = place.RecordNow()["files"];
  place.SetEntries(RecordEntry("kept") + RecordEntry("other") +
                   RecordEntry("sub\\new", "<RemoteDir>sub\\deep\\</RemoteDir>"));
  place.Write("kept", "second");
  ::chmod(place.Path("kept").c_str(), 0755);
  ::chmod(place.Path("other").c_str(), 0600);
  place.Write("sub/new", "new");
  ASSERT_EQ(place.Do("deploy", {"--prune"}).Status, 0);
  EXPECT_FALSE(fs::exists(place.Path("target/demo/gone")));
  EXPECT_EQ(place.Read("target/demo/sub/deep/new"), "new");

  const TRun dry = place.Do("undo", {"--dry-run"});
  EXPECT_EQ(dry.Status, 0) << dry.Errors;
  EXPECT_EQ(dry.Json()["restored"], 3);
  EXPECT_EQ(dry.Json()["removed"], 1);
  EXPECT_EQ(place.Read("target/demo/kept"), "second");

  const TRun undo = place.Do("undo", {"--yes"});
  ASSERT_EQ(undo.Status, 0) << undo.Errors;
  EXPECT_EQ(undo.Json()["files"], dry.Json()["files"]);
  EXPECT_EQ(Contents(place), "demo/gone=first gone;demo/kept=first kept;demo/other=first other;");
  EXPECT_FALSE(fs::exists(place.Path("target/demo/sub")));
  EXPECT_EQ(fs::last_write_time(place.Path("target/demo/kept")), time);
  EXPECT_EQ(fs::status(place.Path("target/demo/kept")).permissions(), fs::perms(0640));
  EXPECT_EQ(fs::status(place.Path("target/demo/other")).permissions(), fs::perms(0644));
  EXPECT_EQ(place.RecordNow()["files"], before);
  EXPECT_EQ(Results(place), "undone;done;");
  // The next one takes back the run before it, and then there is none.
  EXPECT_EQ(place.Do("undo", {"--yes"}).Status, 0);
  EXPECT_EQ(Contents(place), "");
  EXPECT_EQ(Results(place), "undone;undone;");
  EXPECT_FALSE(fs::exists(place.Path("target/demo")));
  EXPECT_EQ(place.Do("undo", {"--yes"}).Status, 0);
  // And a deploy does it all again.
  EXPECT_EQ(place.Do("deploy").Status, 0);
  EXPECT_EQ(place.Run({"verify", "demo.vproj", "-p", "Win32", "-c", "Debug"}).Status, 0);
}

TEST(Undo, KeepsByHardLinkWithoutASecondCopy) {
  const TRecordPlace place(RecordEntry("a"));
  place.Write("a", "first");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  struct stat before = {};
  ASSERT_EQ(::stat(place.Path("target/demo/a").c_str(), &before), 0);
  place.Write("a", "second");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  ASSERT_EQ(place.Do("undo", {"--yes"}).Status, 0);
  struct stat after = {};
  ASSERT_EQ(::stat(place.Path("target/demo/a").c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(after.st_nlink, 1U);
}

TEST(Undo, LeavesAloneWhatOthersChangedSince) {
  const TRecordPlace place(RecordEntry("a") + RecordEntry("b") + RecordEntry("c"));
  for (const char* name : {"a", "b"})
    place.Write(name, "first");
  ASSERT_EQ(place.Do("deploy", {"--skip-missing"}).Status, 0);
  for (const char* name : {"a", "b", "c"})
    place.Write(name, "second");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  place.ChangeThere("a");
  place.ChangeThere("c");
  const TRun undo = place.Do("undo", {"--yes"});
  EXPECT_EQ(undo.Status, 8) << undo.Errors;
  EXPECT_EQ(undo.Json()["result"], "partly");
  EXPECT_EQ(undo.Json()["refused"], 2);
  EXPECT_EQ(undo.Json()["restored"], 1);
  EXPECT_EQ(Contents(place), "demo/a=######;demo/b=first;demo/c=######;");
  EXPECT_EQ(Results(place), "partly;done;");
  // When they have put it back, the rest is taken back, too.
  for (const char* name : {"a", "c"}) {
    place.Write(std::string("target/demo/") + name, "second");
    fs::last_write_time(place.Path(std::string("target/demo/") + name),
                        fs::last_write_time(place.Path(name)));
  }
  EXPECT_EQ(place.Do("undo", {"--yes"}).Status, 0);
  EXPECT_EQ(Contents(place), "demo/a=first;demo/b=first;");
  EXPECT_EQ(Results(place), "undone;done;");
}

TEST(Undo, GoesBackToARunAndKeepsThreeOfThem) {
  const TRecordPlace place(RecordEntry("a"));
  TTexts runs;
  for (const char* content : {"1", "22", "333", "4444", "55555"}) {
    place.Write("a", content);
    ASSERT_EQ(place.Do("deploy").Status, 0);
    runs.push_back(place.RecordNow()["runs"][0]["id"]);
  }
  EXPECT_EQ(place.Do("undo", {"--to", runs[0], "--yes"}).Status, 1); // kept are three
  EXPECT_EQ(place.Do("undo", {"--to", "nowhere", "--yes"}).Status, 1);
  EXPECT_EQ(place.Read("target/demo/a"), "55555");
  const TRun dry = place.Do("undo", {"--to", runs[1], "--dry-run"});
  EXPECT_EQ(dry.Status, 0);
  EXPECT_EQ(dry.Json()["restored"], 3);
  EXPECT_EQ(place.Do("undo", {"--to", runs[1], "--yes"}).Status, 0);
  EXPECT_EQ(place.Read("target/demo/a"), "22");
  EXPECT_EQ(Results(place), "undone;undone;undone;done;done;");
  std::size_t kept = 0;
  for (const auto& entry : fs::directory_iterator(place.Path(UndoDirectory)))
    kept += entry.is_directory() ? 1 : 0;
  EXPECT_EQ(kept, 0U);
}

TEST(Undo, IsKeptWithinItsBudget) {
  const TRecordPlace place(RecordEntry("a"));
  place.Write("a", std::string(1000, 'a'));
  ASSERT_EQ(place.Do("deploy").Status, 0);
  ASSERT_EQ(place.Run({"settings", "set", "undo-bytes", "999"}).Status, 0);
  place.Write("a", "second");
  const TRun run = place.Do("deploy");
  EXPECT_EQ(run.Status, 0);
  EXPECT_NE(run.Errors.find("this deploy cannot be taken back"), std::string::npos) << run.Errors;
  EXPECT_EQ(place.Do("undo", {"--yes"}).Status, 1);
  ASSERT_EQ(place.Run({"settings", "set", "undo-bytes", "1000"}).Status, 0);
  place.Write("a", "third!!");
  EXPECT_EQ(place.Do("deploy").Status, 0);
  EXPECT_EQ(place.Do("undo", {"--yes"}).Status, 0);
  EXPECT_EQ(place.Read("target/demo/a"), "second");
  place.Write("a", "4");
  EXPECT_EQ(place.Do("deploy", {"--no-undo"}).Status, 0);
  EXPECT_EQ(place.Do("undo", {"--yes"}).Status, 1);
  ASSERT_EQ(place.Run({"settings", "set", "undo-runs", "0"}).Status, 0);
  place.Write("a", "55");
  EXPECT_EQ(place.Do("deploy").Status, 0);
  EXPECT_EQ(place.Do("undo", {"--yes"}).Status, 1);
}

TEST(Undo, AsksFirst) {
  const TRecordPlace place(RecordEntry("a"));
  place.Write("a", "first");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  const TRun run = place.Do("undo");
  EXPECT_EQ(run.Status, 1);
  EXPECT_NE(run.Errors.find("--yes"), std::string::npos) << run.Errors;
  EXPECT_EQ(Contents(place), "demo/a=first;");
  const TTexts undo{"undo", "demo.vproj", "-p", "Win32", "-c", "Debug"};
  EXPECT_EQ(place.RunAtTerminal(undo, [](const TQuestion&) { return "n"; }).Status, 1);
  EXPECT_EQ(place.RunAtTerminal(undo, [](const TQuestion&) { return "y"; }).Status, 0);
  EXPECT_EQ(Contents(place), "");
}

TEST(Undo, TakesTheLock) {
  const TRecordPlace place(RecordEntry("a"));
  place.Write("a", "first");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  place.Write(LockFile, R"({"by":"eva","machine":"bench","process":1,"since":"now"})");
  const TRun run = place.Do("undo", {"--yes"});
  EXPECT_EQ(run.Status, 1);
  EXPECT_NE(run.Errors.find("eva on bench"), std::string::npos) << run.Errors;
  EXPECT_EQ(place.Do("undo", {"--yes", "--break-lock"}).Status, 0);
  EXPECT_EQ(Contents(place), "");
  EXPECT_FALSE(fs::exists(place.Path(LockFile)));
}

TEST(Undo, TrustsNothingThatItReads) {
  const TRecordPlace place(RecordEntry("a"));
  place.Write("victim", "precious");
  place.Write("a", "first");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  place.Write("a", "second");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  const std::string run = place.RecordNow()["runs"][0]["id"];
  const std::string manifest = std::string(UndoDirectory) + "/" + run + "/undo.json";
  const std::string text = place.Read(manifest);
  for (const std::string& hostile :
       {Replaced(text, "\"demo/a\"", "\"../victim\""), Replaced(text, "\"demo/a\"", "\"/victim\""),
        Replaced(text, "\"kept\": \"1\"", "\"kept\": \"../../../../../victim\""),
        Replaced(text, "\"format\": 1", "\"format\": 2"), text.substr(0, text.size() / 2)}) {
    EXPECT_NE(hostile, text);
    place.Write(manifest, hostile);
    const TRun undo = place.Do("undo", {"--yes"});
    EXPECT_EQ(undo.Status, 1) << hostile << undo.Errors;
    EXPECT_EQ(Contents(place), "demo/a=second;");
    EXPECT_EQ(place.Read("victim"), "precious");
  }
  place.Write(manifest, text);
  EXPECT_EQ(place.Do("undo", {"--yes"}).Status, 0);
  EXPECT_EQ(Contents(place), "demo/a=first;");
}

TEST(Undo, WorksOnAnotherMachine) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a") + RemoteEntry("sub\\b"));
  place.Server().Introduce();
  place.Write("a", "first");
  place.Write("sub/b", "b");
  ASSERT_EQ(place.Deploy({"--skip-missing"}).Status, 0);
  struct stat before = {};
  ASSERT_EQ(::stat(place.Path("target/demo/a").c_str(), &before), 0);
  place.Write("a", "second");
  ASSERT_EQ(place.Deploy().Status, 0);
  TRun run = place.Run({"undo", "demo.vproj", "--yes"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(place.Read("target/demo/a"), "first");
  struct stat after = {};
  ASSERT_EQ(::stat(place.Path("target/demo/a").c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
  run = place.Run({"undo", "demo.vproj", "--yes"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_FALSE(fs::exists(place.Path("target/demo")));
}

} // namespace
} // namespace integration
