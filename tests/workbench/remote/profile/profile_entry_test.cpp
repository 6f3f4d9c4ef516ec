#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/remote/profile/profile_entry.h"

namespace workbench {
namespace {

using testing::TRemotePlace;

TEST(ProfileEntry, GetsFullPathsOfThisMachine) {
  const std::string here = std::filesystem::current_path().string();
  EXPECT_EQ(TidyProfile({.Path = "out/../bin/"}).Path, here + "/bin");
  EXPECT_EQ(TidyProfile({.Path = "/"}).Path, "/");
  EXPECT_EQ(TidyProfile({}).Path, "");
  const TProfile ssh =
      TidyProfile({.Kind = TProfileKind::Ssh, .Path = "~/app//", .Identity = "keys/id"});
  EXPECT_EQ(ssh.Path, "~/app");
  EXPECT_EQ(ssh.Identity, here + "/keys/id");
  EXPECT_EQ(TidyProfile({.Kind = TProfileKind::Ssh, .Identity = "~/.ssh/id"}).Identity,
            "~/.ssh/id");
}

TEST(ProfileEntry, MakesTheDirectoryOfAFolderProfile) {
  const TRemotePlace place;
  EXPECT_EQ(MakeProfileFolder({.Path = place.Target("a/b").string()}), "");
  EXPECT_TRUE(std::filesystem::is_directory(place.Target("a/b")));
  TRemotePlace::Write(place.Target("file"), "x");
  EXPECT_EQ(MakeProfileFolder({.Path = place.Target("file").string()}),
            place.Target("file").string() + " is no directory and cannot be made one: "
                                            "Not a directory");
  EXPECT_EQ(MakeProfileFolder({.Kind = TProfileKind::Ssh, .Path = place.Target("c").string()}), "");
  EXPECT_FALSE(std::filesystem::exists(place.Target("c")));
}

TEST(ProfileEntry, IsWrittenAsPeopleWriteIt) {
  EXPECT_EQ(ProfilePlace({.Path = "/mnt/\x1bshare"}), "/mnt/\\x1Bshare");
  TProfile ssh{.Kind = TProfileKind::Ssh, .Path = "~/app", .Host = "pi"};
  EXPECT_EQ(ProfilePlace(ssh), "pi:~/app");
  ssh.User = "eva";
  ssh.Port = 2222;
  EXPECT_EQ(ProfilePlace(ssh), "eva@pi:2222:~/app");
}

} // namespace
} // namespace workbench
