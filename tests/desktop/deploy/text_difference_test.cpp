#include "workbench/desktop/deploy/text_difference.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace workbench {
namespace {

// Each line with the sign of its side.
std::string Signed(std::string_view theirs, std::string_view ours) {
  std::string text;
  for (const TDifferenceLine& line : DifferenceOf(theirs, ours)) {
    text += line.Kind == TDifferenceLine::TKind::Same     ? ' '
            : line.Kind == TDifferenceLine::TKind::Theirs ? '-'
                                                          : '+';
    text += line.Text;
    text += '|';
  }
  return text;
}

// The lines of one side, put together again.
std::string SideOf(std::string_view theirs, std::string_view ours, TDifferenceLine::TKind side) {
  std::string text;
  for (const TDifferenceLine& line : DifferenceOf(theirs, ours)) {
    if (line.Kind == TDifferenceLine::TKind::Same || line.Kind == side) {
      text += line.Text;
      text += '\n';
    }
  }
  return text;
}

TEST(TextDifference, TellsWhichLinesEachSideHas) {
  EXPECT_EQ(Signed("a\nb\nc\n", "a\nB\nc\n"), " a|-b|+B| c|");
  EXPECT_EQ(Signed("a\nc\n", "a\nb\nc\n"), " a|+b| c|");
  EXPECT_EQ(Signed("a\nb\nc\n", "a\nc\n"), " a|-b| c|");
  EXPECT_EQ(Signed("a\nb\nc\na\nb\nb\na\n", "c\nb\na\nb\na\nc\n").size(), 27U);
}

TEST(TextDifference, KnowsEmptyTextsEqualOnesAndOtherEndsOfLines) {
  EXPECT_EQ(Signed("", ""), "");
  EXPECT_EQ(Signed("", "a"), "+a|");
  EXPECT_EQ(Signed("a", ""), "-a|");
  EXPECT_EQ(Signed("a\nb", "a\r\nb\r\n"), " a| b|");
}

TEST(TextDifference, PutsBothSidesTogetherAgain) {
  std::uint32_t state = 1;
  const auto next = [&state] {
    state = state * 1664525U + 1013904223U;
    return state >> 24;
  };
  for (int round = 0; round < 300; ++round) {
    std::string theirs;
    std::string ours;
    for (std::string* side : {&theirs, &ours}) {
      for (unsigned lines = next() % 12; lines > 0; --lines)
        *side += std::string(1, static_cast<char>('a' + next() % 4)) + "\n";
    }
    EXPECT_EQ(SideOf(theirs, ours, TDifferenceLine::TKind::Theirs), theirs);
    EXPECT_EQ(SideOf(theirs, ours, TDifferenceLine::TKind::Ours), ours);
  }
}

TEST(TextDifference, IsBoundedWhereNothingIsTheSame) {
  std::string theirs = "head\n";
  std::string ours = "head\n";
  for (int i = 0; i < 5000; ++i) {
    theirs += "t" + std::to_string(i) + "\n";
    ours += "o" + std::to_string(i) + "\n";
  }
  EXPECT_EQ(DifferenceOf(theirs, ours).size(), 10001U);
}

TEST(TextDifference, TellsTextFromOtherContents) {
  EXPECT_TRUE(IsText("Grüße\n"));
  EXPECT_FALSE(IsText(std::string_view("\x7f"
                                       "ELF\0",
                                       5)));
}

} // namespace
} // namespace workbench
