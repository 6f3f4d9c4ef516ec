#include "package/common/delimited_list.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TItems = std::vector<std::string_view>;

TEST(DelimitedList, KeepsBlanksAndEmptyItems) {
  EXPECT_EQ(SplitDelimited(" a; b ;;c"), (TItems{" a", " b ", "", "c"}));
  EXPECT_EQ(SplitDelimited(";"), (TItems{"", ""}));
  EXPECT_EQ(SplitDelimited("a"), TItems{"a"});
  EXPECT_EQ(SplitDelimited("a|b;c", '|'), (TItems{"a", "b;c"}));
}

TEST(DelimitedList, HasNoItemsInAnEmptyText) {
  EXPECT_TRUE(SplitDelimited("").empty());
  EXPECT_EQ(JoinDelimited({}), "");
}

TEST(DelimitedList, JoinsInOrder) {
  EXPECT_EQ(JoinDelimited({"a", "", "c"}), "a;;c");
  EXPECT_EQ(JoinDelimited({"one", "two"}, "\r\n"), "one\r\ntwo");
}

} // namespace
} // namespace deployment
