#include <gtest/gtest.h>

#include <array>
#include <string>

#include "core/image/channel_record.h"
#include "core/image/clone_image.h"
#include "core/image/derived_tables.h"
#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

Bytes Summary(const CloneImage& image, int n) {
  return BytesAt(image, 168 + 12 * static_cast<std::size_t>(n), 12);
}

Bytes NameTableEntry(const CloneImage& image, int n) {
  return BytesAt(image, 11'192 + 10 * static_cast<std::size_t>(n), 10);
}

// 146.94 MHz, minus 600 kHz, tone squelch 100.0 Hz, code 103, AM, icon 7.
const Bytes& RepeaterRecord() {
  static const Bytes record = {0x00, 0x01, 0x14, 0x69, 0x40, 0x1D, 'R',  'P',  'T',  '1',  ' ',
                               ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x2D, 0x0C, 0x67, 0xA5, 0x5A};
  return record;
}

// The summary entry of channel 12 with the repeater's record and one byte of it changed.
Bytes SummaryWith(std::size_t record_byte, int value) {
  auto image = MakeImage();
  PutChannel(*image, 12, RepeaterRecord());
  (*image)[3920 + record_byte] = static_cast<std::uint8_t>(value);
  RebuildDerivedTables(*image);
  return Summary(*image, 12);
}

TEST(ChannelSummary, HoldsARepeaterWithToneSquelch) {
  auto image = MakeImage();
  PutChannel(*image, 12, RepeaterRecord(), 0x07);
  RebuildDerivedTables(*image);
  EXPECT_EQ(Summary(*image, 12),
            (Bytes{0x9F, 0x73, 0x70, 0x36, 0xE0, 0x00, 0x10, 0x4C, 0xDF, 0x00, 0xE8, 0x03}));
}

TEST(ChannelSummary, HoldsAPlusShiftWithDcs) {
  auto image = MakeImage();
  PutChannel(*image, 1, {0x00, 0x05, 0x43, 0x35, 0x00, 0x02, 'A',  'B',  'C',  'D',  'E',
                         'F',  'G',  'H',  0x00, 0x50, 0x00, 0x3E, 0x00, 0x00, 0x00, 0x00});
  RebuildDerivedTables(*image);
  EXPECT_EQ(Summary(*image, 1),
            (Bytes{0x61, 0x80, 0xF0, 0x77, 0x95, 0x02, 0x10, 0x19, 0x9D, 0x02, 0x9E, 0x02}));
}

TEST(ChannelSummary, HoldsTheStoredTransmitFrequencyOfAnOddSplit) {
  auto image = MakeImage();
  PutChannel(*image, 239, {0x01, 0x02, 0x14, 0x50, 0x12, 0xFC, ' ',  ' ',  ' ',  ' ',  ' ',
                           ' ',  ' ',  ' ',  0x44, 0x60, 0x00, 0x1F, 0x26, 0x32, 0x00, 0x00});
  RebuildDerivedTables(*image);
  EXPECT_EQ(Summary(*image, 239),
            (Bytes{0x33, 0x19, 0x50, 0x45, 0xDD, 0x00, 0xC0, 0x8A, 0xA8, 0x02, 0xC7, 0x09}));
}

TEST(ChannelSummary, HoldsTheReceiveFrequencyTwiceForSimplex) {
  auto image = MakeImage();
  PutChannel(*image, 2, {0x00, 0x01, 0x00, 0x16, 0x20, 0x03, ' ',  ' ',  ' ',  ' ',  ' ',
                         ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x0C, 0x27, 0x7F, 0x00, 0x00});
  RebuildDerivedTables(*image);
  EXPECT_EQ(Summary(*image, 2),
            (Bytes{0x81, 0xFF, 0xD0, 0x78, 0x02, 0x00, 0xD0, 0x78, 0x02, 0x00, 0xE8, 0x03}));
}

TEST(ChannelSummary, SkipsTheHalfKilohertzThatEveryOtherReaderRestores) {
  auto image = MakeImage();
  // 145012 kHz, minus 2512 kHz: taken as they stand, without the 500 Hz of 145.0125 MHz.
  Bytes record = RepeaterRecord();
  const Bytes receive = {0x14, 0x50, 0x12};
  std::copy(receive.begin(), receive.end(), record.begin() + 2);
  record[15] = 0x25;
  record[16] = 0x12;
  PutChannel(*image, 12, record);
  RebuildDerivedTables(*image);
  EXPECT_EQ(ReadU32(image->data() + 312 + 2), 14'501'200U);
  EXPECT_EQ(ReadU32(image->data() + 312 + 6), 14'250'000U);
  EXPECT_EQ(ReadReceiveFrequency(record.data()), 1'450'125);
  EXPECT_EQ(ReadOffsetField(record.data()), 25'125);
}

TEST(ChannelSummary, KeepsATransmitFrequencyBelowZeroAsItsDifference) {
  auto image = MakeImage();
  Bytes record = RepeaterRecord();  // 1 MHz, minus 6 MHz
  const Bytes receive = {0x00, 0x10, 0x00};
  std::copy(receive.begin(), receive.end(), record.begin() + 2);
  record[15] = 0x60;
  PutChannel(*image, 12, record);
  RebuildDerivedTables(*image);
  EXPECT_EQ(BytesAt(*image, 312 + 6, 4), (Bytes{0xE0, 0x5E, 0xF8, 0xFF}));
}

TEST(ChannelSummary, TellsTheToneModesApart) {
  constexpr std::array kBits = {0x00, 0x02, 0x06, 0x40};
  for (int tone_mode = 0; tone_mode < 16; ++tone_mode) {
    const int bits = tone_mode < 4 ? kBits.at(static_cast<std::size_t>(tone_mode)) : 0;
    const Bytes entry = SummaryWith(17, tone_mode << 4 | 0x0D);
    EXPECT_EQ(entry[0] & 0x46, bits) << tone_mode;
    EXPECT_EQ(entry[0] & ~0x46, 0x91) << tone_mode;
    EXPECT_EQ(entry[1], 0x73) << tone_mode;
  }
}

TEST(ChannelSummary, HoldsTheSkipFlag) {
  for (int flags = 1; flags < 256; flags += 2) {
    auto image = MakeImage();
    PutChannel(*image, 12, RepeaterRecord(), static_cast<std::uint8_t>(flags));
    RebuildDerivedTables(*image);
    EXPECT_EQ(Summary(*image, 12)[0], (flags & 0x04) != 0 ? 0x9F : 0x97) << flags;
  }
}

TEST(ChannelSummary, CombinesTheOffsetByShift) {
  constexpr std::array<std::uint32_t, 4> kTransmit = {14'694'000, 14'634'000, 14'754'000, 60'000};
  for (int shift = 0; shift < 4; ++shift) {
    const Bytes entry = SummaryWith(17, 0x2C | shift);
    EXPECT_EQ(entry[0], 0x87 | shift << 4) << shift;
    EXPECT_EQ(ReadU32(entry.data() + 2), 14'694'000U) << shift;
    EXPECT_EQ(ReadU32(entry.data() + 6), kTransmit.at(static_cast<std::size_t>(shift))) << shift;
  }
}

TEST(ChannelSummary, HoldsTheLowSevenBitsOfTheDcsIndex) {
  for (int index = 0; index < 256; ++index) {
    const Bytes entry = SummaryWith(19, index);
    EXPECT_EQ(entry[0], 0x17 | (index % 2 == 1 ? 0x80 : 0x00)) << index;
    EXPECT_EQ(entry[1], 0x40 | (index % 128 / 2)) << index;
  }
}

TEST(ChannelSummary, HoldsTheModeAboveTheDcsIndex) {
  for (int mode = 0; mode < 4; ++mode) {
    for (const int icon : {0, 1, 63}) {
      const Bytes entry = SummaryWith(5, icon << 2 | mode);
      EXPECT_EQ(entry[1], 0x33 + mode * 64) << mode;
      EXPECT_EQ(entry[0], 0x97) << mode;
    }
  }
}

TEST(ChannelSummary, HoldsTheToneAnd1000ForIndex39AndAbove) {
  const std::vector<std::string> texts = ToneTexts();
  for (std::size_t index = 0; index < 256; ++index) {
    int tenths = 1000;
    if (index < 39) {
      std::string digits = texts[index];
      digits.erase(digits.find('.'), 1);
      tenths = std::stoi(digits);
    }
    const Bytes entry = SummaryWith(18, static_cast<int>(index));
    EXPECT_EQ(ReadU16(entry.data() + 10), tenths) << index;
  }
}

TEST(ChannelSummary, LeavesChannel240Empty) {
  auto image = MakeImage();
  PutBytes(*image, 13'592, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  PutBytes(*image, 3048, Bytes(12, 0xEE));
  PutChannel(*image, 239, RepeaterRecord());
  PutChannel(*image, 240, RepeaterRecord());
  RebuildDerivedTables(*image);
  EXPECT_EQ(Summary(*image, 239)[0], 0x97);
  EXPECT_EQ(Summary(*image, 240), Bytes(12, 0));
  EXPECT_EQ(NameTableEntry(*image, 240), (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(ChannelSummary, IsEmptyForUnprogrammedChannelsWhateverTheirBytes) {
  auto image = MakePatternImage();
  for (std::size_t n = 1; n <= 240; ++n) {
    (*image)[3357 + n] = 0xFE;
  }
  RebuildDerivedTables(*image);
  EXPECT_EQ(BytesAt(*image, 180, 2880), Bytes(2880, 0));
}

TEST(ChannelSummary, HoldsNothingOfAChannelThatIsNoLongerProgrammed) {
  auto image = MakeImage();
  PutChannel(*image, 12, RepeaterRecord());
  RebuildDerivedTables(*image);
  ASSERT_NE(Summary(*image, 12), Bytes(12, 0));
  SetProgrammed(*image, 12, false);
  RebuildDerivedTables(*image);
  EXPECT_EQ(Summary(*image, 12), Bytes(12, 0));
}

TEST(NameTable, CopiesTheNameUnchangedAndLeavesTheTenthByte) {
  auto image = MakeImage();
  Bytes record = RepeaterRecord();
  const Bytes name = {0x10, 'b', 0x00, 0xB1, ' ', 'Z', 0xFF, ' '};
  std::copy(name.begin(), name.end(), record.begin() + 6);
  PutChannel(*image, 12, record);
  PutBytes(*image, 11'312, Bytes(10, 0x77));
  RebuildDerivedTables(*image);
  EXPECT_EQ(NameTableEntry(*image, 12),
            (Bytes{0x10, 'b', 0x00, 0xB1, ' ', 'Z', 0xFF, ' ', 0x00, 0x77}));
}

TEST(NameTable, LeavesTheEntriesOfUnprogrammedChannelsUntouched) {
  auto image = MakePatternImage();
  for (std::size_t n = 1; n <= 240; ++n) {
    (*image)[3357 + n] = 0x02;
  }
  (*image)[3357 + 7] = 0x03;
  const Bytes before = BytesAt(*image, 11'202, 2400);
  RebuildDerivedTables(*image);
  Bytes expected = before;
  const Bytes name = BytesAt(*image, 3656 + 22 * 7 + 6, 8);
  std::copy(name.begin(), name.end(), expected.begin() + 60);
  expected[68] = 0;
  EXPECT_EQ(BytesAt(*image, 11'202, 2400), expected);
}

TEST(NameTable, TakesEveryNameAfterARead) {
  const auto before = MakePatternImage();
  auto after = std::make_unique<CloneImage>(*before);
  CopyNamesToTable(*after);
  CloneImage expected = *before;
  for (std::size_t index = 0; index < 240; ++index) {
    PutBytes(expected, 11'202 + 10 * index, BytesAt(*before, 3684 + 22 * index, 8));
    expected[11'210 + 10 * index] = 0;
  }
  EXPECT_EQ(DifferingOffsets(*after, expected), std::vector<std::size_t>{});
}

TEST(NameTable, StaysInsideItselfForAHostileCount) {
  for (const int count : {0, 10, 300, 65'535}) {
    auto image = MakeImage(count);
    PutBytes(*image, 11'202, Bytes(2400, 0x77));
    CopyNamesToTable(*image);
    for (int n = 1; n <= 240; ++n) {
      EXPECT_EQ(NameTableEntry(*image, n)[0], n <= count ? 0 : 0x77) << count << ": " << n;
    }
    EXPECT_EQ(BytesAt(*image, 13'602, 7680), Bytes(7680, 0)) << count;
  }
}

TEST(DerivedTables, AreMadeForEveryProgrammedChannelBut240) {
  auto image = MakeImage(10);
  for (int n = 1; n <= 240; ++n) {
    PutChannel(*image, n, RepeaterRecord());
  }
  RebuildDerivedTables(*image);
  EXPECT_EQ(BytesAt(*image, 56, 2), (Bytes{0xF0, 0x00}));
  for (int n = 1; n <= 240; ++n) {
    EXPECT_EQ(Summary(*image, n)[0], n < 240 ? 0x97 : 0x00) << n;
    EXPECT_EQ(NameTableEntry(*image, n)[0], n < 240 ? 'R' : 0) << n;
  }
}

TEST(DerivedTables, AreAllThatTheirMakingChanges) {
  const auto before = MakePatternImage();
  auto after = std::make_unique<CloneImage>(*before);
  RebuildDerivedTables(*after);
  for (const std::size_t offset : DifferingOffsets(*before, *after)) {
    const bool in_tables =
        (offset >= 180 && offset < 3060) || (offset >= 11'202 && offset < 13'592);
    EXPECT_TRUE(in_tables) << offset;
  }
  EXPECT_NE(*before, *after);
}

// Every field has another value, and each byte follows from the layout alone.
constexpr ChannelSummary kSummary = {.in_use = true,
                                     .tone_encoder = false,
                                     .tone_squelch = true,
                                     .skip = false,
                                     .shift = Shift::kPlus,
                                     .dcs_on = true,
                                     .dcs_index = 0x53,
                                     .mode = 2,
                                     .receive_10hz = 0x12345678,
                                     .transmit_10hz = 0xFEDCBA98,
                                     .tone = 0x9E5};
const Bytes kSummaryBytes = {0xE5, 0xA9, 0x78, 0x56, 0x34, 0x12,
                             0x98, 0xBA, 0xDC, 0xFE, 0xE5, 0x09};

TEST(SummaryEntryBytes, AreThoseOfTheFields) {
  Bytes entry(13, 0xEE);
  EncodeSummary(kSummary, entry.data());
  Bytes expected = kSummaryBytes;
  expected.push_back(0xEE);
  EXPECT_EQ(entry, expected);
}

TEST(SummaryEntryBytes, GiveTheFieldsBack) {
  const ChannelSummary summary = DecodeSummary(kSummaryBytes.data());
  EXPECT_TRUE(summary.in_use);
  EXPECT_FALSE(summary.tone_encoder);
  EXPECT_TRUE(summary.tone_squelch);
  EXPECT_FALSE(summary.skip);
  EXPECT_EQ(summary.shift, Shift::kPlus);
  EXPECT_TRUE(summary.dcs_on);
  EXPECT_EQ(summary.dcs_index, 0x53);
  EXPECT_EQ(summary.mode, 2);
  EXPECT_EQ(summary.receive_10hz, 0x12345678U);
  EXPECT_EQ(summary.transmit_10hz, 0xFEDCBA98U);
  EXPECT_EQ(summary.tone, 0x9E5);
}

TEST(SummaryEntryBytes, HoldTheOtherFlagsInTheOtherBits) {
  const ChannelSummary others = {.tone_encoder = true,
                                 .skip = true,
                                 .shift = Shift::kMinus,
                                 .dcs_index = 0x2C,
                                 .mode = 1,
                                 .tone = 0xFFFF};
  const Bytes bytes = {0x1A, 0x56, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF};
  Bytes entry(12, 0xEE);
  EncodeSummary(others, entry.data());
  EXPECT_EQ(entry, bytes);
  const ChannelSummary summary = DecodeSummary(bytes.data());
  EXPECT_FALSE(summary.in_use || summary.tone_squelch || summary.dcs_on);
  EXPECT_TRUE(summary.tone_encoder && summary.skip);
  EXPECT_EQ(summary.shift, Shift::kMinus);
  EXPECT_EQ(summary.dcs_index, 0x2C);
  EXPECT_EQ(summary.mode, 1);
  EXPECT_EQ(summary.tone, 0xFFFF);
}

TEST(SummaryEntryBytes, OfAnyFirstWordComeBack) {
  for (unsigned word = 0; word < 0x10000; ++word) {
    Bytes entry(12, 0);
    entry[0] = static_cast<std::uint8_t>(word & 0xFF);
    entry[1] = static_cast<std::uint8_t>(word >> 8);
    Bytes again(12, 0);
    EncodeSummary(DecodeSummary(entry.data()), again.data());
    ASSERT_EQ(entry, again);
  }
}

}  // namespace
}  // namespace qz7
