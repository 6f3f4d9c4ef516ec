#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/deploy/plan/plan_check.h"

namespace workbench {
namespace {

using testing::TRemotePlace;
using TSentences = std::vector<std::string>;

// A plan for "a", which stands on the target as it is to be and owes its command.
class PlanCheck : public ::testing::Test {
protected:
  void SetUp() override {
    TDeployFile file = Place.File("a", "a");
    file.RemoteCommands = {"restart"};
    std::filesystem::copy_file(Place.Local("a"), Place.Target("a"));
    std::filesystem::last_write_time(Place.Target("a"),
                                     std::filesystem::last_write_time(Place.Local("a")));
    Place.Record.Owed["a"] = {"command:restart"};
    Place.Record.OwedAfterDeploy = "reload";
    Plan = Place.Plan({file}, {.AfterDeploy = "reload"});
    ASSERT_EQ(Plan.Files.at(0).Action, TDeployAction::Unchanged);
    ASSERT_EQ(Plan.Files[0].Steps.size(), 1U);
    ASSERT_EQ(Plan.AfterDeploy, "reload");
  }
  TSentences Check() {
    TFolderConnection connection(Place.Target());
    return CheckTargetFiles(connection, Place.Record, {}, Plan);
  }

  TRemotePlace Place;
  TDeployPlan Plan;
};

TEST_F(PlanCheck, FindsNothingWhereEverythingIsAsItWas) {
  EXPECT_EQ(Check(), TSentences());
}

TEST_F(PlanCheck, RunsNoCommandASecondTimeThatSomebodyRanMeanwhile) {
  Place.Record.Owed.clear();
  EXPECT_EQ(Check(), TSentences{Place.Target("a").string() +
                                ": other commands are still to be run than were then"});
}

TEST_F(PlanCheck, RunsTheCommandAfterTheDeployNoSecondTime) {
  Place.Record.OwedAfterDeploy.clear();
  EXPECT_EQ(Check(), TSentences{"the command \"reload\" is not to be run any more"});
}

} // namespace
} // namespace workbench
