#include "package/view/file_status_cache.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

constexpr TFileState There{TRemoteState::NotQueried, true};
constexpr TFileState Gone{TRemoteState::NotQueried, false};

TEST(FileStatusCache, KnowsWhatWasStoredLast) {
  TFileStatusCache cache;
  EXPECT_EQ(cache.Find("a"), nullptr);
  cache.Store("a", Gone);
  cache.Store("a", {TRemoteState::LocalNewer, true});
  ASSERT_NE(cache.Find("a"), nullptr);
  EXPECT_EQ(cache.Find("a")->RemoteState, TRemoteState::LocalNewer);
  EXPECT_EQ(cache.Find("A"), nullptr);
}

TEST(FileStatusCache, KnowsNothingOfARowWithoutAStatus) {
  TFileStatusCache cache;
  cache.AttachRow("a");
  EXPECT_EQ(cache.Find("a"), nullptr);
}

TEST(FileStatusCache, CountsCheckedRowsWhoseFileIsThere) {
  TFileStatusCache cache;
  auto& first = cache.AttachRow("a");
  auto& second = cache.AttachRow("a");
  cache.SetRowChecked(first, true);
  cache.SetRowChecked(second, true);
  EXPECT_EQ(cache.DeployableRows(), 0U);
  cache.Store("a", There);
  EXPECT_EQ(cache.DeployableRows(), 2U);
  cache.SetRowChecked(second, false);
  EXPECT_EQ(cache.DeployableRows(), 1U);
  cache.Store("a", Gone);
  EXPECT_EQ(cache.DeployableRows(), 0U);
  cache.Store("a", There);
  cache.DetachRow(first, true);
  cache.DetachRow(second, false);
  EXPECT_EQ(cache.DeployableRows(), 0U);
}

TEST(FileStatusCache, ForgetsStatesButNotRows) {
  TFileStatusCache cache;
  auto& row = cache.AttachRow("a");
  cache.SetRowChecked(row, true);
  cache.Store("a", There);
  cache.Clear();
  EXPECT_EQ(cache.Find("a"), nullptr);
  EXPECT_EQ(cache.DeployableRows(), 0U);
  cache.Store("a", There);
  EXPECT_EQ(cache.DeployableRows(), 1U);
}

} // namespace
} // namespace deployment
