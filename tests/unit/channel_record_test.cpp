#include "core/image/channel_record.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string>

#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

struct BcdCase {
  std::array<std::uint8_t, 3> bytes;
  Units value;
};

constexpr std::array kBcdCases = {
    BcdCase{{0x14, 0x55, 0x00}, 1'455'000}, BcdCase{{0x14, 0x50, 0x12}, 1'450'120},
    BcdCase{{0x00, 0x09, 0x99}, 9'990},     BcdCase{{0x00, 0x00, 0x00}, 0},
    BcdCase{{0x00, 0x00, 0x01}, 10},        BcdCase{{0x12, 0x34, 0x56}, 1'234'560},
    BcdCase{{0x99, 0x99, 0x99}, 9'999'990}, BcdCase{{0x90, 0x00, 0x00}, 9'000'000},
    BcdCase{{0x08, 0x00, 0x00}, 800'000},   BcdCase{{0x00, 0x70, 0x00}, 70'000},
    BcdCase{{0x00, 0x06, 0x00}, 6'000},     BcdCase{{0x00, 0x00, 0x50}, 500},
};

TEST(BcdFrequency, IsSixDigitsOfKilohertzHighNibbleFirst) {
  for (const BcdCase& c : kBcdCases) {
    EXPECT_EQ(DecodeBcdFrequency(c.bytes.data(), 6), c.value);
    std::array<std::uint8_t, 3> bytes = {0xEE, 0xEE, 0xEE};
    EncodeBcdFrequency(bytes.data(), c.value, 6);
    EXPECT_EQ(bytes, c.bytes) << c.value;
  }
}

TEST(BcdFrequency, DropsTheHundredsOfHertz) {
  std::array<std::uint8_t, 3> bytes{};
  EncodeBcdFrequency(bytes.data(), 1'450'125, 6);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 3>{0x14, 0x50, 0x12}));
  EncodeBcdFrequency(bytes.data(), 1'450'129, 6);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 3>{0x14, 0x50, 0x12}));
}

TEST(BcdFrequency, DropsHigherDigitsAndTheSign) {
  struct Case {
    Units value;
    std::array<std::uint8_t, 3> bytes;
  };
  constexpr std::array kCases = {
      Case{12'345'670, {0x23, 0x45, 0x67}}, Case{10'000'000, {0x00, 0x00, 0x00}},
      Case{-1'450'120, {0x14, 0x50, 0x12}}, Case{-9, {0x00, 0x00, 0x00}},
      Case{INT_MAX, {0x74, 0x83, 0x64}},    Case{INT_MIN, {0x74, 0x83, 0x64}},
  };
  for (const Case& c : kCases) {
    std::array<std::uint8_t, 3> bytes = {0xEE, 0xEE, 0xEE};
    EncodeBcdFrequency(bytes.data(), c.value, 6);
    EXPECT_EQ(bytes, c.bytes) << c.value;
  }
}

TEST(BcdFrequency, TouchesOnlyItsOwnBytes) {
  std::array<std::uint8_t, 5> bytes = {0xEE, 0xEE, 0xEE, 0xEE, 0xEE};
  EncodeBcdFrequency(bytes.data() + 1, 1'455'000, 6);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 5>{0xEE, 0x14, 0x55, 0x00, 0xEE}));
  EXPECT_EQ(DecodeBcdFrequency(bytes.data() + 1, 4), 14'550);
  EncodeBcdFrequency(bytes.data() + 1, 98'760, 4);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 5>{0xEE, 0x98, 0x76, 0x00, 0xEE}));
}

TEST(BcdFrequency, CountsANibbleAbove9WithItsValue) {
  constexpr std::array<std::uint8_t, 3> kAllOnes = {0xFF, 0xFF, 0xFF};
  EXPECT_EQ(DecodeBcdFrequency(kAllOnes.data(), 6), 16'666'650);
  constexpr std::array<std::uint8_t, 3> kHex = {0x0A, 0x00, 0xB0};
  EXPECT_EQ(DecodeBcdFrequency(kHex.data(), 6), 1'001'100);
}

TEST(BcdFrequency, ComesBackForEveryKilohertz) {
  for (Units khz = 0; khz <= 999'999; ++khz) {
    std::array<std::uint8_t, 3> bytes{};
    EncodeBcdFrequency(bytes.data(), khz * 10 + 5, 6);
    ASSERT_EQ(DecodeBcdFrequency(bytes.data(), 6), khz * 10);
  }
}

TEST(HalfKilohertz, IsRestoredWhereTheKilohertzEndIn2Or7) {
  for (Units khz = 145'000; khz <= 145'100; ++khz) {
    const bool ends_in_2_or_7 = khz % 10 == 2 || khz % 10 == 7;
    EXPECT_EQ(RestoreHalfKilohertz(khz * 10), khz * 10 + (ends_in_2_or_7 ? 5 : 0)) << khz;
  }
}

TEST(HalfKilohertz, IsNotRestoredInTheMwBand) {
  EXPECT_EQ(RestoreHalfKilohertz(4'970), 4'975);
  EXPECT_EQ(RestoreHalfKilohertz(5'020), 5'020);
  EXPECT_EQ(RestoreHalfKilohertz(17'970), 17'970);
  EXPECT_EQ(RestoreHalfKilohertz(18'020), 18'025);
  const RegionGuard guard({.variant = Variant::kOne});
  EXPECT_EQ(RestoreHalfKilohertz(5'020), 5'025);
  EXPECT_EQ(RestoreHalfKilohertz(5'070), 5'070);
}

TEST(HalfKilohertz, IsRestoredInBothFrequencyFields) {
  ChannelRecord record{};
  const Bytes receive = {0x14, 0x50, 0x12};
  const Bytes offset = {0x43, 0x30, 0x37};
  std::copy(receive.begin(), receive.end(), record.begin() + 2);
  std::copy(offset.begin(), offset.end(), record.begin() + 14);
  EXPECT_EQ(DecodeBcdFrequency(record.data() + 2, 6), 1'450'120);
  EXPECT_EQ(ReadReceiveFrequency(record.data()), 1'450'125);
  EXPECT_EQ(ReadOffsetField(record.data()), 4'330'375);
}

TEST(HalfKilohertz, StaysOffAnMwReceiveFrequency) {
  ChannelRecord record{};
  record[3] = 0x09;
  record[4] = 0x99;
  EXPECT_EQ(ReadReceiveFrequency(record.data()), 9'990);
  record[4] = 0x72;
  EXPECT_EQ(ReadReceiveFrequency(record.data()), 9'720);
}

struct TransmitCase {
  std::array<std::uint8_t, 3> receive;
  std::array<std::uint8_t, 3> offset;
  int shift;
  Units transmit;
};

TEST(TransmitFrequency, FollowsTheShift) {
  constexpr std::array kCases = {
      TransmitCase{{0x14, 0x50, 0x00}, {0x00, 0x06, 0x00}, 0, 1'450'000},
      TransmitCase{{0x14, 0x50, 0x00}, {0x00, 0x06, 0x00}, 1, 1'444'000},
      TransmitCase{{0x14, 0x50, 0x00}, {0x00, 0x06, 0x00}, 2, 1'456'000},
      TransmitCase{{0x14, 0x50, 0x00}, {0x44, 0x60, 0x00}, 3, 4'460'000},
      TransmitCase{{0x14, 0x50, 0x12}, {0x00, 0x06, 0x00}, 1, 1'444'125},
      TransmitCase{{0x14, 0x50, 0x12}, {0x43, 0x30, 0x37}, 3, 4'330'375},
      TransmitCase{{0x14, 0x50, 0x12}, {0x00, 0x70, 0x12}, 2, 1'520'250},
      TransmitCase{{0x14, 0x50, 0x00}, {0x00, 0x00, 0x00}, 3, 0},
      TransmitCase{{0x00, 0x06, 0x00}, {0x00, 0x06, 0x00}, 1, 0},
      TransmitCase{{0x99, 0x99, 0x99}, {0x99, 0x99, 0x99}, 2, 19'999'980},
      TransmitCase{{0x14, 0x50, 0x00}, {0xFF, 0xFF, 0xFF}, 3, 16'666'650},
  };
  for (const TransmitCase& c : kCases) {
    for (const int other_bits : {0x00, 0xFC}) {
      ChannelRecord record{};
      std::copy(c.receive.begin(), c.receive.end(), record.begin() + 2);
      std::copy(c.offset.begin(), c.offset.end(), record.begin() + 14);
      record[17] = static_cast<std::uint8_t>(other_bits | c.shift);
      EXPECT_EQ(TransmitFrequency(record.data()), c.transmit);
    }
  }
}

TEST(TransmitFrequency, FallsBackToReceiveBelowZero) {
  ChannelRecord record{};
  record[2] = 0x00;
  record[3] = 0x10;
  record[15] = 0x10;
  record[16] = 0x01;
  record[17] = 1;
  EXPECT_EQ(TransmitFrequency(record.data()), 10'000);
  record[16] = 0x00;
  EXPECT_EQ(TransmitFrequency(record.data()), 0);
}

TEST(Tones, AreThe39OfTheRadio) {
  const std::vector<std::string> texts = ToneTexts();
  ASSERT_EQ(texts.size(), 39U);
  ASSERT_EQ(kTones.size(), 39U);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(std::to_string(kTones.at(i) / 10) + "." + std::to_string(kTones.at(i) % 10),
              texts[i]);
  }
}

TEST(Tones, AreFoundByTheirTenthsOfAHertz) {
  EXPECT_EQ(FindTone(670), 0);
  EXPECT_EQ(FindTone(1000), 12);
  EXPECT_EQ(FindTone(2503), 38);
  const std::vector<std::string> texts = ToneTexts();
  int found = 0;
  for (int tenths = -1; tenths <= 3000; ++tenths) {
    const std::optional<int> index = FindTone(tenths);
    if (index) {
      ASSERT_LT(static_cast<std::size_t>(*index), texts.size());
      const std::string text = std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
      EXPECT_EQ(texts[static_cast<std::size_t>(*index)], text);
      ++found;
    }
  }
  EXPECT_EQ(found, 39);
}

TEST(DcsCodes, AreThe104OfTheRadio) {
  const std::vector<std::string> texts = DcsTexts();
  ASSERT_EQ(texts.size(), 104U);
  ASSERT_EQ(kDcsCodes.size(), 104U);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(kDcsCodes.at(i), std::stoi(texts[i])) << i;
  }
}

TEST(StoredIndex, OfAToneAbove39ShowsTheFirstToneAnd39Nothing) {
  for (int stored = 0; stored < 256; ++stored) {
    const std::optional<int> shown = stored < 39    ? std::optional<int>(stored)
                                     : stored == 39 ? std::nullopt
                                                    : std::optional(0);
    EXPECT_EQ(ShownToneIndex(stored), shown) << stored;
    ChannelRecord record{};
    record[18] = static_cast<std::uint8_t>(stored);
    EXPECT_EQ(DecodeChannelRecord(record.data()).tone_index, shown) << stored;
  }
}

TEST(StoredIndex, OfACodeAbove104ShowsTheFirstCodeAnd104Nothing) {
  for (int stored = 0; stored < 256; ++stored) {
    const std::optional<int> shown = stored < 104    ? std::optional<int>(stored)
                                     : stored == 104 ? std::nullopt
                                                     : std::optional(0);
    EXPECT_EQ(ShownDcsIndex(stored), shown) << stored;
    ChannelRecord record{};
    record[19] = static_cast<std::uint8_t>(stored);
    EXPECT_EQ(DecodeChannelRecord(record.data()).dcs_index, shown) << stored;
  }
}

std::optional<int> Listed(int code, int codes) {
  return code < codes ? std::optional(code) : std::nullopt;
}

TEST(RecordFields, AreReadFromTheirOwnBits) {
  for (int value = 0; value < 256; ++value) {
    ChannelRecord record;
    record.fill(static_cast<std::uint8_t>(~value));
    record[17] = static_cast<std::uint8_t>(value);
    EXPECT_EQ(RecordShift(record.data()), value % 4) << value;
    EXPECT_EQ(RecordPower(record.data()), value / 4 % 4) << value;
    EXPECT_EQ(PlaceOf(RecordToneMode(record.data())), Listed(value / 16, 4)) << value;
    record.fill(static_cast<std::uint8_t>(~value));
    record[5] = static_cast<std::uint8_t>(value);
    EXPECT_EQ(PlaceOf(RecordMode(record.data())), Listed(value % 4, 3)) << value;
    EXPECT_EQ(RecordIcon(record.data()), value / 4) << value;
  }
}

}  // namespace
}  // namespace qz7
