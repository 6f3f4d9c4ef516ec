#include "package/common/case_fold.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

TEST(CaseFold, IgnoresTheCaseOfLettersBeyondAscii) {
  EXPECT_TRUE(SameText("Grüße.DAT", "GRÜßE.dat"));
  EXPECT_TRUE(SameText("Ж.so", "ж.SO"));
  EXPECT_TRUE(SameText("ΩΔ", "ωδ"));
  EXPECT_FALSE(SameText("Ä", "A"));
  EXPECT_FALSE(SameText("abc", "abcd"));
  EXPECT_TRUE(SameText("", ""));
  EXPECT_EQ(UpperCase("äжz"), "ÄЖZ");
}

TEST(CaseFold, KeepsBytesThatAreNotUtf8Apart) {
  EXPECT_EQ(UpperCase("a\xFFz"), "A\xFFZ");
  EXPECT_TRUE(SameText("a\xFFz", "A\xFFZ"));
  EXPECT_FALSE(SameText("a\xFE", "a\xFF"));
  EXPECT_TRUE(SameText("\xC3", "\xC3"));
}

TEST(CaseFold, GivesTextsThatAreTheSameOneHash) {
  EXPECT_EQ(HashText("Ärger.TXT"), HashText("äRGER.txt"));
  EXPECT_NE(HashText("a"), HashText("b"));
}

TEST(CaseFold, OrdersByUpperCase) {
  EXPECT_EQ(CompareText("abc", "ABC"), std::strong_ordering::equal);
  EXPECT_EQ(CompareText("abc", "ABD"), std::strong_ordering::less);
  // "_" stands behind the capital letters.
  EXPECT_EQ(CompareText("a_", "ab"), std::strong_ordering::greater);
  EXPECT_EQ(CompareText("ab", "abc"), std::strong_ordering::less);
  EXPECT_EQ(CompareText("ä", "Ö"), std::strong_ordering::less);
}

TEST(CaseFold, LowersAsciiAlone) {
  EXPECT_EQ(LowerCaseAscii("ÄB.TXT"), "Äb.txt");
}

} // namespace
} // namespace deployment
