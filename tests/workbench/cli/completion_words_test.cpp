#include "workbench/cli/completion/completion_words.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

using TTypedTexts = std::vector<std::string>;

TEST(CompletionWords, EndWithTheOneAtTheCursor) {
  const TTypedWords typed = ReadTypedWords("bash", {"list", "p.vproj", "-p", "Wi"});
  EXPECT_EQ(typed.Before, (TTypedTexts{"list", "p.vproj", "-p"}));
  EXPECT_EQ(typed.Current, "Wi");
  EXPECT_EQ(ReadTypedWords("fish", {}).Current, "");
}

TEST(CompletionWords, LoseTheQuotesThatTheShellLeftIn) {
  const TTypedWords typed = ReadTypedWords("bash", {"set", R"(my\ project.vproj)", R"('data\x)"});
  EXPECT_EQ(typed.Before, (TTypedTexts{"set", "my project.vproj"}));
  EXPECT_EQ(typed.Current, R"(data\x)");
  EXPECT_EQ(ReadTypedWords("bash", {R"("it's )"}).Current, "it's ");
  EXPECT_EQ(ReadTypedWords("bash", {R"(tail\)"}).Current, R"(tail\)");
}

TEST(CompletionWords, OfZshAndOfFishHaveNoQuotesBeforeTheCursor) {
  EXPECT_EQ(ReadTypedWords("zsh", {R"(a\b)", R"(a\b)"}).Current, R"(a\b)");
  const TTypedWords typed = ReadTypedWords("fish", {R"(a\b)", R"(a\ b)"});
  EXPECT_EQ(typed.Before, (TTypedTexts{R"(a\b)"}));
  EXPECT_EQ(typed.Current, "a b");
}

TEST(CompletionWords, TakeAnOptionAndItsValueForTwoWhereTheShellPartsThem) {
  const TTypedWords typed = ReadTypedWords("bash", {"list", "--platform", "=", "Wi"});
  EXPECT_EQ(typed.Before, (TTypedTexts{"list", "--platform"}));
  EXPECT_EQ(typed.Current, "Wi");
  const TTypedWords atSign = ReadTypedWords("bash", {"list", "--platform", "="});
  EXPECT_EQ(atSign.Before, (TTypedTexts{"list", "--platform"}));
  EXPECT_EQ(atSign.Current, "");
  EXPECT_EQ(ReadTypedWords("bash", {"a", "=", "b"}).Before, (TTypedTexts{"a", "="}));
}

} // namespace
} // namespace workbench
