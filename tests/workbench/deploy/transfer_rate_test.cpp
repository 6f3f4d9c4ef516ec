#include "workbench/deploy/transfer_rate.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

using namespace std::chrono_literals;

const TTransferRate::TTime Start{1h};

TEST(TransferRate, IsThatOfTheTimeSinceTheStartAtFirst) {
  TTransferRate rate;
  rate.Start(1000, Start);
  EXPECT_EQ(rate.BytesPerSecond(Start), 0);
  EXPECT_FALSE(rate.TimeLeft(Start));
  rate.Add(200, Start + 2s);
  EXPECT_DOUBLE_EQ(rate.BytesPerSecond(Start + 2s), 100);
  EXPECT_DOUBLE_EQ(rate.TimeLeft(Start + 2s)->count(), 8);
  EXPECT_DOUBLE_EQ(rate.Share(), 0.2);
}

TEST(TransferRate, FollowsALineThatGetsSlower) {
  TTransferRate rate;
  rate.Start(100000, Start);
  for (int second = 1; second <= 10; ++second)
    rate.Add(1000, Start + std::chrono::seconds(second));
  for (int second = 11; second <= 20; ++second)
    rate.Add(10, Start + std::chrono::seconds(second));
  EXPECT_EQ(rate.Sent(), 10100U);
  EXPECT_DOUBLE_EQ(rate.BytesPerSecond(Start + 20s), 10);
}

TEST(TransferRate, FallsToNothingOnALineThatHangs) {
  TTransferRate rate;
  rate.Start(1000, Start);
  rate.Add(500, Start + 1s);
  EXPECT_GT(rate.BytesPerSecond(Start + 3s), 0);
  EXPECT_EQ(rate.BytesPerSecond(Start + 60s), 0);
  EXPECT_FALSE(rate.TimeLeft(Start + 60s));
}

TEST(TransferRate, CountsManySmallBlocksWhole) {
  TTransferRate rate;
  rate.Start(100000, Start);
  for (int block = 1; block <= 10000; ++block)
    rate.Add(10, Start + std::chrono::milliseconds(block));
  EXPECT_EQ(rate.Sent(), 100000U);
  EXPECT_NEAR(rate.BytesPerSecond(Start + 10s), 10000, 200);
  EXPECT_FALSE(rate.TimeLeft(Start + 10s));
}

TEST(TransferRate, IsCompleteWhenThereIsNothingToSend) {
  TTransferRate rate;
  EXPECT_EQ(rate.BytesPerSecond(Start), 0);
  rate.Start(0, Start);
  EXPECT_EQ(rate.Share(), 1);
  rate.Add(5, Start + 1s);
  EXPECT_EQ(rate.Share(), 1);
}

TEST(TransferRate, WritesTimesAsPeopleDo) {
  EXPECT_EQ(DurationText(7s), "0:07");
  EXPECT_EQ(DurationText(12min + 34s), "12:34");
  EXPECT_EQ(DurationText(1h + 2min + 3s), "1:02:03");
  EXPECT_EQ(DurationText(-1s), "0:00");
}

} // namespace
} // namespace workbench
