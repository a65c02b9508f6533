#include "core/interchange/import_placement.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/interchange_fixture.h"

namespace qz7 {
namespace {

using namespace interchange_fixture;
using image_fixture::BytesAt;
using image_fixture::DifferingOffsets;
using image_fixture::PutBytes;

template <std::size_t N>
void SetText(std::array<char, N>& target, std::string_view text) {
  std::copy(text.begin(), text.end(), target.begin());
}

// 146.94 MHz, plus 600 kHz, 88.5 Hz encoded, high power, "RPT1".
ImportRecord Repeater() {
  ImportRecord record;
  record.rx = Kilohertz(146'940);
  record.tx = Kilohertz(600);
  record.shift = Shift::kPlus;
  record.tone_mode = ToneMode::kEncode;
  record.encode_tone = 885;
  SetText(record.name, "RPT1");
  return record;
}

Bytes Placed(const ImportRecord& record) {
  auto image = MakeRadio();
  PlaceImportRecord(*image, record, 50, test_region);
  return RecordBytes(*image, 50);
}

// Bytes 14 to 16 of the record.
Bytes OffsetOf(const ImportRecord& record) {
  const Bytes placed = Placed(record);
  return {placed.begin() + 14, placed.begin() + 17};
}

ImportRecord Split(std::uint32_t rx, std::uint32_t tx) {
  ImportRecord record = Repeater();
  record.rx = HundredHertz(rx);
  record.tx = HundredHertz(tx);
  record.shift = Shift::kOddSplit;
  return record;
}

ImportRecord Simplex(std::uint32_t rx, std::uint32_t tx) {
  ImportRecord record = Repeater();
  record.rx = HundredHertz(rx);
  record.tx = HundredHertz(tx);
  record.shift = Shift::kSimplex;
  return record;
}

TEST(PlacedRecord, HoldsARepeater) {
  EXPECT_EQ(Placed(Repeater()),
            (Bytes{0x00, 0x00, 0x14, 0x69, 0x40, 0x00, 'R',  'P',  'T',  '1',  ' ',
                   ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x1E, 0x08, 0x00, 0x00, 0x00}));
}

TEST(PlacedRecord, StartsFromZerosWhateverTheChannelHeld) {
  auto image = MakeRadio();
  PutBytes(*image, 3656 + 22 * 50, Bytes(22, 0xFF));
  PlaceImportRecord(*image, Repeater(), 50, test_region);
  EXPECT_EQ(RecordBytes(*image, 50), Placed(Repeater()));
}

TEST(PlacedRecord, HasTheStepOfItsBand) {
  EXPECT_EQ(Placed(Simplex(1'465'200, 6'000))[1], 0);
  EXPECT_EQ(Placed(Simplex(4'460'000, 6'000))[1], 5);
  EXPECT_EQ(Placed(Simplex(2'500'000, 6'000))[1], 2);
}

TEST(PlacedRecord, HasTheGridOfItsFrequencyTwice) {
  EXPECT_EQ(Placed(Simplex(1'450'000, 6'000))[0], 0x00);
  EXPECT_EQ(Placed(Simplex(1'450'125, 6'000))[0], 0x05);
  // A frequency on no grid has the code 5, of which two bits are kept.
  EXPECT_EQ(Placed(Simplex(1'450'010, 6'000))[0], 0x05);
}

TEST(PlacedRecord, KeepsAnOddSplitsTransmitFrequencyAndItsGrid) {
  const Bytes record = Placed(Split(1'469'400, 1'470'125));
  EXPECT_EQ(record[0], 0x04);
  EXPECT_EQ(record[17], 0x1F);
  EXPECT_EQ(Bytes(record.begin() + 14, record.begin() + 17), (Bytes{0x14, 0x70, 0x12}));
}

TEST(PlacedRecord, RoundsAnOddSplitThatIsOnNoStep) {
  EXPECT_EQ(OffsetOf(Split(1'469'400, 1'470'115)), (Bytes{0x14, 0x70, 0x11}));  // 500 Hz step
  EXPECT_EQ(OffsetOf(Split(1'469'400, 1'470'112)), (Bytes{0x14, 0x70, 0x11}));  // 6.25 kHz, cut
  EXPECT_EQ(OffsetOf(Split(1'469'400, 1'470'111)), (Bytes{0x14, 0x70, 0x10}));
  EXPECT_EQ(OffsetOf(Split(1'469'400, 1'470'113)), (Bytes{0x14, 0x70, 0x10}));
}

TEST(PlacedRecord, ReplacesATransmitFrequencyThatTheRadioDoesNotAccept) {
  EXPECT_EQ(OffsetOf(Split(1'469'400, 7'350'000)), (Bytes{0x00, 0x06, 0x00}));
  EXPECT_EQ(OffsetOf(Split(2'799'950, 7'350'000)), (Bytes{0x00, 0x06, 0x00}));
  EXPECT_EQ(OffsetOf(Split(2'800'000, 7'350'000)), (Bytes{0x00, 0x50, 0x00}));
}

TEST(PlacedRecord, RoundsAnOffsetDownTo5Kilohertz) {
  EXPECT_EQ(OffsetOf(Simplex(1'469'400, 6'049)), (Bytes{0x00, 0x06, 0x00}));
  EXPECT_EQ(OffsetOf(Simplex(1'469'400, 6'050)), (Bytes{0x00, 0x06, 0x05}));
}

TEST(PlacedRecord, WithoutAnOffsetGetsATenthOfTheUsualOne) {
  EXPECT_EQ(OffsetOf(Simplex(2'799'950, 0)), (Bytes{0x00, 0x00, 0x60}));
  EXPECT_EQ(OffsetOf(Simplex(2'800'000, 0)), (Bytes{0x00, 0x05, 0x00}));
}

TEST(PlacedRecord, OfAnOddSplitWithoutATransmitFrequencyTakesThatDefaultWhereItIsValid) {
  EXPECT_EQ(OffsetOf(Split(1'469'400, 0)), (Bytes{0x00, 0x06, 0x00}));  // 60 kHz is not
  EXPECT_EQ(OffsetOf(Split(4'469'400, 0)), (Bytes{0x00, 0x05, 0x00}));  // 500 kHz is
}

TEST(PlacedRecord, HasThePowerHighOrLow3) {
  ImportRecord record = Simplex(1'465'200, 6'000);
  const auto packed = [&](ImportPower power) {
    record.power = power;
    return Placed(record)[17];
  };
  EXPECT_EQ(packed(ImportPower::kLow), 0x18);
  EXPECT_EQ(packed(ImportPower::kMid), 0x1C);
  EXPECT_EQ(packed(ImportPower::kHigh), 0x1C);
}

TEST(PlacedRecord, HasTheDirectionAndTheToneMode) {
  ImportRecord record = Repeater();
  record.shift = Shift::kMinus;
  record.tone_mode = ToneMode::kDcs;
  EXPECT_EQ(Placed(record)[17], 0x3D);
  record.tone_mode = ToneMode::kNone;
  EXPECT_EQ(Placed(record)[17], 0x0D);
}

TEST(PlacedRecord, FindsTheToneInTheTable) {
  ImportRecord record = Repeater();
  const auto tone = [&](int tenths) {
    record.encode_tone = static_cast<std::uint16_t>(tenths);
    return Placed(record)[18];
  };
  EXPECT_EQ(tone(670), 0);
  EXPECT_EQ(tone(2'503), 38);
  EXPECT_EQ(tone(0), 12);
  EXPECT_EQ(tone(67), 255);
  EXPECT_EQ(tone(65'535), 255);
}

TEST(PlacedRecord, CutsTheNameToEightCharacters) {
  ImportRecord record = Repeater();
  SetText(record.name, "NINECHARS");
  auto image = MakeRadio();
  PlaceImportRecord(*image, record, 50, test_region);
  EXPECT_EQ(NameInRecord(*image, 50), "NINECHAR");
  EXPECT_EQ(BytesAt(*image, 11'692, 10), (Bytes{'N', 'I', 'N', 'E', 'C', 'H', 'A', 'R', 0, 0}));
}

TEST(PlacedRecord, EmptiesTheTableEntryOfFourDashesAndKeepsThemItself) {
  ImportRecord record = Repeater();
  SetText(record.name, "----");
  auto image = MakeRadio();
  PutBytes(*image, 11'692, BytesOfText("OLDNAME"));
  PlaceImportRecord(*image, record, 50, test_region);
  EXPECT_EQ(NameInRecord(*image, 50), "----    ");
  EXPECT_EQ((*image)[11'692], 0);
  SetText(record.name, "-----");
  PlaceImportRecord(*image, record, 50, test_region);
  EXPECT_EQ(BytesAt(*image, 11'692, 6), (Bytes{'-', '-', '-', '-', '-', 0}));
}

TEST(PlacedRecord, SetsTheFlagsOfAShownChannel) {
  auto image = MakeRadio();
  (*image)[3407] = 0xF8;
  PlaceImportRecord(*image, Repeater(), 50, test_region);
  EXPECT_EQ(FlagByte(*image, 50), 0xF3);
  (*image)[3407] = 0x0C;
  ImportRecord skipped = Repeater();
  skipped.skip = true;
  PlaceImportRecord(*image, skipped, 50, test_region);
  EXPECT_EQ(FlagByte(*image, 50), 0x07);
}

TEST(PlacedRecord, TakesTheCommentOverAnOlderOne) {
  auto image = MakeRadio();
  PutBytes(*image, 15'170, Bytes(32, 'x'));
  ImportRecord record = Repeater();
  SetText(record.comment, "North");
  PlaceImportRecord(*image, record, 50, test_region);
  Bytes expected = BytesOfText("North");
  expected.resize(32);
  EXPECT_EQ(BytesAt(*image, 15'170, 32), expected);
}

TEST(PlacedRecord, TouchesItsOwnChannelAlone) {
  const auto before = image_fixture::MakePatternImage();
  (*before)[3068] = 0;
  (*before)[3073] = 1;
  auto image = std::make_unique<CloneImage>(*before);
  PlaceImportRecord(*image, Repeater(), 50, test_region);
  for (const std::size_t offset : DifferingOffsets(*before, *image)) {
    const bool own = offset == 3'407 || (offset >= 4'756 && offset < 4'778) ||
                     (offset >= 11'692 && offset < 11'701) || (offset >= 15'170 && offset < 15'202);
    EXPECT_TRUE(own) << offset;
  }
}

TEST(PlacedRecord, IsNotWrittenForAFrequencyThatTheRadioDoesNotAccept) {
  auto image = MakeRadio();
  const CloneImage before = *image;
  PlaceImportRecord(*image, Simplex(7'350'000, 6'000), 50, test_region);
  PlaceImportRecord(*image, Simplex(0, 6'000), 50, test_region);
  EXPECT_EQ(*image, before);
}

TEST(PlacedRecord, IsNotWrittenForAChannelThatThereIsNot) {
  for (const int count : {240, 65'535}) {
    auto image = MakeRadio(count);
    const CloneImage before = *image;
    for (const int n : {0, -1, -30, 241, 65'535, 65'536}) {
      PlaceImportRecord(*image, Repeater(), n, test_region);
    }
    EXPECT_EQ(*image, before);
  }
}

TEST(FreeRun, EndsAtAProgrammedChannel) {
  auto image = MakeRadio();
  Program(*image, 20, 20);
  EXPECT_EQ(FreeRunLength(*image, 1, PmsPairs::kExcluded), 19);
  EXPECT_EQ(FreeRunLength(*image, 19, PmsPairs::kExcluded), 1);
  EXPECT_EQ(FreeRunLength(*image, 20, PmsPairs::kExcluded), 0);
  EXPECT_EQ(FreeRunLength(*image, 21, PmsPairs::kExcluded), 200);
}

TEST(FreeRun, LeavesOutTheTwentyPmsChannelsUnlessTheyAreIncluded) {
  const auto image = MakeRadio();
  EXPECT_EQ(FreeRunLength(*image, 211, PmsPairs::kExcluded), 10);
  EXPECT_EQ(FreeRunLength(*image, 220, PmsPairs::kExcluded), 1);
  EXPECT_EQ(FreeRunLength(*image, 221, PmsPairs::kExcluded), 0);
  EXPECT_EQ(FreeRunLength(*image, 211, PmsPairs::kIncluded), 30);
  EXPECT_EQ(FreeRunLength(*image, 240, PmsPairs::kIncluded), 1);
  EXPECT_EQ(FreeRunLength(*image, 241, PmsPairs::kIncluded), 0);
}

TEST(FreeRun, FollowsTheImagesCountAndEndsWithTheChannels) {
  EXPECT_EQ(FreeRunLength(*MakeRadio(30), 1, PmsPairs::kExcluded), 10);
  EXPECT_EQ(FreeRunLength(*MakeRadio(30), 1, PmsPairs::kIncluded), 30);
  EXPECT_EQ(FreeRunLength(*MakeRadio(10), 1, PmsPairs::kExcluded), 0);
  EXPECT_EQ(FreeRunLength(*MakeRadio(65'535), 1, PmsPairs::kExcluded), 240);
  EXPECT_EQ(FreeRunLength(*MakeRadio(), 0, PmsPairs::kIncluded), 0);
  EXPECT_EQ(FreeRunLength(*MakeRadio(), -5, PmsPairs::kIncluded), 0);
}

TEST(DefaultStart, IsWhereTheLongestFreeRunStarts) {
  auto image = MakeRadio();
  Program(*image, 1, 10);
  Program(*image, 50, 220);
  EXPECT_EQ(DefaultStartChannel(*image), 11);
}

TEST(DefaultStart, NeverCountsThePmsChannels) {
  auto image = MakeRadio();
  Program(*image, 3, 210);
  EXPECT_EQ(DefaultStartChannel(*image), 211);
  Program(*image, 211, 218);
  EXPECT_EQ(DefaultStartChannel(*image), 1);
}

TEST(DefaultStart, Is1WithoutAFreeChannel) {
  auto image = MakeRadio();
  Program(*image, 1, 220);
  EXPECT_EQ(DefaultStartChannel(*image), 1);
}

TEST(DefaultStart, Is1InAnEmptyDocument) { EXPECT_EQ(DefaultStartChannel(*MakeRadio()), 1); }

TEST(DefaultStart, IsTheEarlierOfTwoEqualRuns) {
  auto image = MakeRadio();
  Program(*image, 1, 220);
  for (const int n : {30, 31, 32, 80, 81, 82, 150, 151}) {
    (*image)[static_cast<std::size_t>(3357 + n)] = 0x02;
  }
  EXPECT_EQ(DefaultStartChannel(*image), 30);
}

TEST(DefaultStart, FindsTheLastFreeChannelOfThemAll) {
  auto image = MakeRadio();
  Program(*image, 1, 219);
  EXPECT_EQ(DefaultStartChannel(*image), 220);
}

TEST(DefaultStart, StandsOnHostileCounts) {
  EXPECT_EQ(DefaultStartChannel(*MakeRadio(0)), 1);
  EXPECT_EQ(DefaultStartChannel(*MakeRadio(5)), 1);
  EXPECT_EQ(DefaultStartChannel(*MakeRadio(65'535)), 1);
}

}  // namespace
}  // namespace qz7
