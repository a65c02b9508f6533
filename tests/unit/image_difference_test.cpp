#include "core/editors/image_difference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

#include "core/files/document_header.h"
#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "core/image/channel_record.h"
#include "core/image/settings_map.h"
#include "tests/unit/plain_numbers.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using Lines = std::vector<std::string>;

class ImageDifference : public testing::Test {
 protected:
  void SetUp() override {
    MakeNewImage(*a_);
    *b_ = *a_;
  }

  CloneImage& B() { return *b_; }
  Lines Differences() { return DocumentDifferences(*a_, *b_, test_region); }
  Lines OfTheRadio() { return RadioDifferences(*a_, *b_, test_region); }

  std::unique_ptr<CloneImage> a_ = std::make_unique<CloneImage>();
  std::unique_ptr<CloneImage> b_ = std::make_unique<CloneImage>();
};

TEST_F(ImageDifference, OfTheSameDocumentIsNothing) { EXPECT_EQ(Lines{}, Differences()); }

TEST_F(ImageDifference, LooksPastWhatASaveMakesAnew) {
  PrepareRadioDataFile(B());
  test_seams.now = 77;
  PrepareRadioDataFile(*a_);
  EXPECT_EQ(Lines{}, Differences());
}

TEST_F(ImageDifference, NamesTheFieldsOfAChannel) {
  std::uint8_t* record = GetChannelRecord(B(), 1);
  StoreReceive(record, Kilohertz(146'520));
  SetSkip(B(), 1, true);
  EXPECT_EQ(
      (Lines{"channel 1: rx \"145.0000\" -> \"146.5200\"",
             "channel 1: tx \"145.0000\" -> \"146.5200\"", "channel 1: skip \"off\" -> \"on\""}),
      Differences());
}

TEST_F(ImageDifference, TellsAChannelThatIsProgrammedOnOneSideWhole) {
  std::copy_n(GetChannelRecord(B(), 1), kRecordSize, GetChannelRecord(B(), 221));
  SetProgrammed(B(), 221, true);
  EXPECT_EQ((Lines{"channel L1: not programmed -> 145.0000"}), Differences());
}

TEST_F(ImageDifference, TellsAChannelThatIsGone) {
  SetProgrammed(B(), 1, false);
  EXPECT_EQ((Lines{"channel 1: 145.0000 -> not programmed"}), Differences());
}

TEST_F(ImageDifference, NamesVfoAndHomeSlots) {
  GetChannelRecord(B(), -16)[kRecordStep] = 5;
  GetChannelRecord(B(), -25)[17] ^= 0x0C;
  EXPECT_EQ(
      (Lines{"VFO B V Ham: step \"5 kHz\" -> \"25 kHz\"", "home 6m: power \"High\" -> \"Low1\""}),
      Differences());
}

TEST_F(ImageDifference, TellsCommentsOfDocumentsOnly) {
  std::strcpy(ChannelComment(B(), 1), "hill");
  B()[kFileComment.offset] = 'x';
  EXPECT_EQ((Lines{"file comment: \"\" -> \"x\"", "channel 1: comment \"\" -> \"hill\""}),
            Differences());
  EXPECT_EQ(Lines{}, OfTheRadio());
}

TEST_F(ImageDifference, TellsGroupsNamesAndNumbersAsTheyRead) {
  B()[kGroupTable.offset] = 0;
  B()[kGroupTable.offset + 1] = 6;
  B()[kWxNames.offset + 8] = 'Y';
  B()[kAutodial.offset] = 5;
  B()[kVornIdentifier.offset] = 10;
  EXPECT_EQ((Lines{"group 1: empty -> 7", "WX name 2: \"WX 2    \" -> \"YX 2    \"",
                   "VORN identifier: \"\" -> \"A\"", "autodial 1: \"\" -> \"5\""}),
            Differences());
}

TEST_F(ImageDifference, TellsTheBytesOfARecordThatNoFieldTells) {
  std::uint8_t* record = GetChannelRecord(B(), 1);
  record[20] = 0x12;
  record[21] = 0x34;
  record[17] ^= 0x0C;
  *GetChannelFlagByte(B(), 1) ^= 0xF4;
  const Lines lines = Differences();
  EXPECT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines[0].substr(0, 16), "channel 1: power");
  EXPECT_EQ(lines[1].substr(0, 15), "channel 1: skip");
  EXPECT_EQ(lines[2].substr(0, 9), "byte 3358");
  EXPECT_EQ(lines[3].substr(0, 9), "byte 3698");
  EXPECT_EQ(lines[4].substr(0, 9), "byte 3699");
}

TEST_F(ImageDifference, TellsGroupsByTheLabelsOfTheirChannels) {
  for (std::size_t i = 0; i < 3; ++i) {
    B()[3110 + 2 * i] = 0;
    B()[3111 + 2 * i] = std::array<std::uint8_t, 3>{11, 12, 220}[i];
  }
  EXPECT_EQ((Lines{"group 1: empty -> 12 13 L1"}), Differences());
}

TEST_F(ImageDifference, TellsAutodialDigitsAsTheRadioShowsThem) {
  B()[10252] = 14;
  B()[10253] = 15;
  EXPECT_EQ((Lines{"autodial 1: \"\" -> \"*#\""}), Differences());
}

TEST_F(ImageDifference, TellsSettingsByTheirNames) {
  (*a_)[10203] = 0;
  B()[10203] = 2;
  (*a_)[10504] = 0;
  B()[10504] = 0x80;
  EXPECT_EQ((Lines{"Lamp: 5 Second -> Toggle", "Switch 1: off -> on"}), Differences());
}

TEST_F(ImageDifference, FoldsTheOperatingStateIntoOneLine) {
  B()[10457] ^= 1;
  B()[10472] ^= 1;
  B()[10484] ^= 1;
  EXPECT_EQ((Lines{"operating state: 3 bytes differ"}), Differences());
}

TEST_F(ImageDifference, TellsEveryOtherByteOfTheRadioByItsOffset) {
  B()[3060] = 0x0B;
  B()[11181] = 0x7F;
  B()[11182] = 0x7F;
  EXPECT_EQ((Lines{"byte 3060: 0x0A -> 0x0B", "byte 11181: 0x00 -> 0x7F"}), Differences());
}

TEST_F(ImageDifference, TellsASettingThatReadsTheSameByItsBytes) {
  (*a_)[10'122] = 0;  // WX name 2 ends in front of its first character
  B()[10'122] = 0;
  B()[10'123] = 'Z';
  (*a_)[10'208] = 50;  // codes of no character read as "?"
  B()[10'208] = 60;
  (*a_)[10'252] = 0xFF;  // autodial number 1 ends in front of its first digit
  B()[10'252] = 0xFF;
  (*a_)[10'253] = 1;
  B()[10'253] = 2;
  EXPECT_EQ(
      (Lines{"byte 10123: 0x58 -> 0x5A", "byte 10208: 0x32 -> 0x3C", "byte 10253: 0x01 -> 0x02"}),
      Differences());
}

TEST_F(ImageDifference, StaysInsideWithHostileCounts) {
  WriteU16(a_->data() + kChannelCountOffset, 65'535);
  WriteU16(b_->data() + kChannelCountOffset, 65'535);
  EXPECT_EQ(Lines{}, Differences());
}

}  // namespace
}  // namespace qz7
