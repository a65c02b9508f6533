#include "core/files/radio_data_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "core/files/document_header.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

// A document of a header, two bytes at the ends of the radio block and the comment "Hi".
CloneImage SmallDocument() {
  CloneImage image{};
  std::copy(kNewHeader.begin(), kNewHeader.end(), image.begin());
  image[3060] = 0x0A;
  image[11'181] = 0xFE;
  image[100] = 'H';
  image[101] = 'i';
  return image;
}

Bytes FillerOf(const CloneImage& image) { return {image.begin() + 82, image.begin() + 100}; }

TEST(RadioBlockChecksum, SumsTheRadioBlockAndNothingBesideIt) {
  CloneImage image{};
  image[3059] = 100;
  image[3060] = 1;
  image[7000] = 4;
  image[11'181] = 2;
  image[11'182] = 100;
  EXPECT_EQ(RadioBlockChecksum(image), 7);
}

TEST(RadioBlockChecksum, KeepsTheLowEightBits) {
  CloneImage image{};
  image[3060] = 200;
  image[3061] = 100;
  EXPECT_EQ(RadioBlockChecksum(image), 44);
}

TEST(FileChecksum, CompletesTheSumOfAllBytesTo256) {
  CloneImage image{};
  image[0] = 3;
  image[79] = 5;
  image[81] = 7;
  image[100] = 11;
  image[21'281] = 13;
  EXPECT_EQ(FileChecksum(image), 256 - 39);
}

TEST(FileChecksum, OfASumThatIsAMultipleOf256Is0) {
  CloneImage image{};
  EXPECT_EQ(FileChecksum(image), 0);
  image[11'190] = 0xFF;
  image[20'000] = 0x01;
  EXPECT_EQ(FileChecksum(image), 0);
}

TEST(FileChecksum, OfAnIntactFileIs0) {
  CloneImage image = ImageOf(IntactFile("RDF"));
  EXPECT_EQ(FileChecksum(image), 0);
}

TEST(FileChecksum, ClearsTheFillerInTheImageItself) {
  CloneImage image;
  image.fill(0x55);
  CloneImage cleared = image;
  std::fill(cleared.begin() + 82, cleared.begin() + 100, std::uint8_t{0});
  const unsigned sum = (21'282 - 18) * 0x55;
  EXPECT_EQ(FileChecksum(image), (256 - sum % 256) % 256);
  EXPECT_EQ(FirstDifference(image, cleared), -1);
}

TEST(PrepareRadioDataFile, MakesTheChecksumsWorkedOutByHand) {
  // The header's bytes sum up to 2580, "Hi" to 177, the block's to 264, byte 80 adds 8: 3029.
  CloneImage image = SmallDocument();
  PrepareRadioDataFile(image);
  EXPECT_EQ(image[80], 0x08);
  EXPECT_EQ(image[81], 0x2B);
}

TEST(PrepareRadioDataFile, TakesNoNoticeOfOldChecksumsAndOldFiller) {
  CloneImage image = SmallDocument();
  std::fill(image.begin() + 80, image.begin() + 100, std::uint8_t{0x77});
  PrepareRadioDataFile(image);
  EXPECT_EQ(image[80], 0x08);
  EXPECT_EQ(image[81], 0x2B);
}

TEST(PrepareRadioDataFile, RebuildsTheTablesBeforeItSumsTheFile) {
  CloneImage image = SmallDocument();
  image[56] = 99;    // a channel count from somewhere else
  image[181] = 200;  // a summary entry without a channel
  image[3358] = 3;   // channel 1: programmed and shown
  constexpr std::array<std::uint8_t, 22> kRecord = {0x00, 0x00, 0x14, 0x55, 0x00, 0x00, 'C', 'L',
                                                    'U',  'B',  ' ',  ' ',  ' ',  ' ',  0,   0,
                                                    0,    0,    12,   0,    0,    0};
  std::copy(kRecord.begin(), kRecord.end(), image.begin() + 3678);
  PrepareRadioDataFile(image);
  EXPECT_EQ(image[56], 240);
  // 145.5 MHz is 14550000 x 10 Hz, 0x00DE03F0, received and sent; 100.0 Hz is 1000, 0x03E8.
  constexpr std::array<std::uint8_t, 12> kEntry = {0x01, 0x00, 0xF0, 0x03, 0xDE, 0x00,
                                                   0xF0, 0x03, 0xDE, 0x00, 0xE8, 0x03};
  EXPECT_TRUE(std::equal(kEntry.begin(), kEntry.end(), image.begin() + 180));
  EXPECT_TRUE(std::equal(image.begin() + 11'202, image.begin() + 11'211, "CLUB    "));
  EXPECT_EQ(image[81], RightFileChecksum(image.data()));
}

TEST(PrepareRadioDataFile, DrawsTheFillerAfterTheChecksum) {
  CloneImage image = SmallDocument();
  PrepareRadioDataFile(image);
  EXPECT_NE(FillerOf(image), Bytes(18, 0));
  EXPECT_EQ(image[81], RightFileChecksum(image.data()));
  EXPECT_EQ(FileChecksum(image), 0);
}

TEST(PrepareRadioDataFile, MakesTwoSavesOfTheSameDocumentDiffer) {
  CloneImage first = SmallDocument();
  CloneImage second = SmallDocument();
  test_seams.now = 1'700'000'000;
  PrepareRadioDataFile(first);
  test_seams.now = 1'700'000'001;
  PrepareRadioDataFile(second);
  EXPECT_NE(FillerOf(first), FillerOf(second));
  std::copy_n(first.begin() + 82, 18, second.begin() + 82);
  EXPECT_EQ(FirstDifference(first, second), -1);
}

TEST(PrepareRadioDataFile, SeedsTheFillerFromTheClock) {
  CloneImage first = SmallDocument();
  CloneImage second = SmallDocument();
  PrepareRadioDataFile(first);
  PrepareRadioDataFile(second);
  EXPECT_EQ(FillerOf(first), FillerOf(second));
}

TEST(PrepareRadioDataFile, LeavesEverythingElseAlone) {
  const Bytes file = IntactFile("RDF");
  CloneImage image = ImageOf(file);
  PrepareRadioDataFile(image);
  Bytes outside = BytesOf(image);
  // Checksums and filler, the summary table and the name table are made anew.
  std::copy_n(file.begin() + 80, 20, outside.begin() + 80);
  std::copy_n(file.begin() + 180, 2880, outside.begin() + 180);
  std::copy_n(file.begin() + 11'202, 2400, outside.begin() + 11'202);
  EXPECT_EQ(FirstDifference(outside, file), -1);
}

class RadioDataFileOnDisk : public testing::Test {
 protected:
  TempFolder folder_;
  std::string path_ = folder_.File("my radio.rdf");
};

TEST_F(RadioDataFileOnDisk, HoldsTheImageByteForByte) {
  CloneImage image = SmallDocument();
  EXPECT_TRUE(WriteRadioDataFile(image, path_));
  const Bytes file = FileBytes(path_);
  EXPECT_EQ(file.size(), 21'282U);
  EXPECT_EQ(FirstDifference(file, image), -1);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(RadioDataFileOnDisk, StartsWithTheHeaderWorkedOutByHand) {
  CloneImage image = SmallDocument();
  ASSERT_TRUE(WriteRadioDataFile(image, path_));
  std::array<std::uint8_t, 180> expected = kNewHeader;
  expected[80] = 0x08;
  expected[81] = 0x2B;
  expected[100] = 'H';
  expected[101] = 'i';
  Bytes header = FileBytes(path_);
  header.resize(180);
  std::fill(header.begin() + 82, header.begin() + 100, std::uint8_t{0});
  EXPECT_EQ(FirstDifference(header, expected), -1);
}

TEST_F(RadioDataFileOnDisk, ReadsBackWithoutAMessage) {
  CloneImage image = SmallDocument();
  ASSERT_TRUE(WriteRadioDataFile(image, path_));
  CloneImage buffer{};
  EXPECT_TRUE(ReadRadioDataFile(buffer, path_));
  EXPECT_TRUE(test_seams.messages.empty());
  std::fill(image.begin() + 82, image.begin() + 100, std::uint8_t{0});
  EXPECT_EQ(FirstDifference(buffer, image), -1);
}

TEST_F(RadioDataFileOnDisk, KeepsTheFileComment) {
  CloneImage image = SmallDocument();
  constexpr std::string_view kComment =
      "Seventy-nine characters are what the comment field of the main window takes now";
  static_assert(kComment.size() == 79);
  std::copy(kComment.begin(), kComment.end(), image.begin() + 100);
  ASSERT_TRUE(WriteRadioDataFile(image, path_));
  CloneImage buffer{};
  ASSERT_TRUE(ReadRadioDataFile(buffer, path_));
  EXPECT_EQ(FileComment(buffer), kComment);
}

TEST_F(RadioDataFileOnDisk, CommentEndsAtItsZeroByteOrItsField) {
  CloneImage image = SmallDocument();
  EXPECT_EQ(FileComment(image), "Hi");
  std::fill(image.begin() + 100, image.begin() + 181, std::uint8_t{'x'});
  EXPECT_EQ(FileComment(image), std::string(80, 'x'));
}

TEST_F(RadioDataFileOnDisk, CarriesTheBytesBehindTheRadioBlockThrough) {
  CloneImage image = SmallDocument();
  for (std::size_t i = 0; i < 20; ++i) {
    image[11'182 + i] = static_cast<std::uint8_t>(0xE0 + i);
  }
  const CloneImage original = image;
  ASSERT_TRUE(WriteRadioDataFile(image, path_));
  CloneImage buffer{};
  ASSERT_TRUE(ReadRadioDataFile(buffer, path_));
  EXPECT_TRUE(
      std::equal(buffer.begin() + 11'182, buffer.begin() + 11'202, original.begin() + 11'182));
}

TEST_F(RadioDataFileOnDisk, ThatCannotBeCreatedIsReported) {
  CloneImage image = SmallDocument();
  const std::string nowhere = (folder_.path() / "no such folder" / "radio.rdf").string();
  EXPECT_FALSE(WriteRadioDataFile(image, nowhere));
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{"Cannot create file:\n" + nowhere});
  EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
}

}  // namespace
}  // namespace qz7
