// What is known of a target without a connection.
#include "tests/integration/record_place.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

/// "state" and "asOf" of the row of that name.
nlohmann::ordered_json RowOf(const TRun& run, const std::string& name) {
  const auto document = run.Json();
  for (const auto& row : document["rows"]) {
    if (row["localName"] == name)
      return {{"state", row["state"]}, {"asOf", row["asOf"]}};
  }
  return nullptr;
}

TEST(Offline, ShowsWhatWasKnownWhenTheTargetWasLookedAtLast) {
  const TRecordPlace place(RecordEntry("a") + RecordEntry("b"));
  place.Write("a", "first");
  TRun run = place.Do("status", {"--offline"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Json()["connected"], false);
  EXPECT_TRUE(run.Json()["asOf"].is_null());
  EXPECT_TRUE(RowOf(run, "a")["state"].is_null());
  EXPECT_TRUE(RowOf(run, "a")["asOf"].is_null());

  ASSERT_EQ(place.Do("deploy", {"--skip-missing"}).Status, 0);
  std::filesystem::rename(place.Path("target"), place.Path("unplugged"));
  EXPECT_EQ(place.Do("status").Status, 5);
  run = place.Do("status", {"--offline"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(RowOf(run, "a")["state"], "same");
  EXPECT_EQ(RowOf(run, "a")["asOf"], run.Json()["asOf"]);
  EXPECT_EQ(RowOf(run, "b")["state"], "missing-here");
  EXPECT_EQ(run.Json()["lastRun"]["copied"], 1);
  EXPECT_EQ(run.Json()["rows"][1]["remoteStatus"], "Not Connected");

  // A look is kept, too.
  std::filesystem::rename(place.Path("unplugged"), place.Path("target"));
  place.ChangeThere("a");
  ASSERT_EQ(place.Do("status").Status, 0);
  EXPECT_EQ(RowOf(place.Do("status", {"--offline"}), "a")["state"], "changed-there");
  // What is known of one target says nothing of another one.
  ASSERT_EQ(place.Run({"profile", "remove", "box"}).Status, 0);
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Win32", "--path", "other", "--default"}).Status,
      0);
  EXPECT_TRUE(RowOf(place.Do("status", {"--offline"}), "a")["state"].is_null());
}

} // namespace
} // namespace integration
