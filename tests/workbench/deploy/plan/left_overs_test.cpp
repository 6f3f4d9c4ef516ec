#include "tests/workbench/remote/target/remote_fixture.h"

namespace workbench {
namespace {

using testing::TRemotePlace;
using TPaths = std::vector<std::string>;

// A record that knows "demo/gone.dat" of Debug, Win32, and the target on which it stands.
class LeftOvers : public ::testing::Test {
protected:
  void SetUp() override { Remember("demo/gone.dat", "Debug", "Win32"); }
  void Remember(const std::string& path, const std::string& configuration,
                const std::string& platform) {
    TRemotePlace::Write(Place.Target(path), "content");
    Place.Record.Files[path] = {
        .LocalName = path, .Size = 7, .Platform = platform, .Configuration = configuration};
  }
  TPaths Found(const TPlaceRules& rules = {}) const {
    const TDeployPlan plan =
        Place.Plan({Place.File("kept.dat", "demo\\kept.dat")},
                   {.Places = rules, .Target = {.Configuration = "Debug", .Platform = "Win32"}});
    TPaths paths;
    for (const TLeftOver& leftOver : plan.LeftOvers)
      paths.push_back(leftOver.RecordPath);
    return paths;
  }

  TRemotePlace Place;
  const TPlaceRules IgnoringCase{.Names = {.IgnoresCase = true}};
};

TEST_F(LeftOvers, AreThoseOfTheTargetThatIsDeployed) {
  Remember("demo/other-platform.dat", "Debug", "Win64");
  Remember("demo/other-configuration.dat", "Release", "Win32");
  EXPECT_EQ(Found(), TPaths{"demo/gone.dat"});
}

TEST_F(LeftOvers, AreKnownInAnyCaseWhereTheTargetIgnoresIt) {
  Remember("Demo/KEPT.dat", "Debug", "Win32");
  EXPECT_EQ(Found(IgnoringCase), TPaths{"demo/gone.dat"});
  EXPECT_EQ(Found(), (TPaths{"Demo/KEPT.dat", "demo/gone.dat"}));
}

} // namespace
} // namespace workbench
