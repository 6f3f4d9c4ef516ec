#include "package/common/convert.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

TEST(Convert, ReadsBooleansInAnyCase) {
  EXPECT_EQ(TextToBoolean("true"), true);
  EXPECT_EQ(TextToBoolean(" True\n"), true);
  EXPECT_EQ(TextToBoolean("FALSE"), false);
  EXPECT_EQ(TextToBoolean("1"), true);
  EXPECT_EQ(TextToBoolean("0"), false);
}

TEST(Convert, RefusesOtherBooleans) {
  for (const char* text : {"", " ", "yes", "-1", "2", "tru", "true false"})
    EXPECT_EQ(TextToBoolean(text), std::nullopt) << text;
}

TEST(Convert, ReadsWhatItWrites) {
  EXPECT_EQ(TextToBoolean(BooleanToText(true)), true);
  EXPECT_EQ(TextToBoolean(BooleanToText(false)), false);
}

TEST(Convert, ReadsIntegersOf32Bits) {
  EXPECT_EQ(TextToInteger(" 42 "), 42);
  EXPECT_EQ(TextToInteger("-7"), -7);
  EXPECT_EQ(TextToInteger("+7"), 7);
  EXPECT_EQ(TextToInteger("2147483647"), 2147483647);
  for (const char* text : {"", " ", "+", "+-1", "1.0", "0x10", "2147483648", "1 2", "six"})
    EXPECT_EQ(TextToInteger(text), std::nullopt) << text;
}

} // namespace
} // namespace deployment
