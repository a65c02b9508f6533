#include "core/files/image_difference.h"

#include <gtest/gtest.h>

#include <algorithm>
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
