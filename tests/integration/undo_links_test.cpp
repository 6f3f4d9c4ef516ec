// Deploys of links that are taken back.
#include "tests/integration/link_place.h"
#include "tests/integration/ssh_place.h"

namespace integration {
namespace {

namespace fs = std::filesystem;

// A library that was deployed with its links.
class TDeployedLibrary : public TWorkplace {
public:
  TDeployedLibrary() {
    MakeLibraryProject(*this);
    EXPECT_EQ(Run({"deploy", "p.vproj"}).Status, 0);
    FRecorded = RecordedFiles();
  }
  void Deploy(const std::string& option = "--yes") const {
    const TRun run = Run({"deploy", "p.vproj", option});
    EXPECT_EQ(run.Status, 0) << run.Errors;
  }
  TRun Undo() const { return Run({"undo", "p.vproj", "--yes", "--json"}); }
  /// What stands there is what the first deploy left, and so the record says.
  void ExpectItBack() const {
    EXPECT_EQ(LinkAt(*this, "there/p/libx.so"), "libx.so.1");
    EXPECT_EQ(LinkAt(*this, "there/p/libx.so.1"), "libx.so.1.2.3");
    EXPECT_EQ(Read("there/p/libx.so"), "library");
    EXPECT_EQ(RecordedFiles(), FRecorded);
  }
  /// A person leads the link elsewhere on the target; taking back leaves it alone.
  void ExpectRefusalOnceItLeadsElsewhere() const {
    LeadTo(*this, "there/p/libx.so", "/elsewhere");
    const TRun run = Undo();
    EXPECT_EQ(run.Status, 8) << run.Errors;
    EXPECT_EQ(run.Json()["refused"], 1);
    EXPECT_EQ(LinkAt(*this, "there/p/libx.so"), "/elsewhere");
  }

private:
  nlohmann::ordered_json RecordedFiles() const {
    return nlohmann::ordered_json::parse(Read("there/.deployment-manager/p/record.json"))["files"];
  }
  nlohmann::ordered_json FRecorded;
};

TEST(UndoOfLinks, TakesThoseThatWereNew) {
  const TDeployedLibrary place;
  const TRun run = place.Undo();
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Json()["removed"], 4);
  EXPECT_FALSE(fs::exists(place.Path("there/p")));
}

TEST(UndoOfLinks, LeavesANewOneThatLeadsElsewhereSince) {
  const TDeployedLibrary place;
  place.ExpectRefusalOnceItLeadsElsewhere();
  EXPECT_EQ(LinkAt(place, "there/p/libx.so.1"), "no link");
}

TEST(UndoOfLinks, BringsBackOneThatWasLedElsewhere) {
  const TDeployedLibrary place;
  LeadTo(place, "lib/libx.so", "libx.so.1.2.3");
  place.Deploy();
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "libx.so.1.2.3");
  const TRun run = place.Undo();
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Json()["restored"], 1);
  place.ExpectItBack();
}

TEST(UndoOfLinks, LeavesAReplacedOneThatLeadsElsewhereSince) {
  const TDeployedLibrary place;
  LeadTo(place, "lib/libx.so", "libx.so.1.2.3");
  place.Deploy();
  place.ExpectRefusalOnceItLeadsElsewhere();
}

TEST(UndoOfLinks, KnowsOneThatIsBackAlready) {
  const TDeployedLibrary place;
  LeadTo(place, "lib/libx.so", "libx.so.1.2.3");
  place.Deploy();
  LeadTo(place, "there/p/libx.so", "libx.so.1");
  const TRun run = place.Undo();
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Json()["restored"], 0);
  place.ExpectItBack();
}

TEST(UndoOfLinks, BringsBackOneThatBecameAFile) {
  const TDeployedLibrary place;
  PutFile(place, "lib/libx.so", "a file of its own");
  place.Deploy();
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "no link");
  EXPECT_EQ(place.Undo().Status, 0);
  place.ExpectItBack();
}

TEST(UndoOfLinks, LeavesAloneTheFileThatWasChangedSince) {
  const TDeployedLibrary place;
  PutFile(place, "lib/libx.so", "a file of its own");
  place.Deploy();
  place.ExpectRefusalOnceItLeadsElsewhere();
}

TEST(UndoOfLinks, BringsBackAFileThatBecameALink) {
  const TDeployedLibrary place;
  PutFile(place, "lib/libx.so", "a file of its own");
  place.Deploy();
  LeadTo(place, "lib/libx.so", "libx.so.1");
  place.Deploy();
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "libx.so.1");
  EXPECT_EQ(place.Undo().Status, 0);
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "no link");
  EXPECT_EQ(place.Read("there/p/libx.so"), "a file of its own");
  EXPECT_EQ(place.Undo().Status, 0);
  place.ExpectItBack();
}

TEST(UndoOfLinks, LeavesAloneTheLinkInTheSteadOfAFileThatLeadsElsewhereSince) {
  const TDeployedLibrary place;
  PutFile(place, "lib/libx.so", "a file of its own");
  place.Deploy();
  LeadTo(place, "lib/libx.so", "libx.so.1");
  place.Deploy();
  place.ExpectRefusalOnceItLeadsElsewhere();
}

TEST(UndoOfLinks, BringsBackOneThatWasPruned) {
  const TDeployedLibrary place;
  ASSERT_EQ(place.Run({"remove", "p.vproj", "lib\\libx.so", "--yes"}).Status, 0);
  place.Deploy("--prune");
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "no link");
  EXPECT_EQ(place.Undo().Status, 0);
  place.ExpectItBack();
}

TEST(UndoOfLinks, GoesBackOverSeveralRunsAtOnce) {
  const TDeployedLibrary place;
  const auto first = place.Run({"history", "p.vproj", "--json"}).Json()["runs"][0]["id"];
  LeadTo(place, "lib/libx.so", "libx.so.1.2.3");
  place.Deploy();
  PutFile(place, "lib/libx.so", "a file of its own");
  place.Deploy();
  const TRun dry = place.Run({"undo", "p.vproj", "--to", first, "--dry-run", "--json"});
  EXPECT_EQ(dry.Status, 0) << dry.Errors;
  EXPECT_EQ(dry.Json()["restored"], 2);
  EXPECT_EQ(dry.Json()["refused"], 0);
  EXPECT_EQ(place.Run({"undo", "p.vproj", "--to", first, "--yes"}).Status, 0);
  place.ExpectItBack();
}

TEST(UndoOfLinks, WorksOnAnotherMachine) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("lib\\libx.so.1.2.3") + RemoteEntry("lib\\libx.so.1") +
                  RemoteEntry("lib\\libx.so"));
  place.Server().Introduce();
  WriteLibrary(place);
  ASSERT_EQ(place.Deploy().Status, 0);
  LeadTo(place, "lib/libx.so", "libx.so.1.2.3");
  PutFile(place, "lib/libx.so.1", "a file");
  ASSERT_EQ(place.Deploy().Status, 0);
  EXPECT_EQ(LinkAt(place, "target/demo/libx.so"), "libx.so.1.2.3");
  EXPECT_EQ(place.Read("target/demo/libx.so.1"), "a file");
  const TRun run = place.Run({"undo", "demo.vproj", "--yes"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(LinkAt(place, "target/demo/libx.so"), "libx.so.1");
  EXPECT_EQ(LinkAt(place, "target/demo/libx.so.1"), "libx.so.1.2.3");
  LeadTo(place, "target/demo/libx.so", "/elsewhere");
  EXPECT_EQ(place.Run({"undo", "demo.vproj", "--yes"}).Status, 8);
  EXPECT_EQ(LinkAt(place, "target/demo/libx.so"), "/elsewhere");
}

} // namespace
} // namespace integration
