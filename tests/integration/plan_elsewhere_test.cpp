// Plans that are taken elsewhere.
#include "tests/integration/record_place.h"

#include <filesystem>
#include <unistd.h>

namespace integration {
namespace {

namespace fs = std::filesystem;

constexpr const char* TakenPlan = "taken.plan";

// A file to be deployed, and the plan for it.
class TPlannedPlace : public TRecordPlace {
public:
  TPlannedPlace() : TRecordPlace(RecordEntry("a")) {
    Write("a", "content");
    const TRun run = Do("plan", {"--out", TakenPlan});
    EXPECT_EQ(run.Status, 0) << run.Errors;
  }
};

// The message of an apply that refuses.
std::string RefusalOf(const TRun& run) {
  EXPECT_EQ(run.Status, 8) << run.Output << run.Errors;
  return run.Status == 8 ? run.Json()["error"]["message"].get<std::string>() : std::string();
}

TEST(PlanElsewhere, IsRefusedWhereTheProfileLeadsToAnotherPlace) {
  const TPlannedPlace made;
  const TPlannedPlace other;
  const std::string plan = made.Path(TakenPlan).string();
  const std::string message = RefusalOf(other.Run({"apply", plan, "--json"}));
  EXPECT_NE(message.find("the place of the profile"), std::string::npos) << message;
  EXPECT_NE(message.find(made.Path("target").string()), std::string::npos) << message;
  EXPECT_EQ(other.Read("target/demo/a") + made.Read("target/demo/a"), "");
}

TEST(PlanElsewhere, IsRefusedWhereThereIsNoSuchProfile) {
  const TPlannedPlace made;
  const TWorkplace other;
  const std::string plan = made.Path(TakenPlan).string();
  const std::string message = RefusalOf(other.Run({"apply", plan, "--json"}));
  EXPECT_NE(message.find("there is no profile \"box\""), std::string::npos) << message;
  EXPECT_EQ(made.Read("target/demo/a"), "");
}

TEST(PlanElsewhere, IsRefusedWhenTheProjectWentToAnotherDirectory) {
  const TPlannedPlace place;
  fs::create_directories(place.Path("moved"));
  for (const char* name : {"demo.vproj", "a"})
    fs::rename(place.Path(name), place.Path("moved") / name);
  const std::string message = RefusalOf(place.Run({"apply", TakenPlan, "--json"}));
  EXPECT_NE(message.find("the local file " + place.Path("a").string() + " is missing"),
            std::string::npos)
      << message;
  EXPECT_EQ(place.Read("target/demo/a"), "");
}

TEST(PlanElsewhere, IsCarriedOutFromAnyDirectoryAndWithoutTheProjectFile) {
  const TPlannedPlace place;
  fs::create_directories(place.Path("elsewhere"));
  fs::remove(place.Path("demo.vproj"));
  TStart start = place.Start({"apply", place.Path(TakenPlan).string()});
  start.Directory = place.Path("elsewhere");
  const TRun run = integration::RunProgram(std::move(start));
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(place.Read("target/demo/a"), "content");
}

TEST(PlanElsewhere, IsRefusedOnAnotherMachine) {
  const TPlannedPlace place;
  TStart start = place.Start({"apply", TakenPlan, "--json"});
  std::string command = "hostname elsewhere 2>/dev/null || exit 99; exec";
  for (const std::string& word : start.Command)
    command.append(" '").append(word).append("'");
  start.Command = {"unshare", ::getuid() == 0 ? "-u" : "-ru", "sh", "-c", command};
  const TRun run = integration::RunProgram(std::move(start));
  if (run.Status == 99 || run.Errors.starts_with("unshare:"))
    GTEST_SKIP() << "a machine of another name cannot be played here: " << run.Errors;
  const std::string message = RefusalOf(run);
  EXPECT_NE(message.find("the machine that the folder is on"), std::string::npos) << message;
  EXPECT_NE(message.find("elsewhere"), std::string::npos) << message;
  EXPECT_EQ(place.Read("target/demo/a"), "");
}

} // namespace
} // namespace integration
