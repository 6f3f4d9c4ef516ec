// Plans that are written down and carried out later.
#include "tests/integration/record_place.h"
#include "tests/integration/ssh_place.h"

#include <gtest/gtest.h>

#include <functional>
#include <sys/stat.h>

namespace integration {
namespace {

using TJson = nlohmann::ordered_json;
using TTexts = std::vector<std::string>;

constexpr const char* Plan = "p.plan";

/// Two files, one of which is deployed already and changed since.
class TPlanPlace : public TRecordPlace {
public:
  TPlanPlace() : TRecordPlace(RecordEntry("a") + RecordEntry("b")) {
    Write("a", "old");
    EXPECT_EQ(Do("deploy", {"--skip-missing"}).Status, 0);
    Write("a", "changed");
    Write("b", "new");
    const TRun run = Do("plan", {"--out", Plan});
    EXPECT_EQ(run.Status, 0) << run.Errors;
  }
  TRun Apply(TTexts options = {}) const {
    TTexts arguments{"apply", Plan, "--json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Run(arguments);
  }
  /// The message of an apply that must refuse and copy nothing.
  std::string Refusal() const {
    const TRun run = Apply();
    EXPECT_EQ(run.Status, 8) << run.Output << run.Errors;
    EXPECT_EQ(Read("target/demo/b"), "");
    return run.Json()["error"]["message"];
  }
};

TEST(Plan, SaysWhatADeployWouldDoAndChangesNothing) {
  const TPlanPlace place;
  const TJson plan = TJson::parse(place.Read(Plan));
  EXPECT_EQ(plan["schema"], 1);
  EXPECT_EQ(plan["profile"], "box");
  EXPECT_EQ(plan["place"], place.Path("target").string());
  EXPECT_EQ(plan["hostKey"], "");
  ASSERT_EQ(plan["files"].size(), 2U);
  const TJson& file = plan["files"][0];
  EXPECT_EQ(file["localName"], "a");
  EXPECT_EQ(file["localFile"], place.Path("a").string());
  EXPECT_EQ(file["localHash"], "d67e2e944994496c8d8ec76eed0cf9f09679448d584b532bebf941852a37f5ed");
  EXPECT_EQ(file["remoteFile"], place.Path("target/demo/a").string());
  EXPECT_EQ(file["state"], "changed");
  EXPECT_EQ(file["action"], "copied");
  EXPECT_EQ(file["mode"], "0644");
  EXPECT_EQ(plan["files"][1]["state"], "new");
  EXPECT_EQ(place.Read("target/demo/a"), "old");
  EXPECT_EQ(place.Read("target/demo/b"), "");
}

TEST(Plan, IsCarriedOutAsItStands) {
  const TPlanPlace place;
  // The list does not count any more.
  place.SetEntries(RecordEntry("c"));
  const TRun run = place.Apply();
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(TRecordPlace::Actions(run), "a changed copied;b new copied;");
  EXPECT_EQ(place.Read("target/demo/a"), "changed");
  EXPECT_EQ(place.Read("target/demo/b"), "new");
  EXPECT_EQ(place.RecordNow()["files"].size(), 2U);
  EXPECT_EQ(place.RecordNow()["runs"].size(), 2U);
  // A second time nothing is as it was.
  const TRun again = place.Apply();
  EXPECT_EQ(again.Status, 8);
  const std::string message = again.Json()["error"]["message"];
  EXPECT_NE(message.find("target/demo/a has another content on the target now"), std::string::npos)
      << message;
  EXPECT_NE(message.find("target/demo/b was not on the target and is there now"), std::string::npos)
      << message;
}

TEST(Plan, IsRefusedWhenAnythingIsNotWhatItWas) {
  const TPlanPlace place;
  const auto expect = [&](const char* part, const std::function<void()>& change,
                          const std::function<void()>& back) {
    change();
    const std::string message = place.Refusal();
    EXPECT_NE(message.find(part), std::string::npos) << message;
    back();
  };
  expect(
      "a has another content", [&] { place.Write("a", "CHANGED"); },
      [&] { place.Write("a", "changed"); });
  expect(
      "has other rights", [&] { ::chmod(place.Path("a").c_str(), 0600); },
      [&] { ::chmod(place.Path("a").c_str(), 0644); });
  expect(
      "b is missing", [&] { std::filesystem::remove(place.Path("b")); },
      [&] { place.Write("b", "new"); });
  const std::string plan = place.Read(Plan);
  expect(
      "the plan is not what it was",
      [&] { place.Write(Plan, Replaced(plan, "\"action\": \"copied\"", "\"action\": \"kept\"")); },
      [&] { place.Write(Plan, plan); });
  expect(
      "the place of the profile",
      [&] {
        EXPECT_EQ(place.Run({"profile", "remove", "box"}).Status, 0);
        EXPECT_EQ(place.Run({"profile", "add", "box", "-p", "Win32", "--path", "other"}).Status, 0);
      },
      [&] {});
  expect(
      "there is no profile \"box\"",
      [&] {
        EXPECT_EQ(place.Run({"profile", "remove", "box"}).Status, 0);
      },
      [&] {
        EXPECT_EQ(place.Run({"profile", "add", "box", "-p", "Win32", "--path", "target"}).Status,
                  0);
      });
  EXPECT_EQ(place.Apply().Status, 0); // everything is as it was again
}

TEST(Plan, ThatIsNoneIsBadInput) {
  const TPlanPlace place;
  place.Write(Plan, "{}");
  EXPECT_EQ(place.Apply().Status, 3);
  place.Write(Plan, "no plan");
  EXPECT_EQ(place.Apply().Status, 3);
  EXPECT_EQ(place.Run({"apply", "missing.plan"}).Status, 3);
  EXPECT_EQ(place.Run({"plan", "demo.vproj"}).Status, 2);
}

TEST(Plan, KeepsRefusedRowsAndTheirExitStatus) {
  const TRecordPlace place(RecordEntry("a"));
  place.Write("a", "first");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  place.ChangeThere("a");
  EXPECT_EQ(place.Do("plan", {"--out", Plan}).Status, 8);
  const TRun run = place.Run({"apply", Plan, "--json"});
  EXPECT_EQ(run.Status, 8);
  EXPECT_EQ(run.Json()["refused"], 1);
  EXPECT_EQ(place.Do("plan", {"--out", Plan, "--overwrite-changed"}).Status, 0);
  EXPECT_EQ(place.Run({"apply", Plan}).Status, 0);
  EXPECT_EQ(place.Read("target/demo/a"), "first");
}

TEST(Plan, RunsCommandsWithConsentOnly) {
  const TRecordPlace place(RecordEntry("a", "<RemoteCommand>echo one >> ../log</RemoteCommand>"));
  place.Write("a", "first");
  ASSERT_EQ(place.Do("plan", {"--out", Plan}).Status, 0);
  EXPECT_EQ(place.Run({"apply", Plan}).Status, 6);
  EXPECT_EQ(place.Read("target/log"), "");
  EXPECT_EQ(place.Run({"apply", Plan, "--allow-commands"}).Status, 0);
  EXPECT_EQ(place.Read("target/log"), "one\n");
  EXPECT_EQ(place.Run({"apply", Plan, "--allow-commands"}).Status, 8);
  EXPECT_EQ(place.Read("target/log"), "one\n");
}

TEST(Plan, IsBoundToTheHostKey) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a"));
  place.Write("a", "first");
  place.Server().Introduce();
  TRun run = place.Run({"plan", "demo.vproj", "--out", Plan});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  const TJson plan = TJson::parse(place.Read(Plan));
  EXPECT_EQ(plan["hostKey"].get<std::string>().substr(0, 15), "ED25519 SHA256:");
  place.Server().ChangeHostKey();
  std::filesystem::remove(place.Server().KnownHosts());
  place.Server().Introduce();
  run = place.Run({"apply", Plan, "--json"});
  EXPECT_EQ(run.Status, 8) << run.Errors;
  EXPECT_NE(run.Json()["error"]["message"].get<std::string>().find("the host key of the target"),
            std::string::npos);
  EXPECT_EQ(place.TargetFiles(), TTexts{});
  ASSERT_EQ(place.Run({"plan", "demo.vproj", "--out", Plan}).Status, 0);
  run = place.Run({"apply", Plan, "--json"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(place.TargetFiles(), TTexts{"demo/a"});
}

TEST(AfterDeploy, RunsOnceWhenSomethingChangedAndIsOwedUntilItSucceeds) {
  const TRecordPlace place(RecordEntry("a"), {"--after-deploy", "sh after.sh"});
  place.Write("a", "first");
  EXPECT_EQ(place.Do("deploy").Status, 6);
  const TRun dry = place.Do("deploy", {"--dry-run"});
  EXPECT_EQ(dry.Json()["commands"],
            TJson::parse(R"([{"where":"target","command":"sh after.sh","file":""}])"));
  const TRun failed = place.Do("deploy", {"--allow-commands"});
  EXPECT_EQ(failed.Status, 1) << failed.Errors;
  EXPECT_NE(failed.Json()["afterDeploy"]["error"], "");
  EXPECT_EQ(place.Do("status").Json()["owed"][0]["command"], "sh after.sh");
  place.Write("target/after.sh", "echo run >> log");
  EXPECT_EQ(place.Do("deploy", {"--allow-commands"}).Status, 0);
  EXPECT_EQ(place.Read("target/log"), "run\n");
  EXPECT_EQ(place.Do("status").Json()["owed"].size(), 0U);
  EXPECT_EQ(place.Do("deploy", {"--allow-commands"}).Status, 0);
  EXPECT_EQ(place.Read("target/log"), "run\n");
}

} // namespace
} // namespace integration
