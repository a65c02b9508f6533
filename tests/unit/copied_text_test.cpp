#include "core/interchange/copied_text.h"

#include <gtest/gtest.h>

#include "core/files/csv_export.h"
#include "core/image/derived_tables.h"
#include "core/interchange/import_placement.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

constexpr const char* kTitles =
    "RX Frequency\tTX Frequency\tOffset\tTone\tSkip\tPower\tEnc Frequency\tDec Frequency\tName\t"
    "Comment\r\n";

// 145.5 MHz, minus 600 kHz, tone squelch 88.5 Hz, High, "Berlin", with a comment.
std::unique_ptr<CloneImage> BerlinImage() {
  auto image = MakeWideImage();
  PutChannel(*image, 5, Bytes(22));
  const std::size_t record = RecordPlace(5);
  PutBytes(*image, record + 2, editor_fixture::Kilohertz(145'500));
  PutBytes(*image, record + 14, {0x00, 0x06, 0x00});
  (*image)[record + 17] = 0x2D;
  (*image)[record + 18] = 8;
  SetChannelName(*image, 5, "Berlin");
  PutBytes(*image, 13602 + 4 * 32, {'T', 'V', ',', ' ', 'T', 0});
  return image;
}

std::string TextOf(const CloneImage& image, int n) {
  const ChannelCopy copy = *CopyOfChannel(image, n);
  return TextOfChannels({&copy, 1});
}

TEST(CopiedText, IsTheExportsColumnsBetweenTabs) {
  EXPECT_EQ(
      TextOf(*BerlinImage(), 5),
      std::string(kTitles) + "145.5000\t0.6000\t-\tED\t\tHigh\t88.5\t88.5\tBerlin  \tTV, T\r\n");
}

TEST(CopiedText, HasNoLineForAnEmptyChannel) {
  EXPECT_EQ(TextOf(*BerlinImage(), 6), kTitles);
  EXPECT_EQ(TextOfChannels({}), kTitles);
}

TEST(CopiedText, TakesWhatWouldBreakItsColumnsOut) {
  auto image = BerlinImage();
  SetChannelName(*image, 5, "A\tB\"C");
  PutBytes(*image, 13602 + 4 * 32, {'x', '\r', '\n', '"', 0xE4, 0});
  EXPECT_EQ(
      TextOf(*image, 5),
      std::string(kTitles) + "145.5000\t0.6000\t-\tED\t\tHigh\t88.5\t88.5\tA B'C   \tx  '\xE4\r\n");
}

TEST(CopiedText, ComesBackAsTheExportComesBackThroughImport) {
  auto image = BerlinImage();
  const auto back = ChannelsOfText(*image, TextOf(*image, 5), test_region);
  ASSERT_EQ(back.size(), 1U);
  EXPECT_TRUE(IsProgrammed(back[0]));
  PlaceCopy(*image, 9, back[0]);
  RebuildDerivedTables(*image);
  EXPECT_EQ(CsvFieldsOf(*image, 9), CsvFieldsOf(*image, 5));
}

// Shift and tone mode, power, skip: all that the columns hold. 0 is Low1, which import does not
// know.
TEST(CopiedText, ComesBackForEveryKindOfChannel) {
  for (int kind = 0; kind < 4 * 3 * 2 * 2; ++kind) {
    SCOPED_TRACE(kind);
    auto image = BerlinImage();
    const int shift = kind % 4;
    const int tone_mode = kind / 4 % 3;
    const int power = kind / 12 % 2 == 0 ? 2 : 3;
    const std::size_t record = RecordPlace(5);
    (*image)[record + 17] = static_cast<std::uint8_t>(tone_mode << 4 | power << 2 | shift);
    if (shift == 3) {
      PutBytes(*image, record + 14, {0x43, 0x90, 0x12});
    }
    SetSkip(*image, 5, kind / 24 == 1);
    RebuildDerivedTables(*image);
    const auto back = ChannelsOfText(*image, TextOf(*image, 5), test_region);
    ASSERT_EQ(back.size(), 1U);
    PlaceCopy(*image, 9, back[0]);
    RebuildDerivedTables(*image);
    EXPECT_EQ(CsvFieldsOf(*image, 9), CsvFieldsOf(*image, 5));
  }
}

TEST(CopiedText, OfAnySpreadsheetIsReadByItsTitles) {
  const auto back = ChannelsOfText(*BerlinImage(),
                                   "Call Sign\tNumber\tOutput Frequency\n"
                                   "DB0X\t1\t439.1\nnone\t2\tunknown\nDB0Y\t3\t438.8",
                                   test_region);
  ASSERT_EQ(back.size(), 2U);
  EXPECT_EQ(RecordName(back[0].record), "DB0X    ");
  EXPECT_EQ(RawReceive(back[0].record), HundredHertz(4'391'000));
  EXPECT_EQ(RecordName(back[1].record), "DB0Y    ");
}

TEST(CopiedText, WithoutTitlesIsReadInTheExportsOrder) {
  for (const char* line : {"145.6\t0.6\t-\tE\tSkip\tLow1\t77.0\t77.0\tUlm\tTower",
                           "\"145.6\",\"0.6\",\"-\",\"E\",\"Skip\",\"Low1\",\"77.0\",\"77.0\","
                           "\"Ulm\",\"Tower\"",
                           "145.6;0.6;-;E;Skip;Low1;77.0;77.0;Ulm;Tower\r\n"}) {
    const auto back = ChannelsOfText(*BerlinImage(), line, test_region);
    ASSERT_EQ(back.size(), 1U) << line;
    EXPECT_EQ(RecordShift(back[0].record), Shift::kMinus);
    EXPECT_EQ(RecordToneMode(back[0].record), ToneMode::kEncode);
    EXPECT_EQ(back[0].record[kRecordTone], 4);
    EXPECT_EQ(back[0].flags, 0x07);
    EXPECT_STREQ(back[0].comment.data(), "Tower");
  }
}

TEST(CopiedText, ThatIsNoListGivesNothingAndSaysNothing) {
  for (const char* text : {"", "\n", "Hello, world", "\t\t\t\n\t", "RX Frequency\tName\r\n"}) {
    EXPECT_TRUE(ChannelsOfText(*BerlinImage(), text, test_region).empty()) << text;
  }
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(CopiedText, LeavesTheImageThatItIsReadForAlone) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  ChannelsOfText(*image, "145.6\t0.6", test_region);
  EXPECT_EQ(*image, before);
}

}  // namespace
}  // namespace qz7
