#include "tests/support/environment.h"
#include "tests/support/temporary_directory.h"
#include "workbench/deploy/plan/source_roots.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

namespace fs = std::filesystem;
using testing::WriteText;

class SourceRoots : public ::testing::Test {
protected:
  fs::path At(const fs::path& name) const { return FPlace.Path() / name; }
  fs::path Write(const fs::path& name) const {
    WriteText(At(name), "x");
    return At(name);
  }

private:
  const testing::TTemporaryDirectory FPlace;
};

using SourceTree = SourceRoots;

TEST_F(SourceTree, IsTheDirectoryOfAProjectThatStandsAlone) {
  EXPECT_EQ(SourceTreeOf(Write("a/b/p.vproj")), At("a/b"));
}

TEST_F(SourceTree, IsTheOutermostWorkingCopyOrSolutionAbove) {
  const fs::path project = Write("a/b/c/p.vproj");
  Write("a/b/all.sln");
  EXPECT_EQ(SourceTreeOf(project), At("a/b"));
  fs::create_directories(At("a/.git"));
  EXPECT_EQ(SourceTreeOf(project), At("a"));
}

TEST_F(SourceTree, IsNeverAHomeDirectory) {
  const testing::TEnvironment home("HOME", At("home").string());
  fs::create_directories(At("home/.git"));
  fs::create_directories(At(".git"));
  EXPECT_EQ(SourceTreeOf(Write("home/code/p.vproj")), At("home/code"));
}

TEST_F(SourceTree, IsThatOfTheProjectItselfWhereALinkNamesIt) {
  Write("real/p.vproj");
  fs::create_directories(At("other"));
  fs::create_symlink(At("real/p.vproj"), At("other/p.vproj"));
  EXPECT_EQ(SourceTreeOf(At("other/p.vproj")), At("real"));
}

TEST_F(SourceRoots, HoldWhatStandsBelowThem) {
  TSourceRoots roots({At("a"), At("sdk")});
  EXPECT_TRUE(roots.Holds(Write("a/x")));
  EXPECT_TRUE(roots.Holds(Write("a/deep/er/x")));
  EXPECT_TRUE(roots.Holds(Write("sdk/lib.so")));
  EXPECT_TRUE(roots.Holds(At("a/is/not/there")));
  EXPECT_FALSE(roots.Holds(Write("ab/x")));
  EXPECT_FALSE(roots.Holds(At("a/../home/key")));
  EXPECT_FALSE(TSourceRoots({}).Holds(At("a/x")));
}

TEST_F(SourceRoots, DoNotHoldWhatALinkLeadsTo) {
  Write("home/key");
  Write("a/x");
  fs::create_symlink(At("home/key"), At("a/link"));
  fs::create_directory_symlink(At("home"), At("a/directory"));
  fs::create_symlink("x", At("a/inside"));
  TSourceRoots roots({At("a")});
  EXPECT_FALSE(roots.Holds(At("a/link")));
  EXPECT_FALSE(roots.Holds(At("a/directory/key")));
  EXPECT_TRUE(roots.Holds(At("a/inside")));
}

TEST_F(SourceRoots, AreNotTheWholeFileSystem) {
  EXPECT_FALSE(TSourceRoots({"/"}).Holds(Write("a/x")));
}

} // namespace
} // namespace workbench
