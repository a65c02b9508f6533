#include <gtest/gtest.h>

#include <optional>

#include "core/image/channel_record.h"
#include "tests/unit/image_fixture.h"

// Codes that no list of the radio holds: they show no selection and stay as they are.
namespace qz7 {
namespace {

using namespace image_fixture;

constexpr ChannelRecord kRecord = {0x00, 0x00, 0x14, 0x50, 0x00, 0x14, 'N',  'A',
                                   'M',  'E',  ' ',  ' ',  ' ',  ' ',  0x00, 0x06,
                                   0x00, 0x1D, 0x0C, 0x01, 0xA5, 0x5A};

ChannelRecord RecordWith(std::size_t byte, int value) {
  ChannelRecord record = kRecord;
  record.at(byte) = static_cast<std::uint8_t>(value);
  return record;
}

ChannelRecord ReadAndWritten(const ChannelRecord& record) {
  return BuildChannelRecord(record, DecodeChannelRecord(record.data()), 1);
}

TEST(UnknownCode, OfTheToneModeShowsNothingAndStays) {
  for (int tone_mode = 0; tone_mode < 16; ++tone_mode) {
    const ChannelRecord record = RecordWith(17, tone_mode << 4 | 0x0D);
    EXPECT_EQ(DecodeChannelRecord(record.data()).tone_mode,
              tone_mode < 4 ? std::optional(tone_mode) : std::nullopt);
    EXPECT_EQ(ReadAndWritten(record), record) << tone_mode;
  }
}

TEST(UnknownCode, OfTheModeShowsNothingAndStays) {
  for (int mode = 0; mode < 4; ++mode) {
    const ChannelRecord record = RecordWith(5, 0x14 | mode);
    EXPECT_EQ(DecodeChannelRecord(record.data()).mode,
              mode < 3 ? std::optional(mode) : std::nullopt);
    EXPECT_EQ(ReadAndWritten(record), record) << mode;
  }
}

TEST(UnknownCode, OfTheStepShowsNothingAndStaysOffStep) {
  for (int step = 9; step < 256; ++step) {
    ChannelRecord record = RecordWith(1, step);
    EXPECT_EQ(DecodeChannelRecord(record.data()).step, std::nullopt) << step;
    record[0] = 0x40;
    EXPECT_EQ(ReadAndWritten(record), record) << step;
    record[0] = 0x00;
    EXPECT_EQ(ReadAndWritten(record)[0], 0x40) << step;
  }
}

TEST(UnknownCode, OfToneAndCodeStaysOnlyWhenItIsTheFirstBehindTheTable) {
  EXPECT_EQ(ReadAndWritten(RecordWith(18, 39)), RecordWith(18, 39));
  EXPECT_EQ(ReadAndWritten(RecordWith(19, 104)), RecordWith(19, 104));
  // What shows as the first entry is written as the first entry.
  EXPECT_EQ(ReadAndWritten(RecordWith(18, 40)), RecordWith(18, 0));
  EXPECT_EQ(ReadAndWritten(RecordWith(19, 105)), RecordWith(19, 0));
}

TEST(UnknownCode, GivesWayToAChoice) {
  ChannelRecord old;
  old.fill(0xFF);
  ChannelFields fields = DecodeChannelRecord(old.data());
  EXPECT_EQ(fields.tone_mode, std::nullopt);
  EXPECT_EQ(fields.mode, std::nullopt);
  EXPECT_EQ(fields.step, std::nullopt);
  fields.tone_mode = 1;
  fields.mode = 1;
  fields.step = 4;
  const ChannelRecord record = BuildChannelRecord(old, fields, 1);
  EXPECT_EQ(record[1], 4);
  EXPECT_EQ(record[5], 0xFD);
  EXPECT_EQ(record[17], 0x1F);
}

TEST(UnknownCode, OfEveryFieldStaysWhenNothingIsChosen) {
  ChannelRecord old;
  old.fill(0xFF);
  ChannelFields fields;
  fields.tone_mode = fields.tone_index = fields.dcs_index = std::nullopt;
  fields.mode = fields.power = fields.step = std::nullopt;
  const ChannelRecord record = BuildChannelRecord(old, fields, 1);
  EXPECT_EQ(record[1], 0xFF);
  EXPECT_EQ(record[5], 0x03);
  EXPECT_EQ(record[17], 0xFC);
  EXPECT_EQ(record[18], 0xFF);
  EXPECT_EQ(record[19], 0xFF);
}

TEST(NineKilohertzStep, ShowsAsTenUnlessTheExtendedVersionIsOn) {
  const ChannelRecord record = RecordWith(1, 8);
  EXPECT_EQ(DecodeChannelRecord(record.data()).step, 1);
  const RegionGuard guard({.extended_version = true});
  EXPECT_EQ(DecodeChannelRecord(record.data()).step, 8);
}

TEST(ChannelRecord, ShowsEveryOtherStepAsItIs) {
  for (const bool extended : {false, true}) {
    const RegionGuard guard({.extended_version = extended});
    for (int step = 0; step < 8; ++step) {
      const ChannelRecord record = RecordWith(1, step);
      EXPECT_EQ(DecodeChannelRecord(record.data()).step, step);
    }
  }
}

TEST(ChannelRecord, ShowsTheDefaultOffsetForAnOddSplitOnly) {
  ChannelRecord record = RecordWith(15, 0x16);
  for (int shift = 0; shift < 4; ++shift) {
    record[17] = static_cast<std::uint8_t>(shift);
    EXPECT_EQ(DecodeChannelRecord(record.data()).offset, shift == 3 ? 6'000 : 16'000) << shift;
  }
}

TEST(ChannelRecord, ShowsTheComputedTransmitFrequency) {
  ChannelRecord record = kRecord;
  constexpr std::array<Units, 4> kTransmit = {1'450'000, 1'444'000, 1'456'000, 6'000};
  for (std::size_t shift = 0; shift < 4; ++shift) {
    record[17] = static_cast<std::uint8_t>(shift);
    EXPECT_EQ(DecodeChannelRecord(record.data()).transmit, kTransmit.at(shift)) << shift;
  }
}

TEST(ChannelFields, StartWithTheDefaultsOfANewChannel) {
  const ChannelFields fields;
  EXPECT_EQ(fields.receive, 0);
  EXPECT_EQ(fields.transmit, 0);
  EXPECT_EQ(fields.shift, 0);
  EXPECT_EQ(fields.offset, 6'000);
  EXPECT_EQ(fields.tone_mode, 0);
  EXPECT_EQ(fields.tone_index, 12);
  EXPECT_EQ(fields.dcs_index, 0);
  EXPECT_EQ(fields.mode, 0);
  EXPECT_EQ(fields.power, 3);
  EXPECT_EQ(fields.step, 0);
  EXPECT_EQ(fields.icon, 0);
  EXPECT_FALSE(fields.option_a);
  EXPECT_FALSE(fields.option_b);
  EXPECT_EQ(fields.name, "");
}

}  // namespace
}  // namespace qz7
