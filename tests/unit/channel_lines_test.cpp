#include <gtest/gtest.h>

#include <array>
#include <string>

#include "core/image/channel_text.h"
#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

constexpr std::size_t kShiftPowerTone = 17;

// 146.94 MHz, minus 600 kHz, tone encode 100.0 Hz, code 025, High.
Bytes Repeater() {
  return {0x00, 0x00, 0x14, 0x69, 0x40, 0x14, 'R',  'P',  'T',  '1',  ' ',
          ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x1D, 0x0C, 0x01, 0x00, 0x00};
}

Bytes RepeaterWith(std::size_t byte, int value) {
  Bytes record = Repeater();
  record.at(byte) = static_cast<std::uint8_t>(value);
  return record;
}

std::string Row(int n, const Bytes& record, std::uint8_t flags = 0x03) {
  auto image = MakeImage();
  PutChannel(*image, n, record, flags);
  return FormatListRow(*image, n);
}

std::string Line(int n, const Bytes& record, std::uint8_t flags = 0x03) {
  auto image = MakeImage();
  PutChannel(*image, n, record, flags);
  std::string line;
  EXPECT_TRUE(FormatPrintLine(*image, n, line));
  return line;
}

TEST(ListRow, HoldsARepeater) {
  EXPECT_EQ(Row(12, Repeater()), "12 \t146.9400-\tE  \t \t \tH\tRPT1    ");
}

TEST(ListRow, OfAnUnprogrammedChannelIsItsLabel) {
  const auto image = MakePatternImage();
  (*image)[3364] = 0xFE;
  (*image)[3597] = 0x00;
  EXPECT_EQ(FormatListRow(*image, 7), " 7");
  EXPECT_EQ(FormatListRow(*image, 240), "U10");
}

TEST(ListRow, LeftAlignsTheLabelInThreePlaces) {
  EXPECT_EQ(Row(5, Repeater()), " 5 \t146.9400-\tE  \t \t \tH\tRPT1    ");
  EXPECT_EQ(Row(100, Repeater()), "100\t146.9400-\tE  \t \t \tH\tRPT1    ");
  EXPECT_EQ(Row(221, Repeater()), "L1 \t146.9400-\tE  \t \t \tH\tRPT1    ");
  EXPECT_EQ(Row(240, Repeater()), "U10\t146.9400-\tE  \t \t \tH\tRPT1    ");
}

TEST(ListRow, MarksTheShift) {
  EXPECT_EQ(Row(12, RepeaterWith(17, 0x1C)), "12 \t146.9400 \tE  \t \t \tH\tRPT1    ");
  EXPECT_EQ(Row(12, RepeaterWith(17, 0x1D)), "12 \t146.9400-\tE  \t \t \tH\tRPT1    ");
  EXPECT_EQ(Row(12, RepeaterWith(17, 0x1E)), "12 \t146.9400+\tE  \t \t \tH\tRPT1    ");
  EXPECT_EQ(Row(12, RepeaterWith(17, 0x1F)), "12 \t146.9400\xB1\tE  \t \t \tH\tRPT1    ");
}

constexpr std::array kToneMarks = {"   ", "E  ", "ED ", "DCS"};

std::string ToneMark(int tone_mode) {
  return tone_mode < 4 ? kToneMarks.at(static_cast<std::size_t>(tone_mode)) : "   ";
}

TEST(ListRow, MarksTheToneModeAndLeavesUnknownOnesBlank) {
  for (int tone_mode = 0; tone_mode < 16; ++tone_mode) {
    EXPECT_EQ(Row(12, RepeaterWith(kShiftPowerTone, tone_mode << 4 | 0x0D)),
              "12 \t146.9400-\t" + ToneMark(tone_mode) + "\t \t \tH\tRPT1    ");
  }
}

TEST(ListRow, MarksSkippedThenMaskedChannels) {
  EXPECT_EQ(Row(12, Repeater(), 0x03), "12 \t146.9400-\tE  \t \t \tH\tRPT1    ");
  EXPECT_EQ(Row(12, Repeater(), 0x07), "12 \t146.9400-\tE  \tS\t \tH\tRPT1    ");
  EXPECT_EQ(Row(12, Repeater(), 0x01), "12 \t146.9400-\tE  \t \tM\tH\tRPT1    ");
  EXPECT_EQ(Row(12, Repeater(), 0xF5), "12 \t146.9400-\tE  \tS\tM\tH\tRPT1    ");
}

TEST(ListRow, TellsHighPowerFromEveryLowOne) {
  for (int power = 0; power < 4; ++power) {
    EXPECT_EQ(Row(12, RepeaterWith(kShiftPowerTone, 0x11 | power << 2)),
              std::string("12 \t146.9400-\tE  \t \t \t") + (power == 3 ? "H" : "L") + "\tRPT1    ");
  }
}

TEST(ListRow, RestoresTheHalfKilohertz) {
  Bytes record = Repeater();
  record[3] = 0x50;
  record[4] = 0x12;
  EXPECT_EQ(Row(12, record), "12 \t145.0125-\tE  \t \t \tH\tRPT1    ");
  record[2] = 0x00;
  record[3] = 0x16;
  record[4] = 0x20;
  EXPECT_EQ(Row(12, record), "12 \t  1.6200-\tE  \t \t \tH\tRPT1    ");
}

TEST(ListRow, TakesTheNameByteForByte) {
  Bytes record = Repeater();
  const Bytes name = {0x10, 0x97, 0xB1, 0xFF, 'a', ' ', 'z', '%'};
  std::copy(name.begin(), name.end(), record.begin() + 6);
  EXPECT_EQ(Row(12, record),
            "12 \t146.9400-\tE  \t \t \tH\t\x10\x97\xB1\xFF"
            "a z%");
}

TEST(ListRow, EndsAtAZeroByteOfTheName) {
  EXPECT_EQ(Row(12, RepeaterWith(8, 0x00)), "12 \t146.9400-\tE  \t \t \tH\tRP");
}

TEST(PrintLine, HoldsARepeaterWithItsComment) {
  auto image = MakeImage();
  PutChannel(*image, 12, Repeater());
  PutBytes(*image, 13'954, {'O', 'n', ' ', 't', 'h', 'e', ' ', 'h', 'i', 'l', 'l'});
  std::string line;
  EXPECT_TRUE(FormatPrintLine(*image, 12, line));
  EXPECT_EQ(line, " 12 146.9400-         100.0 E   H      RPT1     On the hill");
}

TEST(PrintLine, IsAppended) {
  auto image = MakeImage();
  PutChannel(*image, 12, Repeater());
  std::string line = "before|";
  EXPECT_TRUE(FormatPrintLine(*image, 12, line));
  EXPECT_EQ(line, "before| 12 146.9400-         100.0 E   H      RPT1     ");
  line = "before|";
  EXPECT_FALSE(FormatPrintLine(*image, 7, line));
  EXPECT_EQ(line, "before|  7");
}

TEST(PrintLine, HoldsACommentOf31Letters) {
  auto image = MakeImage();
  PutChannel(*image, 12, Repeater());
  PutBytes(*image, 13'954, Bytes(31, 'c'));
  std::string line;
  FormatPrintLine(*image, 12, line);
  EXPECT_EQ(line,
            " 12 146.9400-         100.0 E   H      RPT1     ccccccccccccccccccccccccccccccc");
}

TEST(PrintLine, OfAnUnprogrammedChannelIsItsLabelRightAligned) {
  struct Case {
    int n;
    const char* label;
  };
  for (const Case& c : {Case{7, "  7"}, {12, " 12"}, {220, "220"}, {221, " L1"}, {240, "U10"}}) {
    const auto image = MakeImage();
    std::string line;
    EXPECT_FALSE(FormatPrintLine(*image, c.n, line));
    EXPECT_EQ(line, c.label);
  }
}

TEST(PrintLine, CutsTheLabelToThreeCharacters) {
  constexpr std::array kLabels = {" MW", " SW", " FM", " TV", " 6m",
                                  "V H", "U H", "Air", "Act", "Act"};
  const auto image = MakeImage();
  for (int n = -1; n >= -30; --n) {
    std::string line;
    EXPECT_TRUE(FormatPrintLine(*image, n, line)) << n;
    EXPECT_EQ(line.substr(0, 3), kLabels.at(static_cast<std::size_t>((-1 - n) % 10))) << n;
  }
}

TEST(PrintLine, OfASpecialSlotEndsBehindTheSkipMark) {
  auto image = MakeImage();
  PutBytes(*image, 9178 + 5 * 22, Repeater());
  std::string line;
  EXPECT_TRUE(FormatPrintLine(*image, -6, line));
  EXPECT_EQ(line, "V H 146.9400-         100.0 E   H  M  ");
  (*image)[3613] = 0x06;
  line.clear();
  EXPECT_TRUE(FormatPrintLine(*image, -6, line));
  EXPECT_EQ(line, "V H 146.9400-         100.0 E   H    S");
}

TEST(PrintLine, OfAnAbsentSlotIsNoLine) {
  const auto image = MakePatternImage();
  std::string line;
  EXPECT_FALSE(FormatPrintLine(*image, -31, line));
  EXPECT_FALSE(FormatPrintLine(*image, 241, line));
}

TEST(PrintLine, MarksTheShiftAndShowsTheTransmitFrequencyOfAnOddSplitOnly) {
  Bytes record = RepeaterWith(14, 0x44);
  record[15] = 0x60;
  record[16] = 0x12;
  constexpr std::array kMiddles = {"         ", "-        ", "+        ", "/446.0125"};
  for (std::size_t shift = 0; shift < 4; ++shift) {
    record[kShiftPowerTone] = static_cast<std::uint8_t>(0x1C | shift);
    EXPECT_EQ(Line(12, record),
              std::string(" 12 146.9400") + kMiddles.at(shift) + " 100.0 E   H      RPT1     ");
  }
}

TEST(PrintLine, MarksMaskedThenSkippedChannels) {
  EXPECT_EQ(Line(12, Repeater(), 0x07), " 12 146.9400-         100.0 E   H    S RPT1     ");
  EXPECT_EQ(Line(12, Repeater(), 0x01), " 12 146.9400-         100.0 E   H  M   RPT1     ");
  EXPECT_EQ(Line(12, Repeater(), 0xFD), " 12 146.9400-         100.0 E   H  M S RPT1     ");
}

TEST(PrintLine, TellsHighPowerFromEveryLowOne) {
  for (int power = 0; power < 4; ++power) {
    EXPECT_EQ(Line(12, RepeaterWith(kShiftPowerTone, 0x11 | power << 2)),
              std::string(" 12 146.9400-         100.0 E   ") + (power == 3 ? "H" : "L") +
                  "      RPT1     ");
  }
}

TEST(PrintLine, ShowsTheToneEvenWhenTheToneModeIsNone) {
  EXPECT_EQ(Line(12, RepeaterWith(kShiftPowerTone, 0x0D)),
            " 12 146.9400-         100.0     H      RPT1     ");
}

TEST(PrintLine, ShowsEveryToneAndFiveBlanksForIndex39AndAbove) {
  const std::vector<std::string> tones = ToneTexts();
  for (int tone_mode = 0; tone_mode < 3; ++tone_mode) {
    for (std::size_t index = 0; index < 256; ++index) {
      std::string value = "     ";
      if (index < tones.size()) {
        value = (tones[index].size() == 4 ? " " : "") + tones[index] + " ";
      }
      Bytes record = RepeaterWith(kShiftPowerTone, tone_mode << 4 | 0x0D);
      record[18] = static_cast<std::uint8_t>(index);
      ASSERT_EQ(Line(12, record),
                " 12 146.9400-         " + value + ToneMark(tone_mode) + " H      RPT1     ");
    }
  }
}

TEST(PrintLine, ShowsEveryCodeAndFiveBlanksForIndex104AndAbove) {
  const std::vector<std::string> codes = DcsTexts();
  for (std::size_t index = 0; index < 256; ++index) {
    const std::string value = index < codes.size() ? codes[index] + "   " : "     ";
    Bytes record = RepeaterWith(kShiftPowerTone, 0x3D);
    record[19] = static_cast<std::uint8_t>(index);
    ASSERT_EQ(Line(12, record), " 12 146.9400-         " + value + "DCS H      RPT1     ");
  }
}

TEST(PrintLine, LeavesToneAndMarkOfUnknownToneModesBlank) {
  for (int tone_mode = 4; tone_mode < 16; ++tone_mode) {
    EXPECT_EQ(Line(12, RepeaterWith(kShiftPowerTone, tone_mode << 4 | 0x0D)),
              " 12 146.9400-                  H      RPT1     ");
  }
}

TEST(PrintLine, TakesTheNameByteForByteUpToAZeroByte) {
  Bytes record = Repeater();
  Bytes name = {0x10, 0x97, 0xB1, 0xFF, 'a', ' ', 'z', '%'};
  std::copy(name.begin(), name.end(), record.begin() + 6);
  EXPECT_EQ(Line(12, record),
            " 12 146.9400-         100.0 E   H      \x10\x97\xB1\xFF"
            "a z% ");
  record[8] = 0x00;
  EXPECT_EQ(Line(12, record), " 12 146.9400-         100.0 E   H      \x10\x97       ");
}

TEST(PrintLine, PadsTheReceiveFrequencyToEightPlaces) {
  Bytes record = Repeater();
  record[2] = 0x00;
  record[3] = 0x16;
  record[4] = 0x20;
  EXPECT_EQ(Line(12, record), " 12   1.6200-         100.0 E   H      RPT1     ");
  record[2] = 0x05;
  record[3] = 0x01;
  EXPECT_EQ(Line(12, record), " 12  50.1200-         100.0 E   H      RPT1     ");
}

}  // namespace
}  // namespace qz7
