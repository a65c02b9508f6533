#include "core/editors/print_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "core/files/new_document.h"
#include "core/files/seams.h"
#include "core/image/channel_record.h"
#include "core/image/settings_map.h"
#include "tests/unit/failing_new.h"
#include "tests/unit/plain_numbers.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

const std::string kDashes(71, '-');
const std::string kColumns = " #   Rx      Tx       CTCSS     P  S M A/N    Comment";

// A document whose channel 1 is taken away and whose autodial memories are empty.
std::unique_ptr<CloneImage> EmptyDocument() {
  auto image = std::make_unique<CloneImage>();
  MakeNewImage(*image);
  SetProgrammed(*image, 1, false);
  return image;
}

void StoreNumber(CloneImage& image, int n, const std::vector<std::uint8_t>& codes) {
  auto* place = image.data() + kAutodial.offset + static_cast<std::size_t>(n) * kCodeTextLength;
  std::fill_n(place, kCodeTextLength, kTextEnd);
  std::copy(codes.begin(), codes.end(), place);
}

std::vector<std::string> Listing(const CloneImage& image) {
  PrintText text;
  EXPECT_TRUE(BuildPrintText(image, "TEST.RDF", DtmfDisplay::kSymbols, test_region, text));
  return PrintLines(text);
}

TEST(Listing, OfAnEmptyImageHasHeadingsAndNineEmptyAutodialLines) {
  const std::vector<std::string> lines = Listing(*EmptyDocument());
  const std::vector<std::string> head = {"QZ-7H Programmer file: TEST.RDF",
                                         "",
                                         std::string(27, '-') + "Memories",
                                         kColumns,
                                         kDashes,
                                         "",
                                         std::string(27, '-') + "Home Memories",
                                         kColumns,
                                         kDashes};
  // Ten home channels follow, which are always in use.
  std::vector<std::string> tail = {"", std::string(27, '-') + "Autodial Memorie-"};
  tail.insert(tail.end(), 9, "");
  ASSERT_EQ(head.size() + 10 + tail.size(), lines.size());
  EXPECT_TRUE(std::equal(head.begin(), head.end(), lines.begin()));
  EXPECT_TRUE(std::equal(tail.begin(), tail.end(), lines.end() - static_cast<long>(tail.size())));
}

TEST(Listing, HeadingOfSeventeenLettersLosesItsLastOneToADash) {
  const std::vector<std::string> lines = Listing(*EmptyDocument());
  const auto heading =
      std::find(lines.begin(), lines.end(), std::string(27, '-') + "Autodial Memorie-");
  ASSERT_NE(lines.end(), heading);
  EXPECT_EQ(44U, heading->size());
}

TEST(Listing, LeavesOutChannelsThatAreNotProgrammed) {
  auto image = EmptyDocument();
  std::copy_n(GetChannelRecord(*image, -6), kRecordSize, GetChannelRecord(*image, 240));
  SetProgrammed(*image, 240, true);
  SetMasked(*image, 240, false);
  const std::vector<std::string> lines = Listing(*image);
  EXPECT_EQ("U10 145.0000          100.0     H               ", lines[5]);
  EXPECT_EQ("", lines[6]);
}

TEST(Listing, NamesTheHomeChannelsByTheirBand) {
  const std::vector<std::string> lines = Listing(*EmptyDocument());
  EXPECT_EQ(" MW   0.5400          100.0     H     ", lines[9]);
  EXPECT_EQ("Act 800.0000          100.0     H     ", lines[18]);
}

TEST(Listing, NumbersTheAutodialMemoriesFromOne) {
  auto image = EmptyDocument();
  StoreNumber(*image, 0, {5, 5, 5, 1, 2, 3, 4});
  StoreNumber(*image, 8, {1, 5, 5, 5, 5, 5, 5, 1, 2, 3, 4});
  const std::vector<std::string> lines = Listing(*image);
  EXPECT_EQ("Ch 1 -- 555-1234", lines[lines.size() - 9]);
  EXPECT_EQ("", lines[lines.size() - 8]);
  EXPECT_EQ("Ch 9 -- 1-555-555-1234", lines.back());
}

TEST(Listing, ShowsTheTopDtmfCodesAsTheDisplayOptionSays) {
  auto image = EmptyDocument();
  StoreNumber(*image, 2, {0x0E, 0x0F});
  PrintText text;
  ASSERT_TRUE(BuildPrintText(*image, "A", DtmfDisplay::kSymbols, test_region, text));
  std::vector<std::string> lines = PrintLines(text);
  EXPECT_EQ("Ch 3 -- *#", lines[lines.size() - 7]);
  ASSERT_TRUE(BuildPrintText(*image, "A", DtmfDisplay::kLetters, test_region, text));
  lines = PrintLines(text);
  EXPECT_EQ("Ch 3 -- EF", lines[lines.size() - 7]);
}

TEST(Listing, OfAFullImageWithLongCommentsFits) {
  auto image = EmptyDocument();
  for (int n = 1; n <= kChannelCount; ++n) {
    std::copy_n(GetChannelRecord(*image, -6), kRecordSize, GetChannelRecord(*image, n));
    SetProgrammed(*image, n, true);
    std::fill_n(ChannelComment(*image, n), kCommentSize - 1, 'x');
  }
  const std::vector<std::string> lines = Listing(*image);
  EXPECT_EQ(5U + 240U + 4U + 10U + 2U + 9U, lines.size());
  EXPECT_EQ(std::string(31, 'x'), lines[5].substr(lines[5].size() - 31));
}

TEST(PrintTextBuffer, StoresLengthCharactersAndAZero) {
  PrintText text = StartPrintText();
  AppendLine(text, "ab");
  AppendLine(text, "");
  FinishPrintText(text);
  const std::vector<std::uint8_t> expected = {2, 0, 'a', 'b', 0, 0, 0, 0, 0xFF, 0xFF};
  EXPECT_EQ(expected, std::vector(text.block.get(), text.block.get() + text.used));
  EXPECT_EQ(10U, text.size);
  EXPECT_EQ((std::vector<std::string>{"ab", ""}), PrintLines(text));
}

TEST(PrintTextBuffer, StartsAt5000BytesAndGrowsBy2500) {
  PrintText text = StartPrintText();
  EXPECT_EQ(5000U, text.size);
  AppendLine(text, std::string(2496, 'a'));
  AppendLine(text, std::string(2496, 'a'));
  EXPECT_EQ(5000U, text.size);
  AppendLine(text, "");
  EXPECT_EQ(7500U, text.size);
}

TEST(PrintTextBuffer, IsFilledToItsLastByteBeforeItGrows) {
  PrintText text = StartPrintText();
  AppendLine(text, std::string(2496, 'a'));
  AppendLine(text, std::string(2495, 'a'));
  AppendLine(text, "");
  EXPECT_EQ(5000U, text.used);
  EXPECT_EQ(5000U, text.size);
}

TEST(PrintTextBuffer, KeepsFewerThan100SpareBytesAtTheEnd) {
  PrintText text = StartPrintText();
  AppendLine(text, std::string(2496, 'a'));
  AppendLine(text, std::string(2397, 'a'));
  FinishPrintText(text);
  EXPECT_EQ(99U, text.size - text.used);
  PrintText shorter = StartPrintText();
  AppendLine(shorter, std::string(2496, 'a'));
  AppendLine(shorter, std::string(2396, 'a'));
  FinishPrintText(shorter);
  EXPECT_EQ(shorter.used, shorter.size);
}

TEST(PrintTextBuffer, GrowsForItsEndAloneAndIsCutAgain) {
  PrintText text = StartPrintText();
  AppendLine(text, std::string(2496, 'a'));
  AppendLine(text, std::string(2495, 'a'));
  AppendLine(text, "");
  FinishPrintText(text);
  EXPECT_FALSE(text.discarded);
  EXPECT_EQ(5002U, text.size);
  EXPECT_EQ(0xFFFF, ReadU16(text.block.get() + 5000));
  EXPECT_EQ(3U, PrintLines(text).size());
}

TEST(PrintTextBuffer, IsDiscardedWhenItsEndWouldMakeIt60000Bytes) {
  PrintText text = StartPrintText();
  for (int i = 0; i < 23; ++i) {
    AppendLine(text, std::string(2496, 'a'));
  }
  AppendLine(text, std::string(57'499 - text.used - 3, 'a'));
  EXPECT_EQ(57'499U, text.used);
  FinishPrintText(text);
  EXPECT_TRUE(text.discarded);
}

TEST(PrintTextBuffer, RefusesALineOf2497Characters) {
  PrintText text = StartPrintText();
  AppendLine(text, std::string(2496, 'a'));
  EXPECT_FALSE(text.discarded);
  AppendLine(text, std::string(2497, 'a'));
  EXPECT_TRUE(text.discarded);
  EXPECT_EQ(nullptr, text.block);
}

TEST(PrintTextBuffer, IsDiscardedWhenItWouldReach60000Bytes) {
  PrintText text = StartPrintText();
  // 57,500 bytes are the last size before the limit: 23 lines of 2,499 bytes fill 57,477 of them.
  for (int i = 0; i < 23; ++i) {
    AppendLine(text, std::string(2496, 'a'));
  }
  EXPECT_EQ(57'500U, text.size);
  EXPECT_FALSE(text.discarded);
  AppendLine(text, std::string(2496, 'a'));
  EXPECT_TRUE(text.discarded);
}

TEST(PrintTextBuffer, IgnoresWhatIsAppendedAfterItWasDiscarded) {
  PrintText text = StartPrintText();
  AppendLine(text, std::string(3000, 'a'));
  AppendLine(text, "b");
  FinishPrintText(text);
  EXPECT_TRUE(text.discarded);
  EXPECT_TRUE(PrintLines(text).empty());
}

TEST(Listing, ThatWasDiscardedSaysOutOfMemory) {
  PrintText text;
  EXPECT_FALSE(BuildPrintText(*EmptyDocument(), std::string(3000, 'n'), DtmfDisplay::kSymbols,
                              test_region, text));
  ASSERT_EQ(1U, test_seams.messages.size());
  EXPECT_EQ("Out of memory", test_seams.messages[0].text);
  EXPECT_EQ(kProgramTitle, test_seams.messages[0].caption);
  EXPECT_EQ(Icon::kStop, test_seams.messages[0].icon);
}

// No memory from now on, until the end of the test.
class WithoutMemory : public testing::Test {
 protected:
  ~WithoutMemory() override { nothrow_new_fails = false; }
};

TEST_F(WithoutMemory, AListingIsDiscardedAndSaysSo) {
  const auto image = EmptyDocument();
  PrintText text;
  nothrow_new_fails = true;
  EXPECT_FALSE(BuildPrintText(*image, "A", DtmfDisplay::kSymbols, test_region, text));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Out of memory"});
  EXPECT_TRUE(text.discarded);
}

TEST_F(WithoutMemory, AListIsDiscardedWhenItHasToGrow) {
  PrintText text = StartPrintText();
  nothrow_new_fails = true;
  AppendLine(text, std::string(2496, 'a'));
  AppendLine(text, std::string(2496, 'a'));
  EXPECT_FALSE(text.discarded);
  AppendLine(text, "");
  EXPECT_TRUE(text.discarded);
  EXPECT_TRUE(PrintLines(text).empty());
}

TEST_F(WithoutMemory, AListIsDiscardedWhenItIsCutToItsSize) {
  PrintText text = StartPrintText();
  AppendLine(text, "a");
  nothrow_new_fails = true;
  FinishPrintText(text);
  EXPECT_TRUE(text.discarded);
}

}  // namespace
}  // namespace qz7
