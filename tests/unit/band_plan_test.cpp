#include "core/image/band_plan.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <vector>

#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

constexpr int kNone = 10;

// From `from` on, up to the next border, a frequency is in this band.
struct Border {
  Units from;
  int band;
};
using BorderList = std::vector<Border>;

// MW and SW, alike everywhere but for the low end of MW.
BorderList LowBands(Units mw) { return {{INT_MIN, kNone}, {mw, 0}, {18'000, 1}, {160'000, kNone}}; }

BorderList Joined(BorderList list, const BorderList& more) {
  list.insert(list.end(), more.begin(), more.end());
  return list;
}

const BorderList& From59To800() {
  static const BorderList list = {{480'000, 4},   {590'000, 2},   {1'080'001, 7},
                                  {1'370'000, 5}, {1'740'000, 3}, {2'220'000, 8},
                                  {4'200'000, 6}, {4'700'000, 3}, {7'290'000, kNone}};
  return list;
}

const BorderList& Act2WithCellularBlocks() {
  static const BorderList list = {{8'000'000, 9},     {8'239'901, kNone}, {8'490'000, 9},
                                  {8'679'901, kNone}, {8'940'000, 9},     {9'179'901, kNone},
                                  {9'440'000, 9},     {9'629'901, kNone}, {9'890'000, 9},
                                  {9'990'001, kNone}};
  return list;
}

const BorderList& WholeAct2() {
  static const BorderList list = {{8'000'000, 9}, {9'990'001, kNone}};
  return list;
}

const BorderList& From76To999() {
  static const BorderList list = {{480'000, 4},   {760'000, 2},   {880'001, 3},      {1'080'000, 7},
                                  {1'370'000, 5}, {1'740'000, 3}, {2'220'000, 8},    {4'200'000, 6},
                                  {4'700'000, 3}, {7'700'000, 9}, {9'990'001, kNone}};
  return list;
}

const BorderList& From88To999() {
  static const BorderList list = {{480'000, 4},   {880'000, 2},      {1'080'001, 7}, {1'370'000, 5},
                                  {1'740'000, 3}, {2'220'000, 8},    {4'200'000, 6}, {4'700'000, 3},
                                  {8'000'000, 9}, {9'990'001, kNone}};
  return list;
}

const BorderList& WithoutFmAnd6m() {
  static const BorderList list = {{1'080'000, 7}, {1'370'000, 5}, {1'740'000, kNone},
                                  {2'220'000, 8}, {4'200'000, 6}, {4'700'000, kNone}};
  return list;
}

struct Plan {
  RegionVariant variant;
  BorderList borders;
};

std::vector<Plan> Plans() {
  std::vector<Plan> plans = {
      {{.variant = Variant::kZero},
       Joined(Joined(LowBands(5'000), From59To800()), Act2WithCellularBlocks())},
      {{.variant = Variant::kZero, .extended_version = true},
       Joined(Joined(LowBands(5'000), From59To800()), WholeAct2())},
      {{.variant = Variant::kOne}, Joined(LowBands(5'040), From76To999())},
      {{.variant = Variant::kOne, .extended_version = true},
       Joined(LowBands(5'040), From76To999())},
      {{.variant = Variant::kTwo, .sub_variant = 0}, Joined(LowBands(5'040), From76To999())},
      {{.variant = Variant::kTwo, .sub_variant = 1},
       Joined(Joined(LowBands(5'040), From59To800()), Act2WithCellularBlocks())},
      {{.variant = Variant::kTwo, .sub_variant = 1, .extended_version = true},
       Joined(Joined(LowBands(5'040), From59To800()), WholeAct2())}};
  for (const int sub_variant : {2, 3, 4, 5}) {
    plans.push_back({{.variant = Variant::kTwo, .sub_variant = sub_variant},
                     Joined(LowBands(5'040), From88To999())});
  }
  for (const int sub_variant : {6, 7, 255}) {
    plans.push_back({{.variant = Variant::kTwo, .sub_variant = sub_variant},
                     Joined(LowBands(5'040), WithoutFmAnd6m())});
  }
  return plans;
}

std::string NameOf(const RegionVariant& variant) {
  return "region " + std::to_string(static_cast<int>(variant.variant)) + ", sub variant " +
         std::to_string(variant.sub_variant) + (variant.extended_version ? ", extended" : "");
}

TEST(BandOf, ChangesExactlyAtTheBordersOfEveryRegion) {
  for (const Plan& plan : Plans()) {
    SCOPED_TRACE(NameOf(plan.variant));
    const RegionGuard guard(plan.variant);
    for (std::size_t i = 1; i < plan.borders.size(); ++i) {
      const Border& border = plan.borders[i];
      EXPECT_EQ(BandOf(border.from - 1), plan.borders[i - 1].band) << border.from;
      EXPECT_EQ(BandOf(border.from), border.band) << border.from;
      EXPECT_EQ(BandOf(border.from + 1), border.band) << border.from;
    }
  }
}

TEST(BandOf, StaysTheSameBetweenTheBorders) {
  for (const Plan& plan : Plans()) {
    SCOPED_TRACE(NameOf(plan.variant));
    const RegionGuard guard(plan.variant);
    std::size_t i = 0;
    for (Units f = -100; f <= 10'100'000; f += 25) {
      while (i + 1 < plan.borders.size() && f >= plan.borders[i + 1].from) {
        ++i;
      }
      ASSERT_EQ(BandOf(f), plan.borders[i].band) << f;
    }
    EXPECT_EQ(BandOf(INT_MAX), kNone);
    EXPECT_EQ(BandOf(INT_MIN), kNone);
  }
}

TEST(BandOf, StartsMwAt504KilohertzOutsideRegion0) {
  EXPECT_EQ(BandOf(5'020), 0);
  const RegionGuard guard({.variant = Variant::kOne});
  EXPECT_EQ(BandOf(5'020), 10);
}

TEST(BandOf, TakesTheUpperEndOfFmBeforeTv) {
  EXPECT_EQ(BandOf(880'000), 2);
  const RegionGuard guard({.variant = Variant::kOne});
  EXPECT_EQ(BandOf(880'000), 2);
  EXPECT_EQ(BandOf(880'001), 3);
}

TEST(BandOf, LeavesTheCellularBlocksOutUnlessTheVersionIsExtended) {
  EXPECT_EQ(BandOf(8'300'000), 10);
  const RegionGuard guard({.extended_version = true});
  EXPECT_EQ(BandOf(8'300'000), 9);
}

TEST(BandOf, KnowsNeitherFmNor6mAboveSubVariant5) {
  for (const int sub_variant : {6, 7, 100}) {
    const RegionGuard guard({.variant = Variant::kTwo, .sub_variant = sub_variant});
    for (const Units f : {480'000, 500'000, 590'000, 760'000, 880'000, 1'000'000}) {
      EXPECT_EQ(BandOf(f), 10) << f;
      EXPECT_FALSE(InBand(2, f)) << f;
      EXPECT_FALSE(InBand(4, f)) << f;
    }
  }
}

TEST(InBand, IsFalseForABandThatDoesNotExist) {
  for (const int band : {10, 11, 255}) {
    for (const Units f : {0, 10'000, 1'450'000, 4'330'000, 9'999'999}) {
      EXPECT_FALSE(InBand(band, f)) << band << ": " << f;
    }
  }
}

// A range of a band, both ends included.
struct Range {
  Units first;
  Units last;
};
using RangeList = std::vector<Range>;

bool Holds(const RangeList& ranges, Units f) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [f](const Range& range) { return f >= range.first && f <= range.last; });
}

void ExpectRanges(int band, const RangeList& ranges) {
  SCOPED_TRACE("band " + std::to_string(band));
  for (const Range& range : ranges) {
    for (const Units end : {range.first, range.last}) {
      for (const Units f : {end - 1, end, end + 1}) {
        EXPECT_EQ(InBand(band, f), Holds(ranges, f)) << f;
      }
    }
  }
  for (Units f = 0; f <= 10'100'000; f += 995) {
    ASSERT_EQ(InBand(band, f), Holds(ranges, f)) << f;
  }
}

RangeList Act2AroundTheCellularBlocks() {
  return {{8'000'000, 8'239'900},
          {8'490'000, 8'679'900},
          {8'940'000, 9'179'900},
          {9'440'000, 9'629'900},
          {9'890'000, 9'990'000}};
}

TEST(InBand, HoldsTheBandsThatAreAlikeInEveryRegion) {
  for (const Plan& plan : Plans()) {
    SCOPED_TRACE(NameOf(plan.variant));
    const RegionGuard guard(plan.variant);
    ExpectRanges(0, {{plan.variant.variant == Variant::kZero ? 5'000 : 5'040, 17'999}});
    ExpectRanges(1, {{18'000, 159'999}});
    ExpectRanges(5, {{1'370'000, 1'739'999}});
    ExpectRanges(6, {{4'200'000, 4'699'999}});
    ExpectRanges(7, {{1'080'000, 1'369'999}});
    ExpectRanges(8, {{2'220'000, 4'199'999}});
  }
}

TEST(InBand, HoldsTheBandsOfRegion0) {
  ExpectRanges(2, {{590'000, 1'080'000}});
  ExpectRanges(3, {{1'740'000, 2'219'999}, {4'700'000, 7'289'999}});
  ExpectRanges(4, {{480'000, 589'999}});
  ExpectRanges(9, Act2AroundTheCellularBlocks());
  const RegionGuard guard({.extended_version = true});
  ExpectRanges(9, {{8'000'000, 9'990'000}});
}

TEST(InBand, HoldsTheBandsOfRegion1AndOfSubVariant0) {
  for (const RegionVariant& variant : {RegionVariant{.variant = Variant::kOne},
                                       RegionVariant{.variant = Variant::kOne, .sub_variant = 6},
                                       RegionVariant{.variant = Variant::kTwo, .sub_variant = 0}}) {
    const RegionGuard guard(variant);
    ExpectRanges(2, {{760'000, 880'000}});
    ExpectRanges(3, {{880'000, 1'079'999}, {1'740'000, 2'219'999}, {4'700'000, 7'699'999}});
    ExpectRanges(4, {{480'000, 759'999}});
    ExpectRanges(9, {{7'700'000, 9'990'000}});
  }
}

TEST(InBand, HoldsTheBandsOfSubVariant1) {
  const RegionGuard guard({.variant = Variant::kTwo, .sub_variant = 1});
  ExpectRanges(2, {{590'000, 1'080'000}});
  ExpectRanges(3, {{1'740'000, 2'219'999}, {4'700'000, 7'289'999}});
  ExpectRanges(4, {{480'000, 589'999}});
  ExpectRanges(9, Act2AroundTheCellularBlocks());
}

TEST(InBand, HoldsTheBandsOfSubVariants2To5) {
  for (const int sub_variant : {2, 3, 4, 5}) {
    const RegionGuard guard({.variant = Variant::kTwo, .sub_variant = sub_variant});
    ExpectRanges(2, {{880'000, 1'080'000}});
    ExpectRanges(3, {{1'740'000, 2'219'999}, {4'700'000, 7'999'999}});
    ExpectRanges(4, {{480'000, 879'999}});
    ExpectRanges(9, {{8'000'000, 9'990'000}});
  }
}

TEST(InBand, HoldsNoFmTv6mOrAct2AboveSubVariant5) {
  const RegionGuard guard({.variant = Variant::kTwo, .sub_variant = 6});
  for (const int band : {2, 3, 4, 9}) {
    ExpectRanges(band, {});
  }
}

}  // namespace
}  // namespace qz7
