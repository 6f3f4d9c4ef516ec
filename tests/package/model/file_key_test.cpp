#include "package/model/file_key.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

TEST(FileKey, CountsAsTheJoinedText) {
  const TFileKey key{"Debug", "Win32", "a.dll"};
  EXPECT_EQ(JoinKey(key), "DebugWin32a.dll");
  for (const TFileKey& same : {TFileKey{"DebugWin32a.dll", "", ""},
                               {"", "", "DebugWin32a.dll"},
                               {"Debug", "", "Win32a.dll"},
                               {"De", "bugWin32a.d", "ll"}}) {
    EXPECT_TRUE(SameKey(key, same));
    EXPECT_TRUE(SameKey(same, key));
    EXPECT_EQ(HashKey(key), HashKey(same));
  }
  EXPECT_TRUE(SameKey({}, {}));
}

TEST(FileKey, ComparesExactly) {
  EXPECT_FALSE(SameKey({"Debug", "Win32", "a"}, {"debug", "Win32", "a"}));
  EXPECT_FALSE(SameKey({"Debug", "Win32", "a"}, {"Debug", "Win32", "ab"}));
  EXPECT_FALSE(SameKey({"", "", "a"}, {}));
}

} // namespace
} // namespace deployment
