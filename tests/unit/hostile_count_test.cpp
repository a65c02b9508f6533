#include <gtest/gtest.h>

#include <array>
#include <string>

#include "core/image/channel_text.h"
#include "core/image/clone_image.h"
#include "core/image/derived_tables.h"
#include "tests/unit/image_fixture.h"

// Files state their channel count, and the program uses what they state. These tests run under
// AddressSanitizer: an access beside the image ends them.
namespace qz7 {
namespace {

using namespace image_fixture;

constexpr std::array kHostileCounts = {0, 1, 10, 19, 20, 239, 241, 300, 1'000, 65'535};

bool IsPresent(int count, int n) { return n >= 0 && n <= count && n <= 240; }

TEST(HostileCount, RecordsBehindTheTableAreAbsent) {
  for (const int count : kHostileCounts) {
    const auto image = MakeImage(count);
    for (int n = 0; n <= 66'000; ++n) {
      const std::uint8_t* record = GetChannelRecord(*image, n);
      const std::uint8_t* flags = GetChannelFlagByte(*image, n);
      if (IsPresent(count, n)) {
        ASSERT_EQ(record - image->data(), 3656 + n * 22) << count << ": " << n;
        ASSERT_EQ(flags - image->data(), 3357 + n) << count << ": " << n;
      } else {
        ASSERT_EQ(record, nullptr) << count << ": " << n;
        ASSERT_EQ(flags, nullptr) << count << ": " << n;
      }
    }
  }
}

TEST(HostileCount, LeavesTheSpecialSlotsWhereTheyAre) {
  for (const int count : kHostileCounts) {
    const auto image = MakeImage(count);
    EXPECT_EQ(GetChannelRecord(*image, -1) - image->data(), 9178);
    EXPECT_EQ(GetChannelRecord(*image, -11) - image->data(), 9398);
    EXPECT_EQ(GetChannelRecord(*image, -30) - image->data(), 9156);
    EXPECT_EQ(GetChannelFlagByte(*image, -20) - image->data(), 3627);
    EXPECT_EQ(GetChannelRecord(*image, -31), nullptr);
    EXPECT_EQ(GetChannelFlagByte(*image, -31), nullptr);
  }
}

TEST(HostileCount, TableEntriesBehindTheirTableAreAbsent) {
  for (const int count : kHostileCounts) {
    auto image = MakeImage(count);
    for (int n = -40; n <= 66'000; ++n) {
      const std::ptrdiff_t index = n >= 1 && n <= count ? n - 1 : 0;
      ASSERT_EQ(ChannelIndex(*image, n), index) << count << ": " << n;
      if (index < 240) {
        const auto* comment = reinterpret_cast<const std::uint8_t*>(ChannelComment(*image, n));
        ASSERT_EQ(SummaryEntry(*image, n) - image->data(), 180 + index * 12) << n;
        ASSERT_EQ(NameEntry(*image, n) - image->data(), 11'202 + index * 10) << n;
        ASSERT_EQ(comment - image->data(), 13'602 + index * 32) << n;
      } else {
        ASSERT_EQ(SummaryEntry(*image, n), nullptr) << count << ": " << n;
        ASSERT_EQ(NameEntry(*image, n), nullptr) << count << ": " << n;
        ASSERT_EQ(ChannelComment(*image, n), nullptr) << count << ": " << n;
        ASSERT_EQ(ChannelCommentText(*image, n), "") << count << ": " << n;
      }
    }
  }
}

TEST(HostileCount, AbsentChannelsReadAsFalseAndAreNotWritten) {
  for (const int count : kHostileCounts) {
    auto image = MakePatternImage();
    WriteU16(image->data() + 56, static_cast<std::uint16_t>(count));
    const CloneImage before = *image;
    for (const int n : {2, 11, 20, 240, 241, 242, 256, 300, 1'000, 65'535}) {
      if (IsPresent(count, n)) {
        continue;
      }
      EXPECT_FALSE(IsProgrammed(*image, n)) << count << ": " << n;
      EXPECT_FALSE(IsMasked(*image, n)) << count << ": " << n;
      EXPECT_FALSE(IsSkip(*image, n)) << count << ": " << n;
      EXPECT_EQ(GetChannelName(*image, n), ChannelName{}) << count << ": " << n;
      for (const bool value : {false, true}) {
        SetProgrammed(*image, n, value);
        SetMasked(*image, n, value);
        SetSkip(*image, n, value);
      }
      SetChannelName(*image, n, "NAME");
    }
    EXPECT_EQ(*image, before) << count;
  }
}

TEST(HostileCount, ChannelsWithoutARecordAreTheirLabelAlone) {
  auto image = MakeImage(300);
  std::fill(image->begin() + 180, image->end(), std::uint8_t{0xFF});
  EXPECT_EQ(FormatListRow(*image, 241), "241");
  EXPECT_EQ(FormatListRow(*image, 281), "L1");
  EXPECT_EQ(FormatListRow(*image, 300), "U10");
  std::string line;
  EXPECT_FALSE(FormatPrintLine(*image, 300, line));
  EXPECT_EQ(line, "U10");
}

TEST(HostileCount, EveryRowAndLineStaysInsideTheImage) {
  for (const int count : kHostileCounts) {
    auto image = MakeImage(count);
    std::fill(image->begin() + 180, image->end(), std::uint8_t{0xFF});
    for (int n = 1; n <= count; ++n) {
      std::string line;
      ASSERT_EQ(FormatPrintLine(*image, n, line), n <= 240) << count << ": " << n;
      ASSERT_EQ(FormatListRow(*image, n).size() > 6, n <= 240) << count << ": " << n;
    }
  }
}

TEST(HostileCount, IsSetRightBeforeTheTablesAreMade) {
  for (const int count : kHostileCounts) {
    auto image = MakeImage(count);
    (*image)[3358 + 238] = 0x03;
    RebuildDerivedTables(*image);
    EXPECT_EQ(BytesAt(*image, 56, 2), (Bytes{0xF0, 0x00})) << count;
    EXPECT_EQ((*image)[180 + 238 * 12], 0x01) << count;
  }
}

}  // namespace
}  // namespace qz7
