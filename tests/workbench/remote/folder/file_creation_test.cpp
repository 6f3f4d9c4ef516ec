#include "tests/support/temporary_directory.h"
#include "workbench/remote/folder/folder_connection.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace workbench {
namespace {

using TResult = TRemoteCreation::TResult;

constexpr deployment::TFileTime At{std::chrono::seconds(1'000'000)};

TEST(FileCreation, IsForOneAloneAndLeavesNothingBesideIt) {
  const testing::TTemporaryDirectory place;
  const TRemoteName name{place.Path().string(), "lock"};
  TFolderConnection mine(place.Path());
  EXPECT_EQ(mine.CreateFile(name, "mine", At).Result, TResult::Made);
  EXPECT_EQ(TFolderConnection(place.Path()).CreateFile(name, "theirs", At).Result, TResult::Exists);
  EXPECT_EQ(testing::ReadText(place.Path() / "lock"), "mine");
  EXPECT_EQ(mine.Examine({&name, 1})[0].Modified, At);
  EXPECT_EQ(mine.Examine({&name, 1})[0].Mode, 0644U);
  const std::filesystem::directory_iterator files(place.Path());
  EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST(FileCreation, LeavesNoFileWithoutItsTextWhenTheProgramIsKilled) {
  const testing::TTemporaryDirectory place;
  const TRemoteName name{place.Path().string(), "lock"};
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit nothing{0, 0};
    ::setrlimit(RLIMIT_FSIZE, &nothing);
    ::setrlimit(RLIMIT_CORE, &nothing);
    ::signal(SIGXFSZ, SIG_DFL); // the first byte that it writes ends it
    static_cast<void>(TFolderConnection(place.Path()).CreateFile(name, "mine", At));
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status)) << status;
  EXPECT_EQ(WTERMSIG(status), SIGXFSZ);
  EXPECT_FALSE(std::filesystem::exists(place.Path() / "lock"));
  TFolderConnection next(place.Path());
  EXPECT_EQ(next.CreateFile(name, "next", At).Result, TResult::Made);
}

TEST(FileCreation, SaysWhyThereCanBeNone) {
  const testing::TTemporaryDirectory place;
  TFolderConnection connection(place.Path());
  const TRemoteCreation made =
      connection.CreateFile({(place.Path() / "missing").string(), "lock"}, "text", At);
  EXPECT_EQ(made.Result, TResult::Failed);
  EXPECT_NE(made.Problem.find("No such file or directory"), std::string::npos) << made.Problem;
}

} // namespace
} // namespace workbench
