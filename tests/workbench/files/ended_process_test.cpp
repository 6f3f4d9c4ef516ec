#include "workbench/files/ended_process.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace workbench {
namespace {

TEST(EndedProcess, IsOneThatIsGoneAndOneThatNobodyAskedForItsEnd) {
  const pid_t child = ::fork();
  if (child == 0)
    ::_exit(0);
  siginfo_t end = {};
  ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(child), &end, WEXITED | WNOWAIT), 0);
  EXPECT_TRUE(HasProcessEnded(child)); // it is dead, and in the table all the same
  ::waitpid(child, nullptr, 0);
  EXPECT_TRUE(HasProcessEnded(child));
}

TEST(EndedProcess, IsNeitherThisOneNorOneThatSleepsNorNone) {
  EXPECT_FALSE(HasProcessEnded(::getpid()));
  EXPECT_FALSE(HasProcessEnded(1)); // it may belong to somebody else
  EXPECT_FALSE(HasProcessEnded(0));
  EXPECT_FALSE(HasProcessEnded(-1));
  const pid_t child = ::fork();
  if (child == 0) {
    ::pause();
    ::_exit(0);
  }
  EXPECT_FALSE(HasProcessEnded(child));
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
}

} // namespace
} // namespace workbench
