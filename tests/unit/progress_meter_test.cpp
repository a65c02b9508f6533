#include "core/link/progress_meter.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

ProgressMeter MeterOf(int total, int client_width) {
  ProgressMeter meter;
  BeginProgress(meter, total, client_width, 22);
  return meter;
}

TEST(ProgressMeter, LeavesAFrameOfOnePixel) {
  ProgressMeter meter;
  BeginProgress(meter, 8122, 202, 22);
  EXPECT_EQ(meter.total, 8122);
  EXPECT_EQ(meter.inner_width, 200);
  EXPECT_EQ(meter.inner_height, 20);
}

TEST(ProgressMeter, StartsAt0Percent) {
  ProgressMeter meter = MeterOf(8122, 202);
  SetProgress(meter, 5000);
  BeginProgress(meter, 8122, 102, 12);
  EXPECT_EQ(meter.count, 0);
  EXPECT_EQ(meter.percent, 0);
  EXPECT_EQ(meter.filled_width, 0);
  EXPECT_EQ(ProgressText(meter), "0%");
}

TEST(ProgressMeter, Shows50PercentHalfWay) {
  ProgressMeter meter = MeterOf(8122, 202);
  SetProgress(meter, 4061);
  EXPECT_EQ(meter.percent, 50);
  EXPECT_EQ(meter.filled_width, 100);
  EXPECT_EQ(ProgressText(meter), "50%");
}

TEST(ProgressMeter, Shows100PercentAtTheTotal) {
  ProgressMeter meter = MeterOf(8122, 202);
  SetProgress(meter, 8122);
  EXPECT_EQ(meter.percent, 100);
  EXPECT_EQ(meter.filled_width, 200);
  EXPECT_EQ(ProgressText(meter), "100%");
}

TEST(ProgressMeter, NeverExceeds100Percent) {
  ProgressMeter meter = MeterOf(8122, 202);
  for (const int count : {8123, 8128, 9000, 200'000}) {
    SetProgress(meter, count);
    EXPECT_EQ(meter.percent, 100) << count;
    EXPECT_EQ(meter.filled_width, 200) << count;
    EXPECT_EQ(ProgressText(meter), "100%") << count;
  }
}

TEST(ProgressMeter, RoundsThePercentFromTenthsOfAPercent) {
  ProgressMeter meter = MeterOf(1000, 202);
  SetProgress(meter, 4);
  EXPECT_EQ(meter.percent, 0);
  SetProgress(meter, 5);
  EXPECT_EQ(meter.percent, 1);
  SetProgress(meter, 14);
  EXPECT_EQ(meter.percent, 1);
  SetProgress(meter, 15);
  EXPECT_EQ(meter.percent, 2);
  SetProgress(meter, 994);
  EXPECT_EQ(meter.percent, 99);
  SetProgress(meter, 995);
  EXPECT_EQ(meter.percent, 100);
}

TEST(ProgressMeter, DropsWhatIsSmallerThanATenthOfAPercent) {
  ProgressMeter meter = MeterOf(8122, 202);
  SetProgress(meter, 40);  // 4.92 tenths
  EXPECT_EQ(meter.percent, 0);
  SetProgress(meter, 41);  // 5.05 tenths
  EXPECT_EQ(meter.percent, 1);
}

TEST(ProgressMeter, RoundsTheBarToWholePixels) {
  ProgressMeter meter = MeterOf(100, 52);
  SetProgress(meter, 1);  // half a pixel of 50
  EXPECT_EQ(meter.filled_width, 1);
  meter = MeterOf(100, 51);
  SetProgress(meter, 1);  // 0.49 pixels of 49
  EXPECT_EQ(meter.filled_width, 0);
  SetProgress(meter, 33);  // 16.17 pixels
  EXPECT_EQ(meter.filled_width, 16);
}

TEST(ProgressMeter, ChangesOnlyWithPercentOrBar) {
  ProgressMeter meter = MeterOf(8122, 202);
  EXPECT_FALSE(SetProgress(meter, 0));
  EXPECT_FALSE(SetProgress(meter, 40));
  EXPECT_TRUE(SetProgress(meter, 41));
  EXPECT_FALSE(SetProgress(meter, 42));
  EXPECT_TRUE(SetProgress(meter, 8122));
  EXPECT_FALSE(SetProgress(meter, 8122));
  EXPECT_FALSE(SetProgress(meter, 9000));
  EXPECT_TRUE(SetProgress(meter, 0));
}

TEST(ProgressMeter, ChangesWithThePercentWhenTheBarIsTooShortToShowIt) {
  ProgressMeter meter = MeterOf(100, 12);
  EXPECT_TRUE(SetProgress(meter, 1));
  EXPECT_EQ(meter.filled_width, 0);
  EXPECT_TRUE(SetProgress(meter, 2));
  EXPECT_EQ(meter.filled_width, 0);
}

TEST(ProgressMeter, CountsWhileNothingIsToBePainted) {
  ProgressMeter meter = MeterOf(8122, 202);
  EXPECT_FALSE(SetProgress(meter, 26));
  EXPECT_EQ(meter.count, 26);
}

}  // namespace
}  // namespace qz7
