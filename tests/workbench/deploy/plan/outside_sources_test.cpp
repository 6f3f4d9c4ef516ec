#include "tests/support/temporary_directory.h"
#include "workbench/deploy/plan/outside_sources.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

namespace fs = std::filesystem;
using TFileNames = std::vector<std::string>;

// "tree/libx.so" leads to "library" beside the tree.
class OutsideSources : public ::testing::Test {
protected:
  void SetUp() override {
    testing::WriteText(Place.Path() / "library", "content");
    fs::create_directories(Tree);
    fs::create_symlink("../library", Library.File.LocalFile);
  }
  TFileNames Found() const {
    return PathsToRead({&Library, 1}, FindOutsideFiles({&Library, 1}, {Tree}));
  }

  const testing::TTemporaryDirectory Place;
  const fs::path Tree = Place.Path() / "tree";
  TPlannedFile Library{
      .File = {.LocalName = "libx.so", .LocalFile = Tree / "libx.so", .RemoteName = "libx.so"},
      .IsLinkHere = true};
};

TEST_F(OutsideSources, AreWhereTheContentOfALinkIs) {
  EXPECT_EQ(Found(), TFileNames{(Tree / "libx.so").string()});
}

TEST_F(OutsideSources, AreNoneOfALinkThatTravelsAsOne) {
  Library.Link = "libx.so.1";
  EXPECT_EQ(Found(), TFileNames());
}

} // namespace
} // namespace workbench
