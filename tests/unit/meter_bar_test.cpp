#include "desktop/link/meter_bar.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

TEST(MeterBar, LeavesAFrameOfOnePixel) {
  EXPECT_EQ(InsideMeterFrame(202), 200);
  EXPECT_EQ(InsideMeterFrame(2), 0);
  EXPECT_EQ(InsideMeterFrame(0), 0);
}

TEST(MeterBar, GrowsWithThePercent) {
  EXPECT_EQ(MeterBarOf(0, 200).filled_width, 0);
  EXPECT_EQ(MeterBarOf(50, 200).filled_width, 100);
  EXPECT_EQ(MeterBarOf(100, 200).filled_width, 200);
}

TEST(MeterBar, IsRoundedToWholePixels) {
  EXPECT_EQ(MeterBarOf(1, 50).filled_width, 1);    // half a pixel
  EXPECT_EQ(MeterBarOf(1, 49).filled_width, 0);    // 0.49 pixels
  EXPECT_EQ(MeterBarOf(33, 49).filled_width, 16);  // 16.17 pixels
}

TEST(MeterBar, IsTheSameOnlyWithTheSamePercentAndWidth) {
  EXPECT_EQ(MeterBarOf(1, 200), MeterBarOf(1, 200));
  EXPECT_NE(MeterBarOf(50, 200), MeterBarOf(50, 100));
  // The bar is too short to show it; the text changes.
  EXPECT_EQ(MeterBarOf(1, 10).filled_width, MeterBarOf(2, 10).filled_width);
  EXPECT_NE(MeterBarOf(1, 10), MeterBarOf(2, 10));
}

}  // namespace
}  // namespace qz7
