#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>

#include "core/image/channel_record.h"
#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

// One record, what the editor shows of it, and the channel number that it is written for.
struct Golden {
  const char* name;
  ChannelRecord record;
  ChannelFields fields;
  int n;
};

Golden MinusShiftWithTone() {
  return {.name = "145.0125 MHz, minus 600 kHz, 12.5 kHz step, tone 100.0, icon 5, option A",
          .record = {0x15, 0x02, 0x14, 0x50, 0x12, 0x14, 'R',  'P',  'T',  '1',  ' ',
                     ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x1D, 0x0C, 0x67, 0x00, 0x00},
          .fields = {.receive = 1'450'125,
                     .transmit = 1'444'125,
                     .shift = 1,
                     .offset = 6'000,
                     .tone_mode = 1,
                     .tone_index = 12,
                     .dcs_index = 103,
                     .mode = 0,
                     .power = 3,
                     .step = 2,
                     .icon = 5,
                     .option_a = true,
                     .option_b = false,
                     .name = "RPT1"},
          .n = 12};
}

Golden OddSplitWithDcs() {
  return {.name = "433.5 and 146.5125 MHz, 25 kHz step, DCS 025, AM, Low2, icon 63, option B",
          .record = {0x24, 0x05, 0x43, 0x35, 0x00, 0xFD, 'A',  'B',  'C',  'D',  'E',
                     'F',  'G',  'H',  0x14, 0x65, 0x12, 0x37, 0x26, 0x01, 0x00, 0x00},
          .fields = {.receive = 4'335'000,
                     .transmit = 1'465'125,
                     .shift = 3,
                     .offset = 6'000,
                     .tone_mode = 3,
                     .tone_index = 38,
                     .dcs_index = 1,
                     .mode = 1,
                     .power = 1,
                     .step = 5,
                     .icon = 63,
                     .option_a = false,
                     .option_b = true,
                     .name = "ABCDEFGH"},
          .n = 240};
}

Golden PlusShiftVfo() {
  return {.name = "145.13 MHz VFO, plus 1.6 MHz, off the 25 kHz step, tone squelch, FM-Wide, Low3",
          .record = {0x40, 0x05, 0x14, 0x51, 0x30, 0x02, ' ',  ' ',  ' ',  ' ',  ' ',
                     ' ',  ' ',  ' ',  0x00, 0x16, 0x00, 0x2A, 0x00, 0x32, 0x00, 0x00},
          .fields = {.receive = 1'451'300,
                     .transmit = 1'467'300,
                     .shift = 2,
                     .offset = 16'000,
                     .tone_mode = 2,
                     .tone_index = 0,
                     .dcs_index = 50,
                     .mode = 2,
                     .power = 2,
                     .step = 5,
                     .icon = 0,
                     .option_a = false,
                     .option_b = false,
                     .name = ""},
          .n = -6};
}

Golden SimplexHome() {
  return {.name = "999 kHz home, simplex, 10 kHz step, Low1, both options",
          .record = {0x75, 0x01, 0x00, 0x09, 0x99, 0x01, 'r',  ' ',  0xB1, 0x97, ' ',
                     ' ',  ' ',  ' ',  0x00, 0x50, 0x00, 0x00, 0x08, 0x00, 0x00, 0x00},
          .fields = {.receive = 9'990,
                     .transmit = 9'990,
                     .shift = 0,
                     .offset = 50'000,
                     .tone_mode = 0,
                     .tone_index = 8,
                     .dcs_index = 0,
                     .mode = 1,
                     .power = 0,
                     .step = 1,
                     .icon = 0,
                     .option_a = true,
                     .option_b = true,
                     .name = "r \xB1\x97"},
          .n = -21};
}

std::array<Golden, 4> Goldens() {
  return {MinusShiftWithTone(), OddSplitWithDcs(), PlusShiftVfo(), SimplexHome()};
}

TEST(ChannelRecord, IsWrittenFieldByField) {
  for (const Golden& golden : Goldens()) {
    EXPECT_EQ(BuildChannelRecord(ChannelRecord{}, golden.fields, golden.n), golden.record)
        << golden.name;
  }
}

TEST(ChannelRecord, IsReadFieldByField) {
  for (const Golden& golden : Goldens()) {
    SCOPED_TRACE(golden.name);
    const ChannelFields fields = DecodeChannelRecord(golden.record.data());
    EXPECT_EQ(fields.receive, golden.fields.receive);
    EXPECT_EQ(fields.transmit, golden.fields.transmit);
    EXPECT_EQ(fields.shift, golden.fields.shift);
    EXPECT_EQ(fields.offset, golden.fields.offset);
    EXPECT_EQ(fields.tone_mode, golden.fields.tone_mode);
    EXPECT_EQ(fields.tone_index, golden.fields.tone_index);
    EXPECT_EQ(fields.dcs_index, golden.fields.dcs_index);
    EXPECT_EQ(fields.mode, golden.fields.mode);
    EXPECT_EQ(fields.power, golden.fields.power);
    EXPECT_EQ(fields.step, golden.fields.step);
    EXPECT_EQ(fields.icon, golden.fields.icon);
    EXPECT_EQ(fields.option_a, golden.fields.option_a);
    EXPECT_EQ(fields.option_b, golden.fields.option_b);
    EXPECT_EQ(fields.name, golden.fields.name);
  }
}

TEST(ChannelRecord, KeepsBit7AndTheLastTwoBytesAndNothingElse) {
  for (const Golden& golden : Goldens()) {
    ChannelRecord old;
    old.fill(0xFF);
    ChannelRecord expected = golden.record;
    expected[0] |= 0x80;
    expected[20] = 0xFF;
    expected[21] = 0xFF;
    EXPECT_EQ(BuildChannelRecord(old, golden.fields, golden.n), expected) << golden.name;
  }
}

// The fields of a new channel on 145 MHz; every field has one place in its record.
ChannelFields PlainFields() {
  ChannelFields fields;
  fields.receive = 1'450'000;
  fields.transmit = 1'450'000;
  return fields;
}

constexpr ChannelRecord kPlainRecord = {0x00, 0x00, 0x14, 0x50, 0x00, 0x00, ' ',  ' ',
                                        ' ',  ' ',  ' ',  ' ',  ' ',  ' ',  0x00, 0x06,
                                        0x00, 0x0C, 0x0C, 0x00, 0x00, 0x00};

// Expects that a change of the plain fields changes this one byte of the plain record.
void ExpectOneByte(const std::function<void(ChannelFields&)>& change, std::size_t byte, int value) {
  ChannelFields fields = PlainFields();
  change(fields);
  ChannelRecord expected = kPlainRecord;
  expected.at(byte) = static_cast<std::uint8_t>(value);
  EXPECT_EQ(BuildChannelRecord(ChannelRecord{}, fields, 1), expected) << byte << ": " << value;
}

TEST(ChannelRecord, OfANewChannelHoldsTheDefaults) {
  EXPECT_EQ(BuildChannelRecord(ChannelRecord{}, PlainFields(), 1), kPlainRecord);
}

TEST(ChannelRecord, HoldsEveryChoiceInItsPlace) {
  for (int i = 0; i < 3; ++i) {
    ExpectOneByte([&](ChannelFields& f) { f.shift = i; }, 17, 0x0C + i);
    ExpectOneByte([&](ChannelFields& f) { f.mode = i; }, 5, i);
  }
  for (int i = 0; i < 4; ++i) {
    ExpectOneByte([&](ChannelFields& f) { f.power = i; }, 17, i * 4);
    ExpectOneByte([&](ChannelFields& f) { f.tone_mode = i; }, 17, 0x0C + i * 16);
  }
  for (int i = 0; i < 39; ++i) {
    ExpectOneByte([&](ChannelFields& f) { f.tone_index = i; }, 18, i);
  }
  for (int i = 0; i < 104; ++i) {
    ExpectOneByte([&](ChannelFields& f) { f.dcs_index = i; }, 19, i);
  }
  for (int i = 0; i < 64; ++i) {
    ExpectOneByte([&](ChannelFields& f) { f.icon = i; }, 5, i * 4);
  }
  ExpectOneByte([](ChannelFields& f) { f.option_a = true; }, 0, 0x10);
  ExpectOneByte([](ChannelFields& f) { f.option_b = true; }, 0, 0x20);
}

TEST(ChannelRecord, HoldsTheStepAndItsFlag) {
  // 145000 kHz is on every step but 15 and 9 kHz.
  for (int step = 0; step < 9; ++step) {
    ChannelFields fields = PlainFields();
    fields.step = step;
    ChannelRecord expected = kPlainRecord;
    expected[0] = step == 3 || step == 8 ? 0x40 : 0x00;
    expected[1] = static_cast<std::uint8_t>(step);
    EXPECT_EQ(BuildChannelRecord(ChannelRecord{}, fields, 1), expected) << step;
  }
}

struct GridCase {
  Units receive;
  Units transmit;
  int grid;  // bits 0-3 of record byte 0
};

void ExpectGrid(const GridCase& c) {
  for (const int n : {1, 240, -1, -11, -21}) {
    for (const int old : {0x00, 0xFF}) {
      ChannelFields fields = PlainFields();
      fields.receive = c.receive;
      fields.transmit = c.transmit;
      ChannelRecord record{};
      record[0] = static_cast<std::uint8_t>(old);
      EXPECT_EQ(BuildChannelRecord(record, fields, n)[0] & 0x0F, c.grid) << c.receive << ": " << n;
    }
  }
}

TEST(ChannelRecord, HoldsBothGridClassesForEverySlot) {
  for (const GridCase& c :
       {GridCase{1'450'000, 1'450'000, 0x0}, GridCase{1'450'125, 1'450'000, 0x1},
        GridCase{1'450'000, 1'450'125, 0x4}, GridCase{1'450'125, 1'450'375, 0x5},
        GridCase{9'990, 9'950, 0x1}, GridCase{10'000, 9'990, 0x4}}) {
    ExpectGrid(c);
  }
  const RegionGuard guard({.variant = Variant::kOne});
  for (const GridCase& c : {GridCase{5'400, 5'400, 0xA}, GridCase{5'310, 1'450'000, 0x2},
                            GridCase{1'450'125, 5'310, 0x9}}) {
    ExpectGrid(c);
  }
}

TEST(ChannelRecord, StoresOnlyTheLowBitsOfTheClassOfNoGrid) {
  ExpectGrid({1'450'000, 1'450'010, 0x4});
  ExpectGrid({1'450'010, 1'450'000, 0x1});
}

TEST(ChannelRecord, HoldsTheTransmitFrequencyOnlyForOddSplit) {
  for (int shift = 0; shift < 4; ++shift) {
    ChannelFields fields = PlainFields();
    fields.shift = shift;
    fields.offset = 76'000;
    fields.transmit = 4'460'375;
    const ChannelRecord record = BuildChannelRecord(ChannelRecord{}, fields, 1);
    const Bytes field(record.begin() + 14, record.begin() + 17);
    EXPECT_EQ(field, shift == 3 ? (Bytes{0x44, 0x60, 0x37}) : (Bytes{0x00, 0x76, 0x00})) << shift;
    EXPECT_EQ(record[17], 0x0C + shift);
  }
}

TEST(ChannelRecord, OfASpecialSlotHoldsNoIcon) {
  for (const int n : {-1, -10, -11, -20, -21, -30}) {
    ChannelFields fields = PlainFields();
    fields.icon = 63;
    fields.mode = 2;
    ChannelRecord old{};
    old[5] = 0xFD;
    EXPECT_EQ(BuildChannelRecord(old, fields, n)[5], 0x02) << n;
    fields.mode = std::nullopt;
    EXPECT_EQ(BuildChannelRecord(old, fields, n)[5], 0x01) << n;
  }
}

TEST(ChannelRecord, TakesAToneOrCodeOnlyWhenItIsInRange) {
  for (const int index : {-1, 39, 40, 255}) {
    ChannelFields fields = PlainFields();
    fields.tone_index = index;
    ChannelRecord old{};
    old[18] = 0x77;
    EXPECT_EQ(BuildChannelRecord(old, fields, 1)[18], 0x77) << index;
  }
  for (const int index : {-1, 104, 105, 255}) {
    ChannelFields fields = PlainFields();
    fields.dcs_index = index;
    ChannelRecord old{};
    old[19] = 0x99;
    EXPECT_EQ(BuildChannelRecord(old, fields, 1)[19], 0x99) << index;
  }
}

TEST(ChannelRecord, CutsTrailingBlanksOfTheNameAndPadsItAgain) {
  ChannelRecord record = kPlainRecord;
  const std::string stored = " A  B   ";
  std::copy(stored.begin(), stored.end(), record.begin() + 6);
  const ChannelFields fields = DecodeChannelRecord(record.data());
  EXPECT_EQ(fields.name, " A  B");
  EXPECT_EQ(BuildChannelRecord(record, fields, 1), record);
}

TEST(ChannelRecord, CutsALongNameAfterEightCharacters) {
  ChannelFields fields = PlainFields();
  fields.name = "123456789";
  const ChannelRecord record = BuildChannelRecord(ChannelRecord{}, fields, 1);
  EXPECT_EQ(std::string(record.begin() + 6, record.begin() + 14), "12345678");
  EXPECT_EQ(record[14], 0x00);
}

}  // namespace
}  // namespace qz7
