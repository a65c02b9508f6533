#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string_view>

#include "core/image/channel_record.h"
#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

// A frequency in whole units of 100 Hz is a multiple of 6.25 kHz where it is one of 12.5 kHz.
int ClassOutsideMw(Units f) { return f % 50 == 0 ? 0 : f % 125 == 0 ? 1 : 5; }

TEST(GridClass, TellsTheGridsApart) {
  EXPECT_EQ(GridClass(1'450'125), 1);
  EXPECT_EQ(GridClass(1'450'000), 0);
  EXPECT_EQ(GridClass(1'450'010), 5);
  EXPECT_EQ(GridClass(1'450'050), 0);
  EXPECT_EQ(GridClass(1'450'375), 1);
  EXPECT_EQ(GridClass(1'450'062), 5);
  EXPECT_EQ(GridClass(0), 0);
}

TEST(GridClass, HoldsForEveryStepOfAMegahertz) {
  for (Units f = 1'450'000; f <= 1'460'000; ++f) {
    ASSERT_EQ(GridClass(f), ClassOutsideMw(f)) << f;
  }
}

TEST(GridClass, KnowsNo9KilohertzGridInRegion0) {
  for (Units f = 4'000; f <= 19'000; ++f) {
    ASSERT_EQ(GridClass(f), ClassOutsideMw(f)) << f;
  }
}

TEST(GridClass, KnowsOnlyThe9KilohertzGridInMwOfTheOtherRegions) {
  for (const RegionVariant& variant :
       {RegionVariant{.variant = Variant::kOne}, RegionVariant{.variant = Variant::kTwo},
        RegionVariant{.variant = Variant::kTwo, .sub_variant = 6}}) {
    const RegionGuard guard(variant);
    EXPECT_EQ(GridClass(5'040), 2);
    EXPECT_EQ(GridClass(5'310), 2);
    EXPECT_EQ(GridClass(5'400), 2);
    EXPECT_EQ(GridClass(5'350), 5);
    EXPECT_EQ(GridClass(10'000), 5);
    for (Units f = 4'000; f <= 19'000; ++f) {
      const bool in_mw = f >= 5'040 && f < 18'000;
      ASSERT_EQ(GridClass(f), !in_mw ? ClassOutsideMw(f) : f % 9 == 0 ? 2 : 5) << f;
    }
  }
}

TEST(GridClass, HoldsForHugeFrequencies) {
  EXPECT_EQ(GridClass(INT_MAX), 5);
  EXPECT_EQ(GridClass(2'147'483'600), 0);
  EXPECT_EQ(GridClass(2'147'483'625), 1);
  EXPECT_EQ(GridClass(2'147'483'500), 0);
  EXPECT_EQ(GridClass(214'748'375), 1);
}

struct OffStepCase {
  int khz;
  std::string_view flags;  // of step 0, 1, .. 8: 5, 10, 12.5, 15, 20, 25, 50, 100, 9 kHz
};

constexpr std::array kOffStepCases = {
    OffStepCase{0, "000000000"},       OffStepCase{512, "110111111"},
    OffStepCase{531, "111111110"},     OffStepCase{144'900, "000000000"},
    OffStepCase{145'000, "000100001"}, OffStepCase{145'005, "001011111"},
    OffStepCase{145'010, "001111111"}, OffStepCase{145'012, "110111111"},
    OffStepCase{145'013, "111111111"}, OffStepCase{145'020, "001001111"},
    OffStepCase{145'025, "000110111"}, OffStepCase{145'037, "110111111"},
    OffStepCase{145'050, "000010011"}, OffStepCase{145'062, "110111110"},
    OffStepCase{145'080, "001001110"}, OffStepCase{145'100, "000100001"},
    OffStepCase{145'125, "000010110"},
};

TEST(OffStepFlag, HoldsForEveryStepIndex) {
  for (const OffStepCase& c : kOffStepCases) {
    for (int step = 0; step < 256; ++step) {
      const bool off_step = step > 8 || c.flags[static_cast<std::size_t>(step)] == '1';
      EXPECT_EQ(IsOffStep(c.khz * 10, step), off_step) << c.khz << " kHz, step " << step;
    }
  }
}

TEST(OffStepFlag, LooksAtWholeKilohertz) {
  for (const OffStepCase& c : kOffStepCases) {
    for (int step = 0; step < 10; ++step) {
      EXPECT_EQ(IsOffStep(c.khz * 10 + 5, step), IsOffStep(c.khz * 10, step)) << c.khz;
      EXPECT_EQ(IsOffStep(c.khz * 10 + 9, step), IsOffStep(c.khz * 10, step)) << c.khz;
    }
  }
}

TEST(OffStepFlag, Takes5KilohertzAsOnTheTenKilohertzStep) {
  EXPECT_FALSE(IsOffStep(1'450'050, 1));
  EXPECT_FALSE(IsOffStep(1'450'100, 1));
  EXPECT_TRUE(IsOffStep(1'450'025, 1));
  for (Units khz = 144'000; khz <= 146'000; ++khz) {
    EXPECT_EQ(IsOffStep(khz * 10, 1), khz % 5 != 0) << khz;
  }
}

TEST(OffStepFlag, Of12Point5KilohertzIsClearAt0And12Of25Kilohertz) {
  for (Units khz = 144'000; khz <= 146'000; ++khz) {
    EXPECT_EQ(IsOffStep(khz * 10, 2), khz % 25 != 0 && khz % 25 != 12) << khz;
  }
}

TEST(OffStepFlag, Of12Point5KilohertzFollowsTheGridOfTheRegionInMw) {
  EXPECT_FALSE(IsOffStep(5'120, 2));
  EXPECT_FALSE(IsOffStep(5'250, 2));
  const RegionGuard guard({.variant = Variant::kOne});
  EXPECT_TRUE(IsOffStep(5'120, 2));
  EXPECT_FALSE(IsOffStep(5'250, 2));
}

}  // namespace
}  // namespace qz7
