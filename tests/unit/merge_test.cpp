#include "core/interchange/merge.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/unit/image_fixture.h"
#include "tests/unit/interchange_fixture.h"
#include "tests/unit/merge_fixture.h"

namespace qz7 {
namespace {

using namespace merge_fixture;
using image_fixture::BytesAt;
using image_fixture::PutBytes;
using interchange_fixture::FlagByte;
using interchange_fixture::MakeRadio;
using interchange_fixture::NameInRecord;
using interchange_fixture::RecordBytes;

// A record whose every byte tells: 443.0 MHz, minus, AM, icon 16, "BASE".
Bytes BaseRecord() {
  return {0x35, 0x05, 0x44, 0x30, 0x00, 0x41, 'B',  'A',  'S',  'E',  ' ',
          ' ',  ' ',  ' ',  0x00, 0x50, 0x00, 0x29, 0x07, 0x21, 0xA5, 0x5A};
}

class Merge : public testing::Test {
 protected:
  void SetUp() override {
    working_copy_ = std::make_unique<CloneImage>(*image_);
    image_fixture::PutChannel(*working_copy_, 1, BaseRecord());
    options_.start = 50;
  }
  void Load(const SourceFile& file) {
    ASSERT_TRUE(merge_fixture::Load(source_, *working_copy_, file.bytes));
  }
  void Run(const SourceFile& file) {
    Load(file);
    MergeChannels(*image_, *working_copy_, source_, options_);
  }
  // The record of channel 50 after the merge of this one channel of the sibling.
  Bytes Merged(int flags, std::uint32_t receive, std::uint32_t transmit, int tone = 1'000) {
    SourceFile file = SiblingFile();
    file.Channel(1, flags | kInUse, receive, transmit, tone);
    Run(file);
    return RecordBytes(*image_, 50);
  }
  Bytes MergedOffset(int flags, std::uint32_t receive, std::uint32_t transmit) {
    const Bytes record = Merged(flags, receive, transmit);
    return {record.begin() + 14, record.begin() + 17};
  }

  std::unique_ptr<CloneImage> image_ = MakeRadio();
  std::unique_ptr<CloneImage> working_copy_;
  MergeSource source_;
  MergeOptions options_;
};

TEST_F(Merge, CopiesTheRecordsOfItsOwnModelInTheirOrder) {
  SourceFile file = OwnFile();
  for (int s = 1; s <= 10; ++s) {
    Bytes record = BaseRecord();
    record[9] = static_cast<std::uint8_t>('0' + s);
    file.Record(3 * s, record);
    file.Channel(3 * s, kInUse, 14'694'000, 14'634'000);
    file.Name(3 * s, "BAS" + std::string(1, static_cast<char>('0' + s)) + "    ");
  }
  Run(file);
  for (int s = 1; s <= 10; ++s) {
    EXPECT_EQ(FlagByte(*image_, 49 + s), 0x03);
    EXPECT_EQ(
        RecordBytes(*image_, 49 + s),
        BytesAt(CloneImage(ImageOf(file.bytes)), 3656 + 22 * static_cast<std::size_t>(3 * s), 22));
  }
  EXPECT_EQ(FlagByte(*image_, 60), 0x00);
  EXPECT_EQ(FlagByte(*image_, 49), 0x00);
}

TEST_F(Merge, KeepsTheTargetsOtherFlagsAndSkipForItsOwnModel) {
  SourceFile file = OwnFile();
  file.Record(1, BaseRecord());
  file.Channel(1, kInUse | kSkipped, 14'694'000, 14'634'000);
  (*image_)[3407] = 0xF8;
  Run(file);
  EXPECT_EQ(FlagByte(*image_, 50), 0xFB);
  file.Channel(1, kInUse, 14'694'000, 14'634'000);
  (*image_)[3407] = 0x04;
  Run(file);
  EXPECT_EQ(FlagByte(*image_, 50), 0x07);
}

TEST_F(Merge, TakesSkipFromTheSummaryOfAnotherModel) {
  (*image_)[3407] = 0xF8;
  Merged(kSkipped, 14'694'000, 14'694'000);
  EXPECT_EQ(FlagByte(*image_, 50), 0xFF);
  Merged(0, 14'694'000, 14'694'000);
  EXPECT_EQ(FlagByte(*image_, 50), 0xFB);
}

TEST_F(Merge, SkipsAChannelOfItsOwnModelWithoutARecord) {
  SourceFile file = OwnFile();
  file.PutGeometry(400);
  // The entry of channel 260 lies behind the table, and what stands there says that it is in use.
  file.Channel(260, kInUse, 14'694'000, 14'634'000);
  file.Channel(2, kInUse, 14'694'000, 14'634'000);
  Run(file);
  EXPECT_EQ(FlagByte(*image_, 50), 0x03);
  EXPECT_EQ(FlagByte(*image_, 51), 0x00);
  EXPECT_TRUE(IsSelectedForMerge(source_, options_, 260));
}

TEST_F(Merge, BuildsAPlusChannelOfAnotherModelOnTheBaseRecord) {
  EXPECT_EQ(Merged(kPlusShift | kEncoder, 14'694'000, 14'754'000, 885),
            (Bytes{0x35, 0x05, 0x14, 0x69, 0x40, 0x41, ' ',  ' ',  ' ',  ' ',  ' ',
                   ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x1A, 0x08, 0x21, 0xA5, 0x5A}));
}

TEST_F(Merge, TakesTheOffsetOfAnotherModelFromItsTwoFrequencies) {
  EXPECT_EQ(MergedOffset(kPlusShift, 14'694'000, 14'754'000), (Bytes{0x00, 0x06, 0x00}));
  EXPECT_EQ(MergedOffset(kMinusShift, 14'694'000, 14'634'000), (Bytes{0x00, 0x06, 0x00}));
  EXPECT_EQ(MergedOffset(kSplitShift, 14'694'000, 43'500'000), (Bytes{0x43, 0x50, 0x00}));
  EXPECT_EQ(MergedOffset(kPlusShift, 14'694'000, 14'634'000), (Bytes{0x00, 0x06, 0x00}));
  EXPECT_EQ(MergedOffset(kPlusShift, 14'694'000, 0xFFFFFFFF), (Bytes{0x80, 0x27, 0x32}));
}

TEST_F(Merge, GivesASimplexChannelOfAnotherModelTheOffsetOfItsBand) {
  EXPECT_EQ(MergedOffset(0, 44'600'000, 44'600'000), (Bytes{0x00, 0x50, 0x00}));
  EXPECT_EQ(MergedOffset(0, 13'699'990, 0), (Bytes{0x00, 0x50, 0x00}));
  EXPECT_EQ(MergedOffset(0, 13'700'000, 0), (Bytes{0x00, 0x06, 0x00}));
  EXPECT_EQ(MergedOffset(0, 17'399'990, 0), (Bytes{0x00, 0x06, 0x00}));
  EXPECT_EQ(MergedOffset(0, 17'400'000, 0), (Bytes{0x00, 0x50, 0x00}));
}

TEST_F(Merge, TakesTheDirectionOfAnotherModel) {
  EXPECT_EQ(Merged(0, 14'694'000, 14'694'000)[17] & 3, 0);
  EXPECT_EQ(Merged(kMinusShift, 14'694'000, 14'634'000)[17] & 3, 1);
  EXPECT_EQ(Merged(kPlusShift, 14'694'000, 14'754'000)[17] & 3, 2);
  EXPECT_EQ(Merged(kSplitShift, 14'694'000, 43'500'000)[17] & 3, 3);
}

TEST_F(Merge, TakesATonesIndexAndModeFromAnotherModel) {
  EXPECT_EQ(Merged(kEncoder, 14'694'000, 14'694'000, 2'503)[18], 38);
  EXPECT_EQ(Merged(kEncoder, 14'694'000, 14'694'000, 885)[17] >> 4, 1);
  EXPECT_EQ(Merged(kSquelch, 14'694'000, 14'694'000, 885)[17] >> 4, 2);
  EXPECT_EQ(Merged(kSquelch | kEncoder, 14'694'000, 14'694'000, 885)[17] >> 4, 2);
  EXPECT_EQ(Merged(0, 14'694'000, 14'694'000, 885)[17] >> 4, 0);
}

TEST_F(Merge, KeepsTheBaseRecordsToneForOneThatIsNotInTheTable) {
  const Bytes record = Merged(kEncoder, 14'694'000, 14'694'000, 886);
  EXPECT_EQ(record[18], 0x07);
  EXPECT_EQ(record[17] >> 4, 2);
}

TEST_F(Merge, BuildsOnTheWorkingCopyEvenWhenChannel1IsOverwritten) {
  SourceFile file = SiblingFile();
  file.Channel(1, kInUse, 14'694'000, 14'694'000);
  file.Channel(2, kInUse, 14'652'000, 14'652'000);
  options_.start = 1;
  Run(file);
  EXPECT_EQ(RecordBytes(*image_, 1)[19], 0x21);
  EXPECT_EQ(RecordBytes(*image_, 2)[19], 0x21);
  EXPECT_EQ(RecordBytes(*image_, 2)[0], 0x35);
}

TEST_F(Merge, CopiesNamesOfTenBytesAndEndsThem) {
  SourceFile file = OwnFile();
  file.Record(1, BaseRecord());
  file.Channel(1, kInUse, 14'694'000, 14'634'000);
  file.PutText(11'202, "ABCDEFGHIJ");
  PutBytes(*image_, 11'702, {'n', 'e', 'x', 't'});
  Run(file);
  EXPECT_EQ(BytesAt(*image_, 11'692, 14),
            (Bytes{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I', 0, 'n', 'e', 'x', 't'}));
  EXPECT_EQ(NameInRecord(*image_, 50), "ABCDEFGH");
}

TEST_F(Merge, CopiesSmallerNamesAndEndsThem) {
  SourceFile file = SiblingFile();
  file.Channel(1, kInUse, 14'694'000, 14'694'000);
  file.Name(1, "ABCDEFGH");
  PutBytes(*image_, 11'692, Bytes(10, 'x'));
  Run(file);
  EXPECT_EQ(BytesAt(*image_, 11'692, 10), (Bytes{'A', 'B', 'C', 'D', 'E', 'F', 'G', 0, 'x', 'x'}));
  EXPECT_EQ(NameInRecord(*image_, 50), "ABCDEFG ");
}

TEST_F(Merge, FillsNoMoreThanTheTargetsTenBytesOfALargerName) {
  SourceFile file = SiblingFile();
  file.name_size = 50;
  file.names = 300;
  file.summary = 180;
  file.PutGeometry(2);
  file.Channel(1, kInUse, 14'694'000, 14'694'000);
  file.Name(1, "ABCDEFGHIJKLMNOP");
  PutBytes(*image_, 11'702, {'n', 'e', 'x', 't'});
  Run(file);
  EXPECT_EQ(BytesAt(*image_, 11'692, 14),
            (Bytes{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I', 0, 'n', 'e', 'x', 't'}));
}

TEST_F(Merge, CopiesCommentsUpTo31CharactersAndEndsThem) {
  SourceFile file = SiblingFile();
  file.Channel(1, kInUse, 14'694'000, 14'694'000);
  file.Comment(1, std::string(40, 'c'));
  PutBytes(*image_, 15'202, {'n', 'e', 'x', 't'});
  Run(file);
  EXPECT_EQ(ChannelCommentText(*image_, 50), std::string(31, 'c'));
  EXPECT_EQ((*image_)[15'202], 'n');
}

TEST_F(Merge, CopiesSmallerCommentsAndEndsThem) {
  SourceFile file = SiblingFile();
  file.comment_size = 5;
  file.PutGeometry(2);
  file.Channel(1, kInUse, 14'694'000, 14'694'000);
  file.Comment(1, "north");
  PutBytes(*image_, 15'170, Bytes(32, 'x'));
  Run(file);
  EXPECT_EQ(BytesAt(*image_, 15'170, 6), (Bytes{'n', 'o', 'r', 't', 0, 'x'}));
}

TEST_F(Merge, CopiesNothingOfEmptyEntries) {
  SourceFile file = SiblingFile();
  file.name_size = file.comment_size = 0;
  file.PutGeometry(2);
  file.Channel(1, kInUse, 14'694'000, 14'694'000);
  PutBytes(*image_, 11'692, {'O', 'L', 'D', 0});
  PutBytes(*image_, 15'170, {'o', 'l', 'd', 0});
  Run(file);
  EXPECT_EQ(NameInRecord(*image_, 50), "OLD     ");
  EXPECT_EQ(ChannelCommentText(*image_, 50), "old");
}

TEST_F(Merge, LeavesNameAndCommentWhereTheSourceHasNone) {
  SourceFile file = OwnFile();
  file.names = file.comments = 21'280;
  file.PutGeometry(240);
  file.Record(1, BaseRecord());
  file.Channel(1, kInUse, 14'694'000, 14'634'000);
  PutBytes(*image_, 11'692, {'O', 'L', 'D', 0});
  Run(file);
  EXPECT_EQ(NameInRecord(*image_, 50), "BASE    ");
  EXPECT_EQ((*image_)[11'692], 'O');
}

TEST_F(Merge, StopsBehindTheLastChannel) {
  SourceFile file = SiblingFile();
  for (int s = 1; s <= 20; ++s) {
    file.Channel(s, kInUse, 14'694'000, 14'694'000);
  }
  options_.start = 239;
  Run(file);
  EXPECT_EQ(FlagByte(*image_, 240), 0x03);
  image_ = MakeRadio(65'535);
  Run(file);
  EXPECT_EQ(FlagByte(*image_, 240), 0x03);
  image_ = MakeRadio(100);
  options_.start = 100;
  Run(file);
  EXPECT_EQ(FlagByte(*image_, 100), 0x03);
  EXPECT_EQ(FlagByte(*image_, 101), 0x00);
}

TEST_F(Merge, TouchesItsOwnChannelAlone) {
  const auto before = image_fixture::MakePatternImage();
  image_ = std::make_unique<CloneImage>(*before);
  Merged(0, 14'694'000, 14'694'000);
  for (const std::size_t offset : image_fixture::DifferingOffsets(*before, *image_)) {
    const bool own = offset == 3'407 || (offset >= 4'756 && offset < 4'778) ||
                     (offset >= 11'692 && offset < 11'702) || (offset >= 15'170 && offset < 15'202);
    EXPECT_TRUE(own) << offset;
  }
}

TEST_F(Merge, StandsOnHostileCountsAndSizes) {
  SourceFile file = SiblingFile();
  std::fill(file.bytes.begin() + 180, file.bytes.end(), std::uint8_t{0xFF});
  file.summary = file.names = file.comments = 180;
  for (const std::size_t size : {0U, 1U, 12U, 1'820U, 65'535U}) {
    file.summary_size = file.name_size = file.comment_size = size;
    file.PutGeometry(65'535);
    file.Put(180, kInUse, 2);
    file.Put(182, 14'694'000, 4);
    Run(file);
  }
  EXPECT_EQ((*image_)[56], 240);
}

}  // namespace
}  // namespace qz7
