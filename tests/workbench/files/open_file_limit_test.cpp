#include "workbench/files/open_file_limit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/resource.h>

namespace workbench {
namespace {

class OpenFileLimit : public ::testing::Test {
protected:
  void SetUp() override { ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &FBefore), 0); }
  void TearDown() override { static_cast<void>(::setrlimit(RLIMIT_NOFILE, &FBefore)); }

  rlim_t After(rlim_t limit) const {
    const rlimit set{limit, FBefore.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &set), 0);
    AllowManyOpenFiles();
    rlimit now = {};
    EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &now), 0);
    return now.rlim_cur;
  }

  rlimit FBefore = {};
};

TEST_F(OpenFileLimit, IsRaisedAsFarAsTheSystemLetsIt) {
  EXPECT_EQ(After(256), std::min<rlim_t>(FBefore.rlim_max, 16384));
}

TEST_F(OpenFileLimit, StaysWhereItIsHigher) {
  if (FBefore.rlim_max < 17000)
    GTEST_SKIP() << "no process may open so many files here";
  EXPECT_EQ(After(17000), 17000U);
}

} // namespace
} // namespace workbench
