#include "core/link/progress_meter.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

int PercentOf(int count, int total) {
  ProgressMeter meter{.total = total};
  SetProgress(meter, count);
  return meter.percent;
}

TEST(ProgressMeter, StartsAt0Percent) {
  const ProgressMeter meter{.total = 8122};
  EXPECT_EQ(meter.count, 0);
  EXPECT_EQ(meter.percent, 0);
  EXPECT_EQ(ProgressText(meter), "0%");
}

TEST(ProgressMeter, Shows50PercentHalfWay) {
  ProgressMeter meter{.total = 8122};
  SetProgress(meter, 4061);
  EXPECT_EQ(meter.percent, 50);
  EXPECT_EQ(ProgressText(meter), "50%");
}

TEST(ProgressMeter, NeverExceeds100Percent) {
  for (const int count : {8122, 8123, 8128, 9000, 200'000}) {
    ProgressMeter meter{.total = 8122};
    SetProgress(meter, count);
    EXPECT_EQ(meter.count, count);
    EXPECT_EQ(meter.percent, 100) << count;
    EXPECT_EQ(ProgressText(meter), "100%") << count;
  }
}

TEST(ProgressMeter, GoesBackTo0) {
  ProgressMeter meter{.total = 8122};
  SetProgress(meter, 5000);
  SetProgress(meter, 0);
  EXPECT_EQ(meter.count, 0);
  EXPECT_EQ(meter.percent, 0);
}

TEST(ProgressMeter, RoundsThePercentFromTenthsOfAPercent) {
  EXPECT_EQ(PercentOf(4, 1000), 0);
  EXPECT_EQ(PercentOf(5, 1000), 1);
  EXPECT_EQ(PercentOf(14, 1000), 1);
  EXPECT_EQ(PercentOf(15, 1000), 2);
  EXPECT_EQ(PercentOf(994, 1000), 99);
  EXPECT_EQ(PercentOf(995, 1000), 100);
}

TEST(ProgressMeter, DropsWhatIsSmallerThanATenthOfAPercent) {
  EXPECT_EQ(PercentOf(40, 8122), 0);  // 4.92 tenths
  EXPECT_EQ(PercentOf(41, 8122), 1);  // 5.05 tenths
}

}  // namespace
}  // namespace qz7
