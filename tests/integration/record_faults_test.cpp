// Records that cannot be what a deploy left, and deploys that meet.
#include "tests/integration/record_place.h"

#include <thread>

namespace integration {
namespace {

namespace fs = std::filesystem;

// A deploy over a record that counts as none.
void ExpectDamagedRecord(const TRecordPlace& place) {
  const TRun run = place.Do("deploy");
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(run.Errors.find("the record on the target is damaged and counts as none"),
            std::string::npos)
      << run.Errors;
  EXPECT_EQ(place.RecordNow()["files"].size(), 1U);
  EXPECT_EQ(place.Do("verify").Status, 0);
}

TEST(RecordFaults, ALinkInItsPlaceIsNotFollowed) {
  const TRecordPlace place(RecordEntry("a"));
  place.Write("a", "a");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  fs::rename(place.Path(RecordFile), place.Path("elsewhere"));
  fs::create_symlink(place.Path("elsewhere"), place.Path(RecordFile));
  const std::string before = place.Read("elsewhere");
  ExpectDamagedRecord(place);
  EXPECT_EQ(place.Read("elsewhere"), before);
  EXPECT_FALSE(fs::is_symlink(place.Path(RecordFile)));
}

TEST(RecordFaults, OneThatIsTooLargeIsNotRead) {
  const TRecordPlace place(RecordEntry("a"));
  place.Write("a", "a");
  ASSERT_EQ(place.Do("deploy").Status, 0);
  fs::resize_file(place.Path(RecordFile), (std::uintmax_t(64) << 20U) + 1);
  ExpectDamagedRecord(place);
}

// Whoever comes second is told or waits for nothing; what stands there is whole either way.
TEST(RecordFaults, DeploysThatMeetLeaveOneOfThem) {
  const TRecordPlace place(RecordEntry("a") + RecordEntry("b"));
  for (int round = 0; round < 8; ++round) {
    const std::string content(1000, static_cast<char>('a' + round));
    place.Write("a", content);
    place.Write("b", content);
    TRun first;
    std::thread other([&] { first = place.Do("deploy"); });
    TRun second = place.Do("deploy");
    other.join();
    EXPECT_TRUE(first.Status == 0 || second.Status == 0) << first.Errors << second.Errors;
    for (const TRun* run : {&first, &second}) {
      EXPECT_TRUE(run->Status == 0 || run->Status == 1) << run->Errors;
      EXPECT_TRUE(run->Status == 0 || run->Errors.find("somebody else deploy") != std::string::npos)
          << run->Errors;
    }
    EXPECT_EQ(place.Read("target/demo/a"), content);
    EXPECT_EQ(place.Read("target/demo/b"), content);
    EXPECT_FALSE(fs::exists(place.Path(LockFile)));
    EXPECT_EQ(place.Do("verify").Status, 0);
  }
}

} // namespace
} // namespace integration
