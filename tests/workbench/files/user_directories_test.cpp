#include "tests/support/environment.h"
#include "workbench/files/user_directories.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(UserDirectories, StandWhereTheEnvironmentSays) {
  testing::TEnvironment environment;
  environment.Set("XDG_CONFIG_HOME", "/c");
  environment.Set("XDG_STATE_HOME", "/s");
  environment.Set("XDG_CACHE_HOME", "/h");
  EXPECT_EQ(UserConfigDirectory(), "/c/deployment-manager");
  EXPECT_EQ(UserStateDirectory(), "/s/deployment-manager");
  EXPECT_EQ(UserCacheDirectory(), "/h/deployment-manager");
}

TEST(UserDirectories, StandBelowTheHomeDirectoryOtherwise) {
  testing::TEnvironment environment;
  environment.Set("HOME", "/home/ada");
  environment.Set("XDG_CONFIG_HOME", std::nullopt);
  environment.Set("XDG_STATE_HOME", "");
  environment.Set("XDG_CACHE_HOME", "relative/counts/as/unset");
  EXPECT_EQ(UserConfigDirectory(), "/home/ada/.config/deployment-manager");
  EXPECT_EQ(UserStateDirectory(), "/home/ada/.local/state/deployment-manager");
  EXPECT_EQ(UserCacheDirectory(), "/home/ada/.cache/deployment-manager");
}

TEST(UserDirectories, AskTheUserListWhenTheEnvironmentNamesNoHome) {
  testing::TEnvironment environment;
  environment.Set("HOME", std::nullopt);
  environment.Set("XDG_CONFIG_HOME", std::nullopt);
  const auto directory = UserConfigDirectory();
  EXPECT_TRUE(directory.empty() || directory.is_absolute());
}

} // namespace
} // namespace workbench
