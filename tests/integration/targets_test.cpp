// One command for several targets.
#include "tests/integration/record_place.h"

#include <algorithm>
#include <csignal>
#include <thread>

namespace integration {
namespace {

using TJson = nlohmann::ordered_json;

// A project whose files go to the directories "a", "b" and "c" through profiles of these names; no
// profile is assigned to it.
class TTargetsPlace : public TWorkplace {
public:
  explicit TTargetsPlace(const std::string& record = {}) {
    Write("demo.vproj",
          ProjectWith(ListOf("<DeployClass Name=\"File\"/>"
                             "<DeployFile LocalName=\"demo.exe\" "
                             "Configuration=\"Debug\" Class=\"ProjectOutput\">"
                             "<Platform Name=\"Win32\"><Enabled>false</Enabled>"
                             "</Platform></DeployFile>" +
                             RecordEntry("one.dat", record) + RecordEntry("two.dat"))));
    Write("one.dat", "1");
    Write("two.dat", "2");
    for (const std::string name : {"a", "b", "c"})
      Add(name);
  }
  void Add(const std::string& name) const {
    EXPECT_EQ(Run({"profile", "add", name, "-p", "Win32", "--path", name}).Status, 0);
  }
  TRun Do(const std::string& command, std::vector<std::string> options) const {
    options.insert(options.begin(), {command, "demo.vproj", "-p", "Win32"});
    return Run(options);
  }
  /// "PROFILE EXIT;" of each target.
  static std::string Exits(const TRun& run) {
    std::string text;
    const TJson document = run.Document();
    EXPECT_EQ(document["schema"], 1);
    EXPECT_TRUE(document["warnings"].is_array());
    for (const TJson& target : document["targets"])
      text += target["profile"].get<std::string>() + " " +
              std::to_string(target["exit"].get<int>()) + ";";
    return text;
  }
};

TEST(Targets, AreDeployedToInTheOrderGivenAndTheProjectStaysAsItIs) {
  const TTargetsPlace place;
  const std::string before = place.Read("demo.vproj");
  const TRun run = place.Do("deploy", {"--to-profile", "c,a", "--to-profile", "c", "--json"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(place.Exits(run), "c 0;a 0;");
  const TJson document = run.Document()["targets"][0]["document"];
  EXPECT_EQ(document["schema"], 1);
  EXPECT_EQ(document["copied"], 2);
  EXPECT_EQ(document["files"][0]["remoteFile"], place.Path("c/demo/one.dat").string());
  EXPECT_EQ(place.Read("a/demo/two.dat"), "2");
  EXPECT_FALSE(std::filesystem::exists(place.Path("b/demo")));
  EXPECT_EQ(place.Read("demo.vproj"), before);
  EXPECT_EQ(place.Exits(place.Do("deploy", {"--to-profile", "b", "--json"})), "b 0;");
}

TEST(Targets, OfAGroupStandWhereItIsNamed) {
  const TTargetsPlace place;
  ASSERT_EQ(place.Run({"profile", "group", "add", "hall", "b", "a"}).Status, 0);
  EXPECT_EQ(place.Exits(place.Do("deploy", {"--group", "hall", "--to-profile", "c", "--json"})),
            "b 0;a 0;c 0;");
  EXPECT_EQ(place.Exits(place.Do("verify", {"--to-profile", "c", "--group", "hall", "--json"})),
            "c 0;b 0;a 0;");
}

TEST(Targets, ThatCannotBeLetNothingBegin) {
  const TTargetsPlace place;
  ASSERT_EQ(place.Run({"profile", "add", "mac", "-p", "OSX32", "--path", "m"}).Status, 0);
  ASSERT_EQ(place.Run({"profile", "add", "again", "-p", "Win32", "--path", "./x/../a/"}).Status, 0);
  ASSERT_EQ(place.Run({"profile", "group", "add", "mixed", "a", "mac"}).Status, 0);
  const auto error = [&](const std::vector<std::string>& options) {
    for (const std::string command : {"status", "verify", "plan", "undo", "history", "deploy"}) {
      std::vector<std::string> all = options;
      all.emplace_back("--json");
      const TRun run = place.Do(command, all);
      EXPECT_EQ(run.Status, 2) << command << run.Errors;
      EXPECT_EQ(run.Json()["error"]["code"], 2) << command;
    }
    EXPECT_FALSE(std::filesystem::exists(place.Path("a/demo")));
    return place.Do("deploy", options).Errors;
  };
  EXPECT_EQ(error({"--to-profile", "a,other"}), "deploymgr: there is no profile \"other\"; known "
                                                "are: a, b, c, mac, again\n");
  EXPECT_EQ(error({"--group", "yard"}),
            "deploymgr: there is no group \"yard\"; known are: mixed\n");
  EXPECT_NE(error({"--group", "mixed"}).find("is one of the platform \"OSX32\", not of \"Win32\""),
            std::string::npos);
  EXPECT_NE(error({"--to-profile", "a,again"}).find("lead to the same place"), std::string::npos);
  EXPECT_EQ(error({"--to-profile", "a,,b"}),
            "deploymgr: --to-profile \"a,,b\" has an empty name\n");
  EXPECT_EQ(error({"--to-profile", ""}), "deploymgr: --to-profile \"\" has an empty name\n");
  for (const std::string hosts : {"0", "65", "-1", "x", ""})
    EXPECT_EQ(place.Do("deploy", {"--to-profile", "a", "--hosts", hosts}).Status, 2) << hosts;
}

TEST(Targets, GoOnWhenOneIsDown) {
  const TTargetsPlace place;
  std::filesystem::remove(place.Path("b"));
  const TRun run = place.Do("deploy", {"--to-profile", "a,b,c", "--json"});
  EXPECT_EQ(run.Status, 5);
  EXPECT_EQ(place.Exits(run), "a 0;b 5;c 0;");
  EXPECT_EQ(run.Document()["targets"][1]["document"]["error"]["code"], 5);
  EXPECT_EQ(run.Document()["targets"][1]["document"]["schema"], 1);
  const TRun text = place.Do("deploy", {"--to-profile", "a,b,c", "--hosts", "1"});
  EXPECT_EQ(text.Output, "a  0 copied, 2 unchanged (0 B)\n"
                         "c  0 copied, 2 unchanged (0 B)\n"
                         "target  exit  result\n"
                         "a       0     0 copied, 2 unchanged (0 B)\n"
                         "b       5     " +
                             place.Path("b").string() +
                             " cannot be reached: No such file or directory\n"
                             "c       0     0 copied, 2 unchanged (0 B)\n");
  EXPECT_TRUE(text.Errors.starts_with("deploymgr: b: ")) << text.Errors;
}

TEST(Targets, AreEachRefusedWhatOthersChangedThere) {
  const TTargetsPlace place;
  ASSERT_EQ(place.Do("deploy", {"--to-profile", "a,b"}).Status, 0);
  place.Write("b/demo/one.dat", "changed there");
  place.Write("two.dat", "new here");
  const TRun run = place.Do("deploy", {"--to-profile", "b,a", "--json"});
  EXPECT_EQ(run.Status, 8);
  EXPECT_EQ(place.Exits(run), "b 8;a 0;");
  EXPECT_EQ(place.Read("b/demo/two.dat"), "new here");
  EXPECT_EQ(place.Read("b/demo/one.dat"), "changed there");
  EXPECT_EQ(place.Exits(place.Do("deploy", {"--to-profile", "a,b,c", "--check", "--json"})),
            "a 0;b 8;c 7;");
}

TEST(Targets, RunLocalCommandsOnceAndTheOthersOnEachOfThem) {
  const TTargetsPlace place("<LocalCommand>echo x &gt;&gt; here</LocalCommand>"
                            "<RemoteCommand>echo x &gt;&gt; there</RemoteCommand>");
  const TRun refused = place.Do("deploy", {"--to-profile", "a,b,c", "--json"});
  EXPECT_EQ(refused.Status, 6);
  EXPECT_EQ(place.Exits(refused), "a 6;b 6;c 6;");
  EXPECT_FALSE(std::filesystem::exists(place.Path("a/demo")));
  const TRun run = place.Do("deploy", {"--to-profile", "a,b,c", "--allow-commands"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(place.Read("here"), "x\n");
  for (const std::string name : {"a", "b", "c"})
    EXPECT_EQ(place.Read(name + "/demo/there"), "x\n");
}

TEST(Targets, FailTogetherWhereALocalCommandFails) {
  const TTargetsPlace place("<LocalCommand>echo x &gt;&gt; here; exit 3</LocalCommand>");
  const TRun run = place.Do("deploy", {"--to-profile", "a,b", "--allow-commands", "--json"});
  EXPECT_EQ(place.Exits(run), "a 1;b 1;");
  EXPECT_EQ(place.Read("here"), "x\n");
  const TJson document = run.Document();
  for (const TJson& target : document["targets"]) {
    EXPECT_EQ(target["document"]["failed"], 1);
    EXPECT_EQ(target["document"]["copied"], 1);
  }
}

TEST(Targets, AskForConsentOnceAndRememberItForEach) {
  const TTargetsPlace place("<RemoteCommand>touch ran</RemoteCommand>");
  std::size_t questions = 0;
  const std::vector<std::string> deploy{"deploy", "demo.vproj",   "-p",
                                        "Win32",  "--to-profile", "a,b"};
  const auto answer = [&](const TQuestion&) {
    ++questions;
    return std::string("y");
  };
  const TRun run = place.RunAtTerminal(deploy, answer);
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(questions, 1U);
  place.Write("one.dat", "later");
  EXPECT_EQ(place.Run(deploy).Status, 0);
  EXPECT_EQ(place.Do("deploy", {"--to-profile", "a,c"}).Status, 6);
  EXPECT_EQ(place.Read("a/demo/one.dat"), "later");
}

TEST(Targets, ThatAnInterruptLeavesOutAreListedWithIt) {
  const TTargetsPlace place("<LocalCommand>touch begun; while :; do sleep 0.05; done"
                            "</LocalCommand>");
  TStart start = place.Start({"deploy", "demo.vproj", "-p", "Win32", "--to-profile", "a,b,c",
                              "--hosts", "1", "--allow-commands", "--json"});
  start.Meanwhile = [&](pid_t process) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!std::filesystem::exists(place.Path("begun")) && std::chrono::steady_clock::now() < end)
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    ::kill(process, SIGINT);
  };
  const TRun run = RunProgram(std::move(start));
  EXPECT_EQ(run.Status, 130) << run.Errors;
  EXPECT_EQ(place.Exits(run), "a 130;b 130;c 130;");
  const TJson document = run.Document();
  EXPECT_TRUE(document["targets"][0]["document"].contains("files"));
  EXPECT_EQ(document["targets"][2]["document"]["error"]["code"], 130);
  EXPECT_EQ(document["targets"][2]["document"]["error"]["message"],
            "the run was interrupted before this target was begun");
  EXPECT_FALSE(std::filesystem::exists(place.Path("b/demo")));
  EXPECT_FALSE(std::filesystem::exists(place.Path("a/.deployment-manager/demo/lock")));
}

TEST(Targets, AreComparedInATableOfFilesAndTargets) {
  const TTargetsPlace place;
  ASSERT_EQ(place.Do("deploy", {"--to-profile", "a,b"}).Status, 0);
  place.Write("b/demo/one.dat", "changed there");
  std::filesystem::remove(place.Path("c"));
  const TRun run = place.Do("status", {"--to-profile", "a,b,c"});
  EXPECT_EQ(run.Status, 5);
  EXPECT_TRUE(run.Output.starts_with("file      a     b              c\n"
                                     "demo.exe  -     -              ?\n"
                                     "one.dat   same  changed-there  ?\n"
                                     "two.dat   same  same           ?\n"
                                     "a: 2 same; last deployed by "))
      << run.Output;
  EXPECT_NE(run.Output.find("\nb: 1 same, 1 changed-there; last "), std::string::npos);
  EXPECT_NE(run.Output.find("\nc: "), std::string::npos);
  const TRun differences = place.Do("status", {"--to-profile", "a,b,c", "--differences"});
  EXPECT_TRUE(differences.Output.starts_with("file     a     b              c\n"
                                             "one.dat  same  changed-there  ?\n"
                                             "a: "))
      << differences.Output;
  const TRun whole = place.Do("status", {"--to-profile", "a,b", "--differences", "--json"});
  EXPECT_EQ(place.Exits(whole), "a 0;b 0;");
  EXPECT_EQ(whole.Document()["targets"][0]["document"]["rows"].size(), 3U);
}

TEST(Targets, SayOfEachWhatAStatusOfItAloneSays) {
  const TTargetsPlace place;
  ASSERT_EQ(place.Do("deploy", {"--to-profile", "a,b"}).Status, 0);
  place.Write("b/demo/one.dat", "changed there");
  std::filesystem::remove(place.Path("b/demo/two.dat"));
  const TRun all = place.Do("status", {"--to-profile", "a,b", "--json"});
  const TRun offline = place.Do("status", {"--to-profile", "a,b,c", "--offline", "--json"});
  EXPECT_EQ(place.Exits(offline), "a 0;b 0;c 0;");
  EXPECT_TRUE(offline.Document()["targets"][2]["document"]["asOf"].is_null());
  for (std::size_t i = 0; i < 2; ++i) {
    const std::string name = i == 0 ? "a" : "b";
    ASSERT_EQ(place.Run({"profile", "assign", name, "demo.vproj", "-p", "Win32"}).Status, 0);
    EXPECT_EQ(all.Document()["targets"][i]["document"], place.Do("status", {"--json"}).Document());
    const TJson alone = place.Do("status", {"--offline", "--json"}).Document();
    const TJson seen = offline.Document()["targets"][i]["document"];
    for (std::size_t row = 0; row < 3; ++row)
      EXPECT_EQ(seen["rows"][row]["state"], alone["rows"][row]["state"]);
    EXPECT_TRUE(seen["rows"][1]["asOf"].is_string());
    EXPECT_EQ(seen["lastRun"], alone["lastRun"]);
  }
}

TEST(Targets, AreVerifiedRememberedAndTakenBack) {
  const TTargetsPlace place;
  ASSERT_EQ(place.Do("deploy", {"--to-profile", "a,b"}).Status, 0);
  place.Write("b/demo/one.dat", "changed there");
  const TRun verified = place.Do("verify", {"--to-profile", "a,b", "--json"});
  EXPECT_EQ(verified.Status, 8);
  EXPECT_EQ(place.Exits(verified), "a 0;b 8;");
  EXPECT_EQ(verified.Document()["targets"][1]["document"]["rows"][0]["state"], "changed-there");
  const TRun history = place.Do("history", {"--to-profile", "a,c", "--json"});
  EXPECT_EQ(history.Document()["targets"][0]["document"]["runs"].size(), 1U);
  EXPECT_EQ(history.Document()["targets"][1]["document"]["runs"].size(), 0U);
  EXPECT_EQ(place.Exits(place.Do("undo", {"--to-profile", "a,b,c", "--json"})), "a 1;b 1;c 1;");
  EXPECT_EQ(place.Exits(place.Do("undo", {"--to-profile", "a,b", "--dry-run", "--json"})),
            "a 0;b 8;");
  EXPECT_TRUE(std::filesystem::exists(place.Path("a/demo/one.dat")));
  const TRun undone = place.Do("undo", {"--to-profile", "a,b,c", "--yes", "--json"});
  EXPECT_EQ(place.Exits(undone), "a 0;b 8;c 1;");
  EXPECT_FALSE(std::filesystem::exists(place.Path("a/demo")));
  EXPECT_EQ(place.Read("b/demo/one.dat"), "changed there");
  EXPECT_FALSE(std::filesystem::exists(place.Path("b/demo/two.dat")));
}

TEST(Targets, AreTakenBackAfterOneQuestion) {
  const TTargetsPlace place;
  ASSERT_EQ(place.Do("deploy", {"--to-profile", "a,b"}).Status, 0);
  std::size_t questions = 0;
  const TRun run = place.RunAtTerminal(
      {"undo", "demo.vproj", "-p", "Win32", "--to-profile", "a,b"}, [&](const TQuestion& question) {
        ++questions;
        EXPECT_NE(question.Text.find("Take back the last deploy on a, b?"), std::string::npos);
        return std::string("y");
      });
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(questions, 1U);
  EXPECT_FALSE(std::filesystem::exists(place.Path("b/demo")));
}

TEST(Targets, HaveAPlanEachThatIsAppliedWithTheOthers) {
  const TTargetsPlace place;
  std::filesystem::remove(place.Path("b"));
  const TRun planned = place.Do("plan", {"--to-profile", "a,b,c", "--out", "plans", "--json"});
  EXPECT_EQ(planned.Status, 5);
  EXPECT_EQ(place.Exits(planned), "a 0;b 5;c 0;");
  EXPECT_FALSE(std::filesystem::exists(place.Path("plans/b.plan")));
  EXPECT_EQ(TJson::parse(place.Read("plans/a.plan")), planned.Document()["targets"][0]["document"]);
  const TRun twice = place.Run({"apply", "plans/a.plan", "plans/a.plan"});
  EXPECT_EQ(twice.Status, 2);
  EXPECT_FALSE(std::filesystem::exists(place.Path("a/demo")));
  place.Write("plans/bad.plan", "{");
  const TRun applied =
      place.Run({"apply", "plans/c.plan", "plans/bad.plan", "plans/a.plan", "--json"});
  EXPECT_EQ(applied.Status, 3);
  EXPECT_EQ(place.Exits(applied), "c 0;bad 3;a 0;");
  EXPECT_EQ(place.Read("a/demo/one.dat"), "1");
  EXPECT_EQ(place.Exits(place.Run({"apply", "plans/c.plan", "plans/a.plan", "--json"})),
            "c 8;a 8;");
}

TEST(Targets, HavePlansInAFileWhereOneIsNamedAlone) {
  const TTargetsPlace place;
  ASSERT_EQ(place.Run({"profile", "group", "add", "desk", "b"}).Status, 0);
  ASSERT_EQ(place.Do("plan", {"--to-profile", "a", "--out", "one.plan"}).Status, 0);
  EXPECT_EQ(place.Run({"apply", "one.plan"}).Status, 0);
  ASSERT_EQ(place.Do("plan", {"--group", "desk", "--out", "desk"}).Status, 0);
  EXPECT_TRUE(std::filesystem::is_regular_file(place.Path("desk/b.plan")));
  EXPECT_EQ(place.Do("plan", {"--to-profile", "a,b", "--out", "one.plan"}).Status, 2);
  EXPECT_EQ(place.Do("plan", {"--to-profile", "a,b"}).Status, 2);
  place.Add("x/y");
  EXPECT_EQ(place.Do("plan", {"--to-profile", "a,x/y", "--out", "desk"}).Status, 2);
}

TEST(Targets, OfASolutionStandInTheDocumentOfEachProject) {
  const TTargetsPlace place;
  place.Write("all.sln", "\nMicrosoft Visual Studio Solution File, Format Version 12.00\n"
                         "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"p\", "
                         "\"demo.vproj\", \"{A}\"\nEndProject\n");
  const TRun run = place.Run({"deploy", "all.sln", "-p", "Win32", "--to-profile", "b,a", "--json"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  const TJson document = run.Document();
  ASSERT_EQ(document["projects"].size(), 1U);
  const TJson targets = document["projects"][0]["document"]["targets"];
  ASSERT_EQ(targets.size(), 2U);
  EXPECT_EQ(targets[0]["profile"], "b");
  EXPECT_EQ(targets[1]["document"]["copied"], 2);
  EXPECT_EQ(place.Run({"deploy", "all.sln", "-p", "Win32", "--to-profile", "a"}).Output,
            "demo.vproj  a  0 copied, 2 unchanged (0 B)\n"
            "demo.vproj  target  exit  result\n"
            "demo.vproj  a       0     0 copied, 2 unchanged (0 B)\n");
}

} // namespace
} // namespace integration
