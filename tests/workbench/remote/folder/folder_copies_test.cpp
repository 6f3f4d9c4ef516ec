#include "tests/support/temporary_directory.h"
#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/remote/folder/folder_copies.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace workbench {
namespace {

namespace fs = std::filesystem;
using testing::TRemotePlace;

struct stat StatusOfFile(const fs::path& file) {
  struct stat status = {};
  EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
  return status;
}

TEST(FolderCopies, KeepAFileByAHardLink) {
  const testing::TTemporaryDirectory place;
  TRemotePlace::Write(place.Path() / "a", "content");
  TDirectoryHandles directories;
  const std::string directory = place.Path().string();
  const TRemoteCopy copy{{directory, "a"}, {directory, "kept"}};
  EXPECT_EQ(KeepFiles(directories, {&copy, 1}), std::vector<std::string>{""});
  EXPECT_EQ(StatusOfFile(place.Path() / "a").st_ino, StatusOfFile(place.Path() / "kept").st_ino);
  // What is there already is kept whole.
  EXPECT_NE(KeepFiles(directories, {&copy, 1}).front(), "");
  const TRemoteCopy missing{{directory, "nothing"}, {directory, "other"}};
  EXPECT_NE(KeepFiles(directories, {&missing, 1}).front(), "");
  EXPECT_FALSE(fs::exists(place.Path() / "other"));
}

TEST(FolderCopies, KeepAFileByACopyWhereThereAreNoHardLinks) {
  const testing::TTemporaryDirectory place;
  const fs::path elsewhere = fs::path("/dev/shm") / ("copies-" + std::to_string(::getpid()));
  std::error_code error;
  fs::create_directories(elsewhere, error);
  if (error || StatusOfFile(elsewhere).st_dev == StatusOfFile(place.Path()).st_dev)
    GTEST_SKIP() << "there is no second file system here";
  TRemotePlace::Write(place.Path() / "a", "content");
  ::chmod((place.Path() / "a").c_str(), 0751);
  TDirectoryHandles directories;
  const TRemoteCopy copy{{place.Path().string(), "a"}, {elsewhere.string(), "kept"}};
  EXPECT_EQ(KeepFiles(directories, {&copy, 1}), std::vector<std::string>{""});
  EXPECT_EQ(TRemotePlace::Read(elsewhere / "kept"), "content");
  const struct stat before = StatusOfFile(place.Path() / "a");
  const struct stat after = StatusOfFile(elsewhere / "kept");
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
  EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
  fs::remove_all(elsewhere);
}

TEST(FolderCopies, MoveOntoASecondNameOfTheSameFileAndKeepTheNewNameOnly) {
  const testing::TTemporaryDirectory place;
  TRemotePlace::Write(place.Path() / "a", "content");
  fs::create_hard_link(place.Path() / "a", place.Path() / "kept");
  TDirectoryHandles directories;
  const std::string root = place.Path().string();
  const TRemoteCopy move{{root, "kept"}, {root, "a"}};
  EXPECT_EQ(MoveFiles(directories, {&move, 1}), std::vector<std::string>{""});
  EXPECT_EQ(TRemotePlace::Read(place.Path() / "a"), "content");
  EXPECT_FALSE(fs::exists(place.Path() / "kept"));
}

TEST(FolderCopies, MoveOverWhatIsThereAndRemoveEmptyDirectoriesOnly) {
  const testing::TTemporaryDirectory place;
  fs::create_directories(place.Path() / "full/empty/deep");
  TRemotePlace::Write(place.Path() / "full/a", "new");
  TRemotePlace::Write(place.Path() / "kept", "old");
  TDirectoryHandles directories;
  const std::string root = place.Path().string();
  const TRemoteCopy move{{root, "kept"}, {root + "/full", "a"}};
  EXPECT_EQ(MoveFiles(directories, {&move, 1}), std::vector<std::string>{""});
  EXPECT_EQ(TRemotePlace::Read(place.Path() / "full/a"), "old");
  EXPECT_FALSE(fs::exists(place.Path() / "kept"));
  const std::vector<std::string> wanted{root + "/full", root + "/full/empty",
                                        root + "/full/empty/deep", root + "/nowhere"};
  RemoveEmptyFolders(directories, wanted);
  EXPECT_TRUE(fs::exists(place.Path() / "full/a"));
  EXPECT_FALSE(fs::exists(place.Path() / "full/empty"));
}

} // namespace
} // namespace workbench
