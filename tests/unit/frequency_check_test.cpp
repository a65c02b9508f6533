#include "core/image/frequency_check.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string_view>

#include "core/image/channel_record.h"
#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

constexpr const char* kTooLarge = "Tx Shift must be less than 99.95MHz.";
constexpr const char* kOffGrid = "Tx Shift must be a 50kHz step.";

TEST(CheckOffset, TakesMultiplesOf5KilohertzUpTo99Point95Megahertz) {
  struct Case {
    std::string_view text;
    Units offset;
  };
  constexpr std::array kCases = {
      Case{"600 kHz", 6'000},
      Case{"1.6 MHz", 16'000},
      Case{"99.95", 999'500},
      Case{"99.95 MHz", 999'500},
      Case{"1.605 MHz", 16'050},
      Case{"5 kHz", 50},
      Case{"0", 0},
      Case{"", 0},
      Case{"5000", 50'000},
      Case{"99.9450", 999'450},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(ParseOffset(c.text), c.offset) << c.text;
    EXPECT_EQ(CheckOffset(HundredHertz(c.offset)), nullptr) << c.text;
  }
}

TEST(CheckOffset, SpeaksOf50KilohertzButTests5) {
  EXPECT_EQ(CheckOffset(Kilohertz(1605)), nullptr);
  EXPECT_STREQ(CheckOffset(Kilohertz(1604)), kOffGrid);
}

TEST(CheckOffset, RefusesWhatIsTooLargeOrOffTheGrid) {
  struct Case {
    std::string_view text;
    const char* message;
  };
  constexpr std::array kCases = {
      Case{"99.9501", kTooLarge},
      Case{"99.9550", kTooLarge},
      Case{"100 MHz", kTooLarge},
      Case{"600", kTooLarge},
      Case{"999", kTooLarge},
      Case{"99.9499", kOffGrid},
      Case{"0.6001", kOffGrid},
      Case{"12.5125", kOffGrid},
      Case{"1 kHz", kOffGrid},
      Case{"0.0049", kOffGrid},
      Case{"99999999999999999999", kTooLarge},
  };
  for (const Case& c : kCases) {
    EXPECT_STREQ(CheckOffset(ParseOffset(c.text)), c.message) << c.text;
  }
}

TEST(CheckOffset, HoldsForEveryOffset) {
  for (Units o = 0; o <= 1'000'200; ++o) {
    ASSERT_EQ(CheckOffset(HundredHertz(o)) == nullptr, o <= 999'500 && o % 50 == 0) << o;
  }
}

TEST(FrequencyMessages, AreTheEditorsTexts) {
  EXPECT_STREQ(kReceiveRefused, "A valid receive frequency is required");
  EXPECT_STREQ(kTransmitRefused, "A valid transmit frequency is required");
  EXPECT_STREQ(kOffsetErrorTitle, "Tx Shift Error");
}

struct TransmitCase {
  Units receive;
  Shift shift;
  Units offset;
  Units transmit;
};

TEST(RecomputeTransmit, FollowsTheShift) {
  constexpr Units kField = 4'460'000;
  constexpr std::array kCases = {
      TransmitCase{1'450'000, Shift::kSimplex, 6'000, 1'450'000},
      TransmitCase{1'450'000, Shift::kMinus, 6'000, 1'444'000},
      TransmitCase{1'450'000, Shift::kPlus, 6'000, 1'456'000},
      TransmitCase{1'450'000, Shift::kOddSplit, 6'000, kField},
      TransmitCase{6'000, Shift::kMinus, 6'000, 0},
      TransmitCase{0, Shift::kOddSplit, 6'000, kField},
  };
  for (const TransmitCase& c : kCases) {
    EXPECT_EQ(RecomputeTransmit(HundredHertz(c.receive), c.shift, HundredHertz(c.offset),
                                HundredHertz(kField)),
              c.transmit)
        << c.receive << ": " << c.shift;
  }
}

TEST(RecomputeTransmit, FallsBackToReceive) {
  constexpr std::array kCases = {
      TransmitCase{9'990'000, Shift::kPlus, 9'000, 9'999'000},  // the last that is taken
      TransmitCase{9'990'000, Shift::kPlus, 9'001, 9'990'000},
      TransmitCase{9'990'000, Shift::kPlus, 999'500, 9'990'000},
      TransmitCase{6'000, Shift::kMinus, 6'001, 6'000},
      TransmitCase{0, Shift::kPlus, 6'000, 0},
      TransmitCase{0, Shift::kMinus, 6'000, 0},
      TransmitCase{0, Shift::kSimplex, 6'000, 0},
      TransmitCase{INT_MAX, Shift::kPlus, INT_MAX, INT_MAX},
      TransmitCase{INT_MAX, Shift::kSimplex, INT_MAX, INT_MAX},
      TransmitCase{INT_MAX, Shift::kMinus, 0, INT_MAX},
      TransmitCase{5'000, Shift::kMinus, INT_MAX, 5'000},
  };
  for (const TransmitCase& c : kCases) {
    EXPECT_EQ(RecomputeTransmit(HundredHertz(c.receive), c.shift, HundredHertz(c.offset),
                                HundredHertz(4'460'000)),
              c.transmit)
        << c.receive << ": " << c.shift << ", " << c.offset;
  }
}

// A radio of version type 0 with wide coverage.
std::unique_ptr<CloneImage> WideImage() {
  auto image = MakeImage();
  (*image)[3073] = 1;
  return image;
}

ReceiveCheck CheckReceive(const CloneImage& image, int n, std::string_view text) {
  return CheckReceive(image, n, ParseFrequency(text), test_region);
}

bool CheckTransmit(const CloneImage& image, int n, std::string_view text) {
  return CheckTransmit(image, n, ParseFrequency(text), test_region);
}

TEST(CheckReceive, TakesValidFrequenciesOnAGrid) {
  const auto image = WideImage();
  for (const std::string_view text :
       {"145.0", "145.005", "145.0125", "433.5 MHz", "146520", "0.5", "800 kHz", "998.9950"}) {
    EXPECT_EQ(CheckReceive(*image, 1, text), ReceiveCheck::kAccepted) << text;
    EXPECT_EQ(CheckReceive(*image, 240, text), ReceiveCheck::kAccepted) << text;
  }
}

TEST(CheckReceive, RefusesWhatTheVersionOrTheGridForbids) {
  const auto wide = WideImage();
  for (const std::string_view text : {"145.001", "145.0062", "145.0126", "30", "750", "830", "999",
                                      "0.4950", "99999999999999999999", "214748362.5"}) {
    EXPECT_EQ(CheckReceive(*wide, 1, text), ReceiveCheck::kRefused) << text;
    EXPECT_EQ(CheckReceive(*wide, -6, text), ReceiveCheck::kRefused) << text;
  }
  const auto narrow = MakeImage();
  EXPECT_EQ(CheckReceive(*narrow, 1, "146.52"), ReceiveCheck::kAccepted);
  EXPECT_EQ(CheckReceive(*narrow, 1, "162.55"), ReceiveCheck::kRefused);
}

TEST(CheckReceive, ClearsAMemoryChannelWhoseTextIsEmpty) {
  const auto image = WideImage();
  for (const int n : {1, 2, 220, 221, 240}) {
    EXPECT_EQ(CheckReceive(*image, n, ""), ReceiveCheck::kClearChannel) << n;
  }
}

TEST(CheckReceive, RefusesAnEmptyTextForEverySpecialSlot) {
  const auto image = WideImage();
  for (int n = -1; n >= -30; --n) {
    EXPECT_EQ(CheckReceive(*image, n, ""), ReceiveCheck::kRefused) << n;
  }
}

TEST(CheckReceive, NeverAcceptsZero) {
  const auto image = WideImage();
  for (const std::string_view text : {"0", "0.0000", "abc", " ", "-145.5"}) {
    EXPECT_NE(CheckReceive(*image, 1, text), ReceiveCheck::kAccepted) << text;
    EXPECT_EQ(CheckReceive(*image, -6, text), ReceiveCheck::kRefused) << text;
  }
}

TEST(CheckReceive, RefusesAFrequencyOutsideTheSlotsOwnBand) {
  const auto image = WideImage();
  EXPECT_EQ(CheckReceive(*image, 1, "180"), ReceiveCheck::kAccepted);
  EXPECT_EQ(CheckReceive(*image, -26, "180"), ReceiveCheck::kRefused);
  constexpr std::array<std::string_view, 10> kInBand = {"1.0", "7.1", "88.1", "200", "52",
                                                        "145", "433", "120",  "300", "810"};
  for (int n = -1; n >= -30; --n) {
    for (std::size_t band = 0; band < 10; ++band) {
      EXPECT_EQ(CheckReceive(*image, n, kInBand.at(band)),
                band == static_cast<std::size_t>((-1 - n) % 10) ? ReceiveCheck::kAccepted
                                                                : ReceiveCheck::kRefused)
          << n << ": " << kInBand.at(band);
    }
  }
}

TEST(CheckReceive, TakesTheCommonBorderOfFmAndAirForBothSlots) {
  const auto image = WideImage();
  EXPECT_EQ(CheckReceive(*image, -3, "108"), ReceiveCheck::kAccepted);
  EXPECT_EQ(CheckReceive(*image, -8, "108"), ReceiveCheck::kAccepted);
  EXPECT_EQ(CheckReceive(*image, -3, "108.005"), ReceiveCheck::kRefused);
}

TEST(CheckReceive, AsksForThe9KilohertzGridInMwOfTheOtherRegions) {
  const auto image = MakeImage();
  (*image)[3068] = 1;
  EXPECT_EQ(CheckReceive(*image, 1, "1.0"), ReceiveCheck::kAccepted);
  EXPECT_EQ(CheckReceive(*image, 1, "0.531"), ReceiveCheck::kRefused);
  const RegionGuard guard({.variant = Variant::kOne});
  EXPECT_EQ(CheckReceive(*image, 1, "1.0"), ReceiveCheck::kRefused);
  EXPECT_EQ(CheckReceive(*image, 1, "0.531"), ReceiveCheck::kAccepted);
}

TEST(CheckTransmit, TestsTheReceiveFrequencyOnceMore) {
  const auto wide = WideImage();
  for (const int n : {1, 220, 240}) {
    EXPECT_TRUE(CheckTransmit(*wide, n, "145.0125")) << n;
    EXPECT_FALSE(CheckTransmit(*wide, n, "145.001")) << n;
    EXPECT_FALSE(CheckTransmit(*wide, n, "30")) << n;
    EXPECT_FALSE(CheckTransmit(*wide, n, "99999999999999999999")) << n;
  }
  const auto narrow = MakeImage();
  EXPECT_TRUE(CheckTransmit(*narrow, 1, "146.52"));
  EXPECT_FALSE(CheckTransmit(*narrow, 1, "162.55"));
}

}  // namespace
}  // namespace qz7
