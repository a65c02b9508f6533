#include "core/files/new_document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "core/editors/vorn.h"
#include "core/files/document_header.h"
#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "core/image/operating_state.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/plain_numbers.h"

namespace qz7 {
namespace {

class NewDocument : public testing::Test {
 protected:
  NewDocument() { MakeNewImage(image_); }

  bool AllAre(std::uint8_t value, std::size_t offset, std::size_t size) const {
    return std::all_of(image_.begin() + static_cast<std::ptrdiff_t>(offset),
                       image_.begin() + static_cast<std::ptrdiff_t>(offset + size),
                       [value](std::uint8_t byte) { return byte == value; });
  }

  CloneImage image_{};
};

TEST_F(NewDocument, HasTheHeaderWorkedOutByHand) {
  EXPECT_EQ(FirstDifference(Bytes(image_.begin(), image_.begin() + 180), kNewHeader), -1);
}

TEST_F(NewDocument, IsZeroOutsideHeaderAndRadioBlock) {
  EXPECT_TRUE(AllAre(0, 180, 2880));
  EXPECT_TRUE(AllAre(0, 11'182, 21'282 - 11'182));
}

TEST_F(NewDocument, DoesNotDependOnTheDocumentBeforeIt) {
  CloneImage used;
  used.fill(0x5A);
  MakeNewImage(used);
  EXPECT_EQ(FirstDifference(used, image_), -1);
}

TEST(DocumentHeader, LeavesChecksumsFillerAndCommentAlone) {
  CloneImage image;
  image.fill(0xEE);
  WriteDocumentHeader(image);
  EXPECT_EQ(FirstDifference(Bytes(image.begin(), image.begin() + 80),
                            Bytes(kNewHeader.begin(), kNewHeader.begin() + 80)),
            -1);
  EXPECT_EQ(FirstDifference(Bytes(image.begin() + 80, image.end()), Bytes(21'282 - 80, 0xEE)), -1);
}

TEST(DocumentHeader, MagicIsReadAndWrittenAsFourBytes) {
  CloneImage image{};
  EXPECT_FALSE(HasMagic(image, kRadioDataMagic));
  image[3] = 9;
  SetMagic(image, kTemplateMagic);
  EXPECT_EQ(Bytes(image.begin(), image.begin() + 5), (Bytes{0x54, 0x50, 0x4C, 0, 0}));
  EXPECT_TRUE(HasMagic(image, kTemplateMagic));
  EXPECT_FALSE(HasMagic(image, kRadioDataMagic));
  SetMagic(image, kRadioDataMagic);
  EXPECT_EQ(Bytes(image.begin(), image.begin() + 5), (Bytes{0x52, 0x44, 0x46, 0, 0}));
  image[3] = 1;
  EXPECT_FALSE(HasMagic(image, kRadioDataMagic));
}

TEST(DocumentHeader, RadioNameEndsAtItsZeroByteOrItsField) {
  CloneImage image = ImageOf(IntactFile("RDF"));
  EXPECT_EQ(RadioName(image), "Tamro QZ-7H");
  std::fill(image.begin() + 16, image.begin() + 60, std::uint8_t{'n'});
  EXPECT_EQ(RadioName(image), std::string(40, 'n'));
}

TEST(DefaultRadioBlock, TouchesNothingBesideTheRadioBlock) {
  CloneImage image;
  image.fill(0x5A);
  WriteDefaultRadioBlock(image);
  EXPECT_TRUE(std::all_of(image.begin(), image.begin() + 3060,
                          [](std::uint8_t byte) { return byte == 0x5A; }));
  EXPECT_TRUE(std::all_of(image.begin() + 11'182, image.end(),
                          [](std::uint8_t byte) { return byte == 0x5A; }));
}

TEST_F(NewDocument, StartsItsRadioBlockWithTheRadiosOwnBytes) {
  const Bytes start(image_.begin() + 3060, image_.begin() + 3074);
  EXPECT_EQ(start, (Bytes{0x0A, 0x01, 0x02, 0x06, 0x09, 0x24, 0xC1, 0x01, 0x00, 0x24, 0xC1, 0x01,
                          0x01, 0x01}));
}

TEST_F(NewDocument, HasExactly5585EmptyBytesInItsRadioBlock) {
  EXPECT_EQ(std::count(image_.begin() + 3060, image_.begin() + 11'182, 0xFF), 5585);
}

TEST_F(NewDocument, IsOfVersionType0Subtype1WithWideCoverage) {
  EXPECT_EQ(image_[3068], 0);
  EXPECT_EQ(image_[3067], 1);
  EXPECT_EQ(image_[3073], 1);
}

TEST_F(NewDocument, HasEverySpecialSlotProgrammedInItsBand) {
  for (int n = -1; n >= -30; --n) {
    SCOPED_TRACE(n);
    EXPECT_TRUE(IsProgrammed(image_, n));
    EXPECT_FALSE(IsMasked(image_, n));
    EXPECT_FALSE(IsSkip(image_, n));
    const Frequency receive = ReadReceiveFrequency(GetChannelRecord(image_, n));
    EXPECT_TRUE(InBand(SlotBand(n), receive, test_region));
    EXPECT_TRUE(IsValidFrequency(image_, receive));
    const Frequency transmit = TransmitFrequency(GetChannelRecord(image_, n));
    EXPECT_TRUE(InBand(SlotBand(n), transmit, test_region));
  }
}

TEST_F(NewDocument, HasMemoryChannel1ProgrammedAndShown) {
  EXPECT_TRUE(IsProgrammed(image_, 1));
  EXPECT_FALSE(IsMasked(image_, 1));
  EXPECT_FALSE(IsSkip(image_, 1));
  EXPECT_TRUE(IsValidFrequency(image_, ReadReceiveFrequency(GetChannelRecord(image_, 1))));
}

TEST_F(NewDocument, GivesEveryProgrammedChannelTheStepAndModeOfItsBand) {
  constexpr std::array<int, 10> kSteps = {1, 0, 5, 6, 1, 0, 5, 5, 2, 1};
  constexpr std::array<Mode, 10> kUsualModes = {
      Mode::kAm,       Mode::kAm,       Mode::kFmWide, Mode::kFmWide,   Mode::kFmNarrow,
      Mode::kFmNarrow, Mode::kFmNarrow, Mode::kAm,     Mode::kFmNarrow, Mode::kFmNarrow};
  for (int n = -30; n <= 1; ++n) {
    if (n == 0) {
      continue;
    }
    SCOPED_TRACE(n);
    const std::uint8_t* record = GetChannelRecord(image_, n);
    const Band band = n < 0 ? SlotBand(n) : BandOf(ReadReceiveFrequency(record));
    EXPECT_EQ(record[1], kSteps.at(static_cast<std::size_t>(band)));
    EXPECT_EQ(kUsualModes.at(static_cast<std::size_t>(band)), record[5]);  // icon 0
  }
}

TEST_F(NewDocument, HasOnlyRecordsThatTheChannelEditorCouldHaveWritten) {
  for (int n = -30; n <= 1; ++n) {
    if (n == 0) {
      continue;
    }
    SCOPED_TRACE(n);
    const std::uint8_t* record = GetChannelRecord(image_, n);
    const Frequency receive = ReadReceiveFrequency(record);
    const Frequency transmit = TransmitFrequency(record);
    EXPECT_NE(GridClass(receive), kNoGrid);
    EXPECT_EQ(record[0] & 0x03, GridClass(receive));
    EXPECT_EQ(record[0] >> 2 & 0x03, GridClass(transmit));
    EXPECT_EQ((record[0] & 0x40) != 0, IsOffStep(receive, record[1]));
    EXPECT_EQ(record[0] & 0x80, 0);
    EXPECT_TRUE(RecordToneMode(record));
    EXPECT_LT(record[18], 39);
    EXPECT_LT(record[19], 104);
    EXPECT_TRUE(std::all_of(record + 6, record + 14,
                            [](std::uint8_t byte) { return byte >= 0x20 && byte < 0x7F; }));
  }
}

TEST_F(NewDocument, HasNoOtherChannel) {
  for (int n = 2; n <= 240; ++n) {
    EXPECT_EQ(*GetChannelFlagByte(image_, n), 0) << n;
    const std::uint8_t* record = GetChannelRecord(image_, n);
    EXPECT_EQ(std::count(record, record + 22, 0xFF), 22) << n;
  }
}

TEST_F(NewDocument, HasNoGroups) {
  EXPECT_TRUE(AllAre(255, 3102, 5));
  EXPECT_TRUE(AllAre(255, 3110, 5 * 48));
  // The group list reads one entry further than group 5 goes.
  EXPECT_TRUE(AllAre(255, 3350, 2));
  EXPECT_LE(image_[10'487], 4);
}

TEST_F(NewDocument, HasNoAutodialNumbers) {
  for (std::size_t memory = 0; memory < 9; ++memory) {
    EXPECT_TRUE(AllAre(0xFF, 10'252 + memory * 16, 7)) << memory;
  }
}

TEST_F(NewDocument, NamesTheWeatherChannels) {
  const std::string names(image_.begin() + 10'114, image_.begin() + 10'194);
  EXPECT_EQ(names,
            "WX 1    WX 2    WX 3    WX 4    WX 5    "
            "WX 6    WX 7    WX 8    WX 9    WX 10   ");
}

TEST_F(NewDocument, HasTheOperatingStateThatItsRefreshMakes) {
  CloneImage refreshed = image_;
  RefreshOperatingState(refreshed);
  EXPECT_EQ(FirstDifference(refreshed, image_), -1);
}

TEST_F(NewDocument, OperatesOnAChannelThatIsThere) {
  ASSERT_LE(image_[10'451], 5);
  EXPECT_LE(image_[10'454], 1);
  EXPECT_LE(image_[10'455], 9);
  EXPECT_EQ(image_[10'482], 0);  // memory channel 1
  EXPECT_EQ(image_[10'484], *GetChannelFlagByte(image_, 1));
  EXPECT_LE(image_[10'494], 9);
  EXPECT_LE(image_[10'495], 9);
  Frequency receive = DecodeBcdFrequency(&image_[10'464], 6);
  EXPECT_TRUE(IsValidFrequency(image_, receive));
}

struct Choice {
  const char* what;
  std::size_t offset;
  int lowest;
  int highest;
};

// Every list of the screens: the byte that it shows and what the byte may hold.
constexpr std::array<Choice, 17> kChoices = {{
    {"scale value", 10'194, 6, 15},
    {"lock", 10'200, 0, 6},
    {"three-way choice", 10'201, 0, 2},
    {"milliseconds", 10'202, 0, 5},
    {"hold", 10'203, 0, 2},
    {"VORN mode", 10'205, 0, 2},
    {"ring", 10'206, 0, 5},
    {"VORN flag", 10'207, 0, 1},
    {"sensor display", 10'224, 0, 6},
    {"power off", 10'240, 0, 5},
    {"minutes", 10'241, 0, 4},
    {"time of day", 10'242, 0, 144},
    {"display symbol", 10'243, 0, 6},
    {"number A, high byte", 10'196, 0, 3},
    {"number B, high byte", 10'198, 0, 3},
    {"level A", 10'502, 0, 15},
    {"level B", 10'503, 0, 8},
}};

TEST_F(NewDocument, ShowsAValidChoiceInEveryList) {
  for (const Choice& choice : kChoices) {
    EXPECT_GE(image_[choice.offset], choice.lowest) << choice.what;
    EXPECT_LE(image_[choice.offset], choice.highest) << choice.what;
  }
  for (std::size_t position = 0; position < 15; ++position) {
    EXPECT_LE(image_[10'225 + position], 26) << "icon " << position;
  }
}

TEST_F(NewDocument, ShowsNumbersOfAtMostThreeDigits) {
  EXPECT_LE(image_[10'196] * 256 + image_[10'197], 999);
  EXPECT_LE(image_[10'198] * 256 + image_[10'199], 999);
}

TEST_F(NewDocument, HasAVornIdentifierThatIsEmptyToItsEnd) {
  EXPECT_TRUE(AllAre(0xFF, 10'208, 16));
  EXPECT_EQ(image_[10'207], 0);
  EXPECT_EQ(image_[10'224], 0);
}

TEST_F(NewDocument, ShowsAVornIdentifierOfAnyLengthAsItWasTyped) {
  const Setting& identifier = VornScreen().rows.back();
  for (std::size_t length = 0; length <= 16; ++length) {
    MakeNewImage(image_);
    const SettingValue typed{.text = std::string(length, 'Q')};
    StoreSetting(identifier, typed, TargetIn(image_));
    EXPECT_EQ(LoadSetting(identifier, SourceIn(image_)), typed);
  }
}

}  // namespace
}  // namespace qz7
