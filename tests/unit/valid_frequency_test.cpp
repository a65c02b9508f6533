#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>
#include <vector>

#include "core/image/band_plan.h"
#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

// A range of kilohertz, the low end included, the high end not.
struct KilohertzRange {
  Units low;
  Units high;
};
using Coverage = std::vector<KilohertzRange>;

// What a radio receives, by the letter of the versions below.
const Coverage& CoverageOf(char letter) {
  static const Coverage wide_with_gaps = {
      {500, 1'800},       {1'800, 16'000},    {48'000, 59'000},   {59'000, 108'000},
      {108'000, 137'000}, {137'000, 174'000}, {174'000, 222'000}, {222'000, 420'000},
      {420'000, 470'000}, {470'000, 729'000}, {800'000, 824'000}, {849'000, 869'000},
      {894'000, 918'000}, {944'000, 963'000}, {989'000, 999'000}};
  static const Coverage ham_bands = {{50'000, 54'000}, {144'000, 148'000}, {430'000, 450'000}};
  static const Coverage narrow_from_504 = {
      {504, 1'800},       {1'800, 16'000},    {50'000, 54'000},
      {76'000, 88'000},   {88'000, 108'000},  {144'000, 146'000},
      {174'000, 222'000}, {430'000, 440'000}, {470'000, 770'000}};
  static const Coverage wide_from_504 = {{504, 1'800}, {1'800, 16'000}, {48'000, 999'000}};
  static const Coverage smaller_ham_bands = {
      {50'000, 52'000}, {144'000, 146'000}, {430'000, 440'000}};
  static const Coverage smallest_ham_bands = {
      {50'000, 52'000}, {144'000, 146'000}, {432'000, 438'000}};
  static const Coverage nothing;
  switch (letter) {
    case 'A':
      return wide_with_gaps;
    case 'B':
      return ham_bands;
    case 'C':
      return narrow_from_504;
    case 'D':
    case 'E':
      return wide_from_504;
    case 'F':
      return smaller_ham_bands;
    case 'G':
      return smallest_ham_bands;
    default:
      return nothing;
  }
}

bool Holds(const Coverage& coverage, Units f) {
  return std::any_of(coverage.begin(), coverage.end(), [f](const KilohertzRange& range) {
    return f >= range.low * 10 && f < range.high * 10;
  });
}

// By version type: the letters of wide flag 0, 1 and 2, for subtypes 0, 1, .. 6.
constexpr std::array<std::array<std::string_view, 7>, 4> kVersions = {{
    {"BAB", "BAB", "BAB", "BAB", "BAB", "BAB", "BAB"},
    {"CDD", "CDD", "CDD", "CDD", "CDD", "CDD", "CDD"},
    {"CDD", "BAB", "FEF", "FEF", "GEG", "FEF", "-E-"},
    {"---", "---", "---", "---", "---", "---", "---"},
}};

std::unique_ptr<CloneImage> ImageOfVersion(std::size_t type, std::size_t subtype,
                                           std::size_t wide) {
  auto image = MakeImage();
  (*image)[3067] = static_cast<std::uint8_t>(subtype);
  (*image)[3068] = static_cast<std::uint8_t>(type);
  (*image)[3073] = static_cast<std::uint8_t>(wide);
  return image;
}

// Every border of every coverage, minus one, exact and plus one.
const std::vector<Units>& Borders() {
  static const std::vector<Units> all_borders = [] {
    std::vector<Units> borders = {INT_MIN, -1, 0, 1, 9'999'999, INT_MAX};
    for (const char letter : {'A', 'B', 'C', 'D', 'F', 'G'}) {
      for (const KilohertzRange& range : CoverageOf(letter)) {
        for (const Units khz : {range.low, range.high}) {
          borders.insert(borders.end(), {khz * 10 - 1, khz * 10, khz * 10 + 1});
        }
      }
    }
    return borders;
  }();
  return all_borders;
}

TEST(ValidFrequency, IsDecidedByTheVersionBytes) {
  for (std::size_t type = 0; type < 4; ++type) {
    for (std::size_t subtype = 0; subtype < 7; ++subtype) {
      for (std::size_t wide = 0; wide < 3; ++wide) {
        const auto image = ImageOfVersion(type, subtype, wide);
        const Coverage& coverage = CoverageOf(kVersions.at(type).at(subtype)[wide]);
        for (const Units f : Borders()) {
          EXPECT_EQ(IsValidFrequency(*image, f), Holds(coverage, f))
              << f << ", type " << type << ", subtype " << subtype << ", wide " << wide;
        }
      }
    }
  }
}

TEST(ValidFrequency, HoldsOverTheWholeRange) {
  for (const auto& [type, subtype, wide, letter] : {std::tuple{0U, 0U, 1U, 'A'},
                                                    {0U, 1U, 0U, 'B'},
                                                    {1U, 0U, 0U, 'C'},
                                                    {1U, 0U, 1U, 'D'},
                                                    {2U, 3U, 1U, 'E'},
                                                    {2U, 2U, 0U, 'F'},
                                                    {2U, 4U, 0U, 'G'},
                                                    {255U, 255U, 255U, '-'}}) {
    const auto image = ImageOfVersion(type, subtype, wide);
    const Coverage& coverage = CoverageOf(letter);
    for (Units f = 0; f <= 10'100'000; f += 250) {
      ASSERT_EQ(IsValidFrequency(*image, f), Holds(coverage, f)) << letter << ": " << f;
    }
  }
}

TEST(ValidFrequency, IsNarrowForEveryWideFlagBut1OfTheFirstVersions) {
  for (std::size_t wide = 0; wide < 256; ++wide) {
    for (const auto& [type, subtype] : {std::pair{0U, 0U}, {0U, 6U}, {2U, 1U}}) {
      const auto image = ImageOfVersion(type, subtype, wide);
      EXPECT_EQ(IsValidFrequency(*image, 1'625'500), wide == 1) << wide;
      EXPECT_TRUE(IsValidFrequency(*image, 1'465'200)) << wide;
    }
  }
}

TEST(ValidFrequency, IsWideForEveryWideFlagBut0OfTheSecondVersions) {
  for (std::size_t wide = 0; wide < 256; ++wide) {
    for (const auto& [type, subtype] : {std::pair{1U, 0U}, {1U, 6U}, {2U, 0U}}) {
      const auto image = ImageOfVersion(type, subtype, wide);
      EXPECT_EQ(IsValidFrequency(*image, 1'625'500), wide != 0) << wide;
      EXPECT_TRUE(IsValidFrequency(*image, 1'450'000)) << wide;
    }
  }
}

TEST(ValidFrequency, OfTheFirstVersionsIsTheHamBandsWithoutWideCoverage) {
  const auto image = ImageOfVersion(0, 0, 0);
  EXPECT_TRUE(IsValidFrequency(*image, 1'465'200));
  EXPECT_FALSE(IsValidFrequency(*image, 1'625'500));
}

TEST(ValidFrequency, DoesNotDependOnTheRegion) {
  const auto image = ImageOfVersion(0, 0, 1);
  for (const RegionVariant& variant :
       {RegionVariant{.variant = Variant::kOne},
        RegionVariant{.variant = Variant::kTwo, .sub_variant = 6},
        RegionVariant{.variant = Variant::kZero, .extended_version = true}}) {
    const RegionGuard guard(variant);
    EXPECT_TRUE(IsValidFrequency(*image, 5'000));
    EXPECT_TRUE(IsValidFrequency(*image, 1'000'000));
    EXPECT_FALSE(IsValidFrequency(*image, 8'300'000));
    EXPECT_FALSE(IsValidFrequency(*image, 7'290'000));
  }
}

}  // namespace
}  // namespace qz7
