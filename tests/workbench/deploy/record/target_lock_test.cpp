#include "tests/support/temporary_directory.h"
#include "workbench/deploy/record/target_lock.h"
#include "workbench/remote/folder/folder_connection.h"

#include <gtest/gtest.h>

#include <array>
#include <sys/wait.h>
#include <unistd.h>

namespace workbench {
namespace {

// The number of a process that was there and is gone.
long EndedProcess() {
  const pid_t process = ::fork();
  if (process == 0)
    ::_exit(0);
  ::waitpid(process, nullptr, 0);
  return process;
}

TEST(TargetLock, OfADeadHolderIsTakenOverAndWhatItLeftIsRemoved) {
  const testing::TTemporaryDirectory place;
  const std::filesystem::path part =
      place.Path() / "records" / ".deploymgr-0123456789abcdef-3.part";
  testing::WriteText(part, "half");
  TFolderConnection connection(place.Path());
  const std::array<std::string, 1> wanted{"records"};
  const std::string directory = connection.Resolve(wanted).front().Path;
  TLockHolder dead = ThisHolder("2026-11-22T00:31:21Z");
  dead.Process = EndedProcess();
  ASSERT_FALSE(TTargetLock(directory).Take(connection, dead, false));
  EXPECT_TRUE(std::filesystem::exists(part));
  TTargetLock lock(directory);
  EXPECT_FALSE(lock.Take(connection, ThisHolder("2026-11-22T00:31:21Z"), false));
  EXPECT_TRUE(lock.IsTaken());
  EXPECT_FALSE(std::filesystem::exists(part));
}

TEST(TargetLock, OfADeadHolderThatNobodyAskedForItsEndIsTakenOver) {
  const testing::TTemporaryDirectory place;
  const std::string directory = place.Path().string();
  TFolderConnection connection(place.Path());
  const pid_t process = ::fork();
  if (process == 0)
    ::_exit(0);
  siginfo_t end = {};
  ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(process), &end, WEXITED | WNOWAIT), 0);
  TLockHolder dead = ThisHolder("2026-11-22T00:31:21Z");
  dead.Process = process;
  ASSERT_FALSE(TTargetLock(directory).Take(connection, dead, false));
  EXPECT_FALSE(TTargetLock(directory).Take(connection, ThisHolder("2026-11-22T00:31:22Z"), false));
  ::waitpid(process, nullptr, 0);
}

} // namespace
} // namespace workbench
