#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

TEST(DefaultStep, FollowsTheBand) {
  struct Case {
    Units f;
    int step;
  };
  constexpr std::array kCases = {
      Case{9'000, 1},     Case{71'000, 0},    Case{881'000, 5},   Case{2'000'000, 6},
      Case{5'000'000, 6}, Case{500'000, 1},   Case{1'450'000, 0}, Case{4'330'000, 5},
      Case{1'200'000, 5}, Case{3'000'000, 2}, Case{8'100'000, 1}, Case{0, 0},
      Case{300'000, 0},   Case{8'300'000, 0}, Case{9'995'000, 0},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(DefaultStep(c.f), c.step) << c.f;
  }
}

TEST(DefaultStep, OfMwIs9KilohertzForTheExtendedVersion) {
  EXPECT_EQ(DefaultStep(9'000), 1);
  const RegionGuard guard({.extended_version = true});
  EXPECT_EQ(DefaultStep(9'000), 8);
  EXPECT_EQ(DefaultStep(18'000), 0);
  EXPECT_EQ(DefaultStep(8'300'000), 1);
}

TEST(DefaultBandOffset, IsSetForThreeBandsOnly) {
  struct Case {
    Units f;
    Units offset;
  };
  constexpr std::array kCases = {
      Case{520'000, 5'000},
      Case{1'450'000, 6'000},
      Case{4'330'000, 50'000},
      Case{9'000, 0},
      Case{71'000, 0},
      Case{881'000, 0},
      Case{2'000'000, 0},
      Case{1'200'000, 0},
      Case{3'000'000, 0},
      Case{8'100'000, 0},
      Case{0, 0},
      Case{300'000, 0},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(DefaultBandOffset(c.f), c.offset) << c.f;
  }
}

TEST(DefaultBandFrequency, IsKnownForEveryBand) {
  constexpr std::array kFrequencies = {5'400,     18'000,    880'000,   1'740'000, 520'000,
                                       1'450'000, 4'300'000, 1'080'000, 3'800'000, 8'000'000};
  for (int band = 0; band < 10; ++band) {
    EXPECT_EQ(DefaultBandFrequency(band), kFrequencies.at(static_cast<std::size_t>(band))) << band;
  }
}

constexpr const char* kShortList = "10 kHz=1 12.5 kHz=2 20 kHz=3 25 kHz=5 50 kHz=6 100 kHz=7 ";
constexpr const char* kFullList =
    "5 kHz=0 10 kHz=1 12.5 kHz=2 15 kHz=3 20 kHz=4 25 kHz=5 50 kHz=6 100 kHz=7 ";
constexpr const char* kExtendedList =
    "5 kHz=0 9 kHz=8 10 kHz=1 12.5 kHz=2 15 kHz=3 20 kHz=4 25 kHz=5 50 kHz=6 100 kHz=7 ";

std::string ListText(std::optional<Units> f, int n) {
  std::string text;
  for (const StepChoice& choice : FillStepList(f, n)) {
    text += std::string(choice.text) + "=" + std::to_string(static_cast<int>(choice.step)) + " ";
  }
  return text;
}

TEST(StepList, Stores20KilohertzOfTheShortListAsThe15KilohertzStep) {
  const std::vector<StepChoice> choices = FillStepList(500'000, 1);
  ASSERT_EQ(choices.size(), 6U);
  EXPECT_STREQ(choices[2].text, "20 kHz");
  EXPECT_EQ(choices[2].step, 3);
  EXPECT_STREQ(kStepNames[3], "15 kHz");
}

TEST(StepList, Offers9KilohertzOnlyForTheExtendedVersion) {
  EXPECT_EQ(ListText(1'450'000, 1), kFullList);
  EXPECT_EQ(ListText(std::nullopt, 1), kFullList);
  EXPECT_EQ(ListText(500'000, 1), kShortList);
  const RegionGuard guard({.extended_version = true});
  EXPECT_EQ(ListText(1'450'000, 1), kExtendedList);
  EXPECT_EQ(ListText(std::nullopt, 1), kExtendedList);
  EXPECT_EQ(ListText(500'000, 1), kShortList);
  EXPECT_EQ(ListText(std::nullopt, -3), kShortList);
}

TEST(StepList, IsShortForTheFm6mAndAct2SlotsWithoutAFrequency) {
  for (int n = -40; n <= 300; ++n) {
    const bool is_short = n == -3 || n == -13 || n == -23 || n == -5 || n == -15 || n == -25 ||
                          n == -10 || n == -20 || n == -30;
    EXPECT_EQ(ListText(std::nullopt, n), is_short ? kShortList : kFullList) << n;
  }
}

struct ListBorder {
  Units from;
  bool is_short;
};

void ExpectListBorders(const std::vector<ListBorder>& borders) {
  for (const ListBorder& border : borders) {
    for (const int n : {1, 240, -1, -3, -30}) {
      EXPECT_EQ(ListText(border.from - 1, n), border.is_short ? kFullList : kShortList)
          << border.from << ": " << n;
      EXPECT_EQ(ListText(border.from, n), border.is_short ? kShortList : kFullList)
          << border.from << ": " << n;
    }
  }
}

TEST(StepList, FollowsTheFrequencyAloneOnceThereIsOne) {
  ExpectListBorders({{480'000, true},
                     {1'080'001, false},
                     {2'500'000, true},
                     {3'000'000, false},
                     {5'800'000, true},
                     {9'990'001, false}});
  EXPECT_EQ(ListText(0, -3), kFullList);
  EXPECT_EQ(ListText(8'300'000, 1), kShortList);
}

TEST(StepList, FollowsTheBandsOfTheOtherRegions) {
  {
    const RegionGuard guard({.variant = Variant::kOne});
    ExpectListBorders({{480'000, true},
                       {880'001, false},
                       {2'500'000, true},
                       {3'000'000, false},
                       {5'800'000, true},
                       {9'990'001, false}});
  }
  const RegionGuard guard({.variant = Variant::kTwo, .sub_variant = 6});
  ExpectListBorders({{480'000, true},
                     {760'000, false},
                     {2'500'000, true},
                     {3'000'000, false},
                     {5'800'000, true},
                     {9'990'000, false}});
}

// There the 6m band reaches up to 88 MHz, where FM begins.
TEST(StepList, IsShortInAllOfThe6mBandOfTheLaterSubVariants) {
  const RegionGuard guard({.variant = Variant::kTwo, .sub_variant = 4});
  ExpectListBorders({{480'000, true},
                     {1'080'001, false},
                     {2'500'000, true},
                     {3'000'000, false},
                     {5'800'000, true},
                     {9'990'001, false}});
  EXPECT_EQ(ListText(820'000, 1), kShortList);
}

TEST(OffsetChoices, AreTheUsualSix) {
  const std::vector<std::string> choices(kOffsetChoices.begin(), kOffsetChoices.end());
  EXPECT_EQ(choices,
            (std::vector<std::string>{"600 kHz", "1 MHz", "1.6 MHz", "3 MHz", "5 MHz", "7.6 MHz"}));
}

TEST(ChoiceNames, AreThoseOfTheRadio) {
  EXPECT_EQ(std::vector<std::string>(kStepNames.begin(), kStepNames.end()),
            (std::vector<std::string>{"5 kHz", "10 kHz", "12.5 kHz", "15 kHz", "20 kHz", "25 kHz",
                                      "50 kHz", "100 kHz", "9 kHz"}));
  EXPECT_EQ(std::vector<std::string>(kModeNames.begin(), kModeNames.end()),
            (std::vector<std::string>{"FM-Narrow", "AM", "FM-Wide"}));
  EXPECT_EQ(std::vector<std::string>(kPowerNames.begin(), kPowerNames.end()),
            (std::vector<std::string>{"Low1", "Low2", "Low3", "High"}));
  EXPECT_EQ(std::vector<std::string>(kToneModeNames.begin(), kToneModeNames.end()),
            (std::vector<std::string>{"None", "Tone Encode", "Tone Squelch", "DCS"}));
}

}  // namespace
}  // namespace qz7
