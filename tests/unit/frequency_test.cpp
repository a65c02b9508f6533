#include "core/image/frequency.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

TEST(Frequency, CountsHundredsOfHertzWhateverTheUnit) {
  EXPECT_EQ(HundredHertz(1'465'200).hundred_hertz, 1'465'200);
  EXPECT_EQ(Kilohertz(146'520).hundred_hertz, 1'465'200);
  EXPECT_EQ(Megahertz(146).hundred_hertz, 1'460'000);
  EXPECT_EQ(TensOfHertz(14'652'000).hundred_hertz, 1'465'200);
  EXPECT_EQ(Frequency{}.hundred_hertz, 0);
}

TEST(Frequency, LosesWhatTheUnitIsTooCoarseFor) {
  EXPECT_EQ(TensOfHertz(14'651'259), HundredHertz(1'465'125));
  EXPECT_EQ(WholeKilohertz(HundredHertz(1'450'125)), 145'012);
  EXPECT_EQ(WholeKilohertz(HundredHertz(9)), 0);
}

TEST(Frequency, IsTenTimesAsManyTensOfHertz) {
  EXPECT_EQ(InTensOfHertz(HundredHertz(1'450'125)), 14'501'250);
}

TEST(Frequency, IsAddedSubtractedAndCompared) {
  EXPECT_EQ(Megahertz(146) + Kilohertz(600), HundredHertz(1'466'000));
  EXPECT_EQ(Megahertz(146) - Kilohertz(600), HundredHertz(1'454'000));
  EXPECT_EQ(Kilohertz(100) - Kilohertz(600), HundredHertz(-5'000));
  EXPECT_LT(HundredHertz(1'465'199), HundredHertz(1'465'200));
  EXPECT_GT(Megahertz(1), Kilohertz(999));
}

TEST(Frequency, KnowsItsMultiples) {
  EXPECT_EQ(HundredHertz(1'450'125) % Kilohertz(5), HundredHertz(25));
  EXPECT_TRUE(IsMultipleOf(HundredHertz(1'450'125), HundredHertz(125)));
  EXPECT_FALSE(IsMultipleOf(HundredHertz(1'450'125), Kilohertz(5)));
  EXPECT_TRUE(IsMultipleOf({}, Kilohertz(5)));
}

TEST(Frequency, IsOnTheSixKilohertzGridWhereTheUnitCanTell) {
  EXPECT_TRUE(IsOnSixKilohertzGrid(HundredHertz(125)));
  EXPECT_TRUE(IsOnSixKilohertzGrid(Kilohertz(25)));
  EXPECT_FALSE(IsOnSixKilohertzGrid(HundredHertz(62)));
  EXPECT_FALSE(IsOnSixKilohertzGrid(HundredHertz(63)));
  EXPECT_FALSE(IsOnSixKilohertzGrid(Kilohertz(5)));
}

}  // namespace
}  // namespace qz7
