#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/remote/target/seen_files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace workbench {
namespace {

class SeenFilesTest : public ::testing::Test {
protected:
  SeenFilesTest() { testing::TRemotePlace::Write(FPlace.Target("lib/a"), "seen"); }

  std::uint64_t SizeOf(IRemoteConnection& connection, const std::string& name) {
    const std::vector<std::string> directories{"lib"};
    const TRemoteName asked{FSeen.Resolve(connection, directories).front().Path, name};
    return FSeen.Examine(connection, {&asked, 1}).front().Size;
  }

  testing::TRemotePlace FPlace;
  TFolderConnection FConnection{FPlace.Target()};
  TSeenFiles FSeen;
};

TEST_F(SeenFilesTest, AreAskedForOnce) {
  EXPECT_EQ(SizeOf(FConnection, "a"), 4U);
  testing::TRemotePlace::Write(FPlace.Target("lib/a"), "changed since");
  EXPECT_EQ(SizeOf(FConnection, "a"), 4U);
}

TEST_F(SeenFilesTest, AreAnsweredInTheirOrderWhereOnlySomeAreKnown) {
  testing::TRemotePlace::Write(FPlace.Target("lib/b"), "12");
  testing::TRemotePlace::Write(FPlace.Target("lib/c"), "123");
  EXPECT_EQ(SizeOf(FConnection, "b"), 2U);
  const std::string lib = FPlace.Target("lib").string();
  const std::vector<TRemoteName> names{{lib, "c"}, {lib, "b"}, {lib, "none"}, {lib, "a"}};
  const std::vector<TRemoteStatus> answers = FSeen.Examine(FConnection, names);
  EXPECT_EQ(answers[0].Size, 3U);
  EXPECT_EQ(answers[1].Size, 2U);
  EXPECT_EQ(answers[2].Kind, TRemoteKind::None);
  EXPECT_EQ(answers[3].Size, 4U);
}

TEST_F(SeenFilesTest, AreThoseOfTheTargetOverAnyConnection) {
  EXPECT_EQ(SizeOf(FConnection, "a"), 4U);
  testing::TRemotePlace::Write(FPlace.Target("lib/a"), "changed since");
  TFolderConnection other(FPlace.Target());
  EXPECT_EQ(SizeOf(other, "a"), 4U);
}

TEST_F(SeenFilesTest, OfAnotherPlaceAreForgotten) {
  EXPECT_EQ(SizeOf(FConnection, "a"), 4U);
  testing::TRemotePlace::Write(FPlace.Local("lib/a"), "another place");
  TFolderConnection other(FPlace.Local());
  EXPECT_EQ(SizeOf(other, "a"), 13U);
}

} // namespace
} // namespace workbench
