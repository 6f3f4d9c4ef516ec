#include "tests/support/environment.h"
#include "tests/support/temporary_directory.h"
#include "workbench/files/runtime_directory.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace workbench {
namespace {

using testing::TEnvironment;

class RuntimeDirectoryTest : public ::testing::Test {
protected:
  testing::TTemporaryDirectory FTemporary{"/tmp"};
  std::filesystem::path FRuntime = FTemporary.Path();
};

void ExpectIsPrivate(const std::filesystem::path& path) {
  struct stat status = {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0) << path;
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  EXPECT_EQ(status.st_uid, ::geteuid());
}

TEST_F(RuntimeDirectoryTest, StandsInTheRuntimeDirectoryOfTheUser) {
  const TEnvironment runtime("XDG_RUNTIME_DIR", FRuntime.string());
  EXPECT_EQ(RuntimeDirectory(), FRuntime / "deployment-manager");
  EXPECT_EQ(RuntimeDirectory(), FRuntime / "deployment-manager");
  ExpectIsPrivate(FRuntime / "deployment-manager");
}

TEST_F(RuntimeDirectoryTest, StandsElsewhereWhenTheRuntimeDirectoryDoesNotDo) {
  const auto blank = FRuntime / "a b";
  const auto deep = FRuntime / std::string(60, 'd');
  std::filesystem::create_directories(blank);
  std::filesystem::create_directories(deep);
  for (const std::string& name : {std::string(), std::string("relative"), blank.string(),
                                  deep.string(), (FRuntime / "missing").string()}) {
    const TEnvironment runtime("XDG_RUNTIME_DIR", name);
    EXPECT_TRUE(RuntimeDirectory().native().starts_with("/tmp/deployment-manager-")) << name;
    ExpectIsPrivate(RuntimeDirectory());
  }
}

TEST_F(RuntimeDirectoryTest, IsNoneThatOthersCanRead) {
  const TEnvironment runtime("XDG_RUNTIME_DIR", FRuntime.string());
  std::filesystem::create_directory(FRuntime / "deployment-manager");
  ASSERT_EQ(::chmod((FRuntime / "deployment-manager").c_str(), 0755), 0);
  EXPECT_NE(RuntimeDirectory().parent_path(), FRuntime);
  std::filesystem::remove(FRuntime / "deployment-manager");
  std::filesystem::create_directory_symlink("/", FRuntime / "deployment-manager");
  EXPECT_NE(RuntimeDirectory().parent_path(), FRuntime);
}

TEST_F(RuntimeDirectoryTest, StaysTheSameWhereSomebodyElseHasItsName) {
  const std::string name = "deployment-manager-" + std::to_string(::geteuid());
  std::filesystem::create_directory(FRuntime / name);
  ASSERT_EQ(::chmod((FRuntime / name).c_str(), 0777), 0);
  const auto first = RuntimeDirectoryBelow(FRuntime);
  EXPECT_NE(first, FRuntime / name);
  ExpectIsPrivate(first);
  EXPECT_EQ(RuntimeDirectoryBelow(FRuntime), first);
  ASSERT_EQ(::chmod(first.c_str(), 0755), 0);
  EXPECT_NE(RuntimeDirectoryBelow(FRuntime), first) << "others can read it";
}

TEST_F(RuntimeDirectoryTest, HoldsScratchDirectoriesThatGo) {
  const TEnvironment runtime("XDG_RUNTIME_DIR", FRuntime.string());
  std::filesystem::path path;
  {
    const TScratchDirectory scratch;
    const TScratchDirectory other;
    path = scratch.Path();
    EXPECT_NE(path, other.Path());
    EXPECT_EQ(path.parent_path(), RuntimeDirectory());
    ExpectIsPrivate(path);
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(RuntimeDirectoryTest, LosesScratchDirectoriesOfProcessesThatAreGone) {
  const TEnvironment runtime("XDG_RUNTIME_DIR", FRuntime.string());
  const auto stale = RuntimeDirectory() / "999999999-abcdef"; // no process has that number
  const auto foreign = RuntimeDirectory() / "0123456789abcdef";
  std::filesystem::create_directories(stale / "inside");
  std::filesystem::create_directories(foreign);
  const TScratchDirectory first;
  const TScratchDirectory second;
  EXPECT_FALSE(std::filesystem::exists(stale));
  EXPECT_TRUE(std::filesystem::exists(foreign));
  EXPECT_TRUE(std::filesystem::exists(first.Path()));
}

TEST(RandomDigits, AreOfTheLengthThatWasAskedForAndNeverTheSame) {
  EXPECT_EQ(RandomDigits(2).size(), 32U);
  EXPECT_EQ(RandomDigits(2).find_first_not_of("0123456789abcdef"), std::string::npos);
  EXPECT_NE(RandomDigits(2), RandomDigits(2));
}

} // namespace
} // namespace workbench
