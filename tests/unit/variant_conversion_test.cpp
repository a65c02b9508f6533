#include "core/editors/variant_conversion.h"

#include <gtest/gtest.h>

#include "tests/unit/editor_fixture.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

Bytes Record(int receive_khz, int offset_khz, int step, std::uint8_t byte17) {
  Bytes record(22, 0xA5);
  record[1] = static_cast<std::uint8_t>(step);
  const Bytes receive = Kilohertz(receive_khz);
  const Bytes offset = Kilohertz(offset_khz);
  std::copy(receive.begin(), receive.end(), record.begin() + 2);
  std::copy(offset.begin(), offset.end(), record.begin() + 14);
  record[17] = byte17;
  return record;
}

// In the middle of the bands, in kilohertz.
constexpr int kInBand[] = {1000,   7100,   98100,  180000, 51000,
                           145100, 433000, 121500, 300000, 810000};

// Every special slot on a frequency and an offset field of its band, so that only what a test
// changes is converted. The MW slots have the 10 kHz step.
std::unique_ptr<CloneImage> SettledImage() {
  auto image = MakePatternImage();
  for (int n = -1; n >= -30; --n) {
    const int khz = kInBand[~n % 10];
    PutBytes(*image, RecordPlace(n), Record(khz, khz, 1, 0x13));
  }
  for (int n = 0; n <= 240; ++n) {
    (*image)[FlagPlace(n)] &= 0xFE;
  }
  return image;
}

CloneImage Converted(const CloneImage& image) {
  CloneImage converted = image;
  ConvertChannelsForVariant(converted, test_region);
  return converted;
}

// The slot's record after the conversion of an image that is settled but for it; nothing else may
// have changed.
Bytes ConvertedSlot(int n, const Bytes& record) {
  auto image = SettledImage();
  PutBytes(*image, RecordPlace(n), record);
  const CloneImage converted = Converted(*image);
  Offsets slot;
  AddRange(slot, RecordPlace(n), 22);
  EXPECT_EQ(Unexpected(*image, converted, slot), std::vector<std::size_t>{});
  return BytesAt(converted, RecordPlace(n), 22);
}

TEST(VariantConversion, IsNeededWhereTheVersionIsNotTheRegion) {
  auto image = MakeImage();
  EXPECT_FALSE(NeedsVariantConversion(*image, test_region));
  (*image)[3068] = 2;
  EXPECT_TRUE(NeedsVariantConversion(*image, test_region));
  const RegionGuard guard({.variant = Variant::kTwo});
  EXPECT_FALSE(NeedsVariantConversion(*image, test_region));
}

TEST(VariantConversion, LeavesASettledImageAlone) {
  const auto image = SettledImage();
  EXPECT_EQ(DifferingOffsets(*image, Converted(*image)), std::vector<std::size_t>{});
}

TEST(VariantConversion, MovesASlotOutsideItsBandToTheBandsDefault) {
  constexpr int kDefaults[] = {540,    1800,   88000,  174000, 52000,
                               145000, 430000, 108000, 380000, 800000};
  for (int n = -2; n >= -30; --n) {
    const int band = ~n % 10;
    if (band == 0) {
      continue;
    }
    const Bytes record = Record(20000, kInBand[band], 3, 0x13);
    EXPECT_EQ(ConvertedSlot(n, record), Record(kDefaults[band], kInBand[band], 3, 0x13)) << n;
  }
  for (const int n : {-1, -11, -21}) {
    EXPECT_EQ(ConvertedSlot(n, Record(20000, 1000, 1, 0x13)), Record(540, 1000, 1, 0x13)) << n;
  }
}

TEST(VariantConversion, TestsTheBorderOfTheBand) {
  EXPECT_EQ(ConvertedSlot(-26, Record(173999, 145000, 0, 0)), Record(173999, 145000, 0, 0));
  EXPECT_EQ(ConvertedSlot(-26, Record(174000, 145000, 0, 0)), Record(145000, 145000, 0, 0));
  EXPECT_EQ(ConvertedSlot(-26, Record(137000, 145000, 0, 0)), Record(137000, 145000, 0, 0));
  EXPECT_EQ(ConvertedSlot(-26, Record(136999, 145000, 0, 0)), Record(145000, 145000, 0, 0));
}

TEST(VariantConversion, TakesAnOffsetOutsideTheBandForTheReceiveFrequencyWanted) {
  EXPECT_EQ(ConvertedSlot(-26, Record(145500, 600, 2, 0x1D)), Record(600, 600, 2, 0x1C));
  EXPECT_EQ(ConvertedSlot(-6, Record(20000, 600, 2, 0x1E)), Record(600, 600, 2, 0x1C));
}

TEST(VariantConversion, GoesOnWithTheDefaultAfterTheCrossing) {
  // 600 kHz now stands in the receive field, but it is the V Ham default that is tested for MW.
  EXPECT_EQ(ConvertedSlot(-26, Record(145500, 600, 0, 0)), Record(600, 600, 0, 0));
  // The MW default of 540 kHz is on the grid and becomes the receive frequency.
  EXPECT_EQ(ConvertedSlot(-21, Record(1000, 20000, 0, 0x12)), Record(540, 20000, 1, 0x10));
  EXPECT_EQ(ConvertedSlot(-21, Record(1000, 20000, 1, 0x12)), Record(20000, 20000, 1, 0x10));
}

TEST(VariantConversion, PutsMwOnTheTenKilohertzGridInRegion0) {
  EXPECT_EQ(ConvertedSlot(-1, Record(1008, 999, 8, 0x10)), Record(1000, 999, 1, 0x10));
  EXPECT_EQ(ConvertedSlot(-1, Record(1009, 1000, 0, 0x11)), Record(1000, 0, 1, 0x10));
  EXPECT_EQ(ConvertedSlot(-11, Record(1010, 1000, 0, 0xF3)), Record(1010, 0, 1, 0xF0));
}

TEST(VariantConversion, LeavesMwWithTheTenKilohertzStepAloneInRegion0) {
  EXPECT_EQ(ConvertedSlot(-1, Record(1008, 1000, 1, 0x11)), Record(1008, 1000, 1, 0x11));
}

TEST(VariantConversion, PutsMwOnTheNineKilohertzGridWithTheTenKilohertzStepElsewhereWanted) {
  const RegionGuard guard({.variant = Variant::kOne});
  auto image = SettledImage();
  // 76..88 MHz is FM here.
  for (const int n : {-3, -13, -23}) {
    PutBytes(*image, RecordPlace(n), Record(80000, 80000, 1, 0x13));
  }
  PutBytes(*image, RecordPlace(-1), Record(1000, 1000, 0, 0x11));
  PutBytes(*image, RecordPlace(-11), Record(1008, 1000, 8, 0x11));
  PutBytes(*image, RecordPlace(-21), Record(1010, 1000, 0, 0x10));
  const CloneImage converted = Converted(*image);
  // In units of 100 Hz: 10000 becomes 9999, and 10100 becomes 10098.
  EXPECT_EQ(BytesAt(converted, RecordPlace(-1), 22), Record(999, 0, 1, 0x10));
  EXPECT_EQ(BytesAt(converted, RecordPlace(-11), 22), Record(1008, 1000, 8, 0x11));
  EXPECT_EQ(BytesAt(converted, RecordPlace(-21), 22), Record(1009, 1000, 1, 0x10));
}

Bytes ConvertedChannel(int n, const Bytes& record, std::uint8_t flags) {
  auto image = SettledImage();
  PutBytes(*image, RecordPlace(n), record);
  (*image)[FlagPlace(n)] = flags;
  const CloneImage converted = Converted(*image);
  Offsets channel;
  AddRange(channel, RecordPlace(n), 22);
  EXPECT_EQ(Unexpected(*image, converted, channel), std::vector<std::size_t>{});
  return BytesAt(converted, RecordPlace(n), 22);
}

TEST(VariantConversion, PutsMemoryChannelsInTheMwBandOnTheGrid) {
  const Bytes odd = Record(1008, 600, 0, 0x11);
  EXPECT_EQ(ConvertedChannel(1, odd, 1), Record(1000, 0, 1, 0x10));
  EXPECT_EQ(ConvertedChannel(239, odd, 1), Record(1000, 0, 1, 0x10));
  EXPECT_EQ(ConvertedChannel(5, odd, 0xFE), odd);
}

TEST(VariantConversion, LeavesOtherMemoryChannelsAlone) {
  const Bytes record = Record(1800, 600, 0, 0x11);
  EXPECT_EQ(ConvertedChannel(5, record, 1), record);
  const Bytes low = Record(499, 600, 0, 0x11);
  EXPECT_EQ(ConvertedChannel(5, low, 1), low);
  EXPECT_EQ(ConvertedChannel(5, Record(500, 600, 0, 0x11), 1), Record(500, 0, 1, 0x10));
  EXPECT_EQ(ConvertedChannel(5, Record(1799, 600, 0, 0x11), 1), Record(1790, 0, 1, 0x10));
}

TEST(VariantConversion, VisitsTheBytesInFrontOfChannel1ButNotTheLastChannelWanted) {
  const Bytes odd = Record(1008, 600, 0, 0x11);
  EXPECT_EQ(ConvertedChannel(0, odd, 1), Record(1000, 0, 1, 0x10));
  EXPECT_EQ(ConvertedChannel(240, odd, 1), odd);
}

TEST(VariantConversion, StandsEveryHostileImage) {
  for (unsigned seed = 1; seed <= 50; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    (*image)[56] = dice.Byte();
    (*image)[57] = dice.Byte();
    const RegionGuard guard(
        {.variant = static_cast<Variant>(dice.Below(3)), .sub_variant = dice.Below(8)});
    const CloneImage converted = Converted(*image);
    Offsets records;
    AddRange(records, 3656, 22 * 241);
    AddRange(records, 8958, 660);
    EXPECT_EQ(Unexpected(*image, converted, records), std::vector<std::size_t>{});
  }
}

}  // namespace
}  // namespace qz7
