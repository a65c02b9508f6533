#include <gtest/gtest.h>

#include "core/editors/channel_editor.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

// The offset field of the channel editor, and the command that sets it by the band.
namespace qz7 {
namespace {

using namespace editor_fixture;

// 145.0125 MHz, minus 600 kHz.
Bytes Repeater() {
  return {0x15, 0x02, 0x14, 0x50, 0x12, 0x14, 'R',  'P',  'T',  '1',  ' ',
          ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x15, 0x08, 0x01, 0xA5, 0x5A};
}

ChannelEditor NewChannel(int n = 7) { return *OpenChannelEditor(*MakeWideImage(), n, test_region); }

TEST(ChannelOffset, PutsAChosenOffsetIntoItsFieldAndRecomputes) {
  const std::vector<std::string> texts = {"600 kHz", "1 MHz", "1.6 MHz",
                                          "3 MHz",   "5 MHz", "7.6 MHz"};
  const std::vector<std::string> transmits = {"438.4000", "438.0000", "437.4000",
                                              "436.0000", "434.0000", "431.4000"};
  ChannelEditor editor = NewChannel();
  editor.receive = "439";
  ChangeShift(editor, Shift::kMinus);
  for (int i = 0; i < 6; ++i) {
    ChooseOffset(editor, i);
    EXPECT_EQ(editor.offset, texts[static_cast<std::size_t>(i)]);
    EXPECT_EQ(editor.transmit, transmits[static_cast<std::size_t>(i)]);
  }
}

TEST(ChannelOffset, ShowsATypedOffsetInCanonicalFormOnLeavingIt) {
  ChannelEditor editor = NewChannel();
  editor.receive = "439";
  ChangeShift(editor, Shift::kMinus);
  TypeOffset(editor, "7.6");
  EXPECT_EQ(editor.transmit, "438.4000");
  EXPECT_TRUE(LeaveOffset(editor));
  EXPECT_EQ(editor.offset, "7.6000 MHz");
  EXPECT_EQ(editor.transmit, "431.4000");
  TypeOffset(editor, "5000");
  EXPECT_TRUE(LeaveOffset(editor));
  EXPECT_EQ(editor.offset, "5 MHz");
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(ChannelOffset, RefusesAnOffsetAbove9995Megahertz) {
  ChannelEditor editor = NewChannel();
  TypeOffset(editor, "99.95");
  EXPECT_TRUE(LeaveOffset(editor));
  EXPECT_EQ(OffsetOf(editor), 999'500);
  TypeOffset(editor, "99.9501");
  EXPECT_FALSE(LeaveOffset(editor));
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "Tx Shift must be less than 99.95MHz.");
  EXPECT_EQ(test_seams.messages[0].caption, "Tx Shift Error");
  EXPECT_EQ(editor.offset, "600 kHz");
  EXPECT_EQ(OffsetOf(editor), 6'000);
}

TEST(ChannelOffset, RefusesAnOffsetBesideTheFiveKilohertzGridWhileTheMessageSaysFifty) {
  ChannelEditor editor = NewChannel();
  TypeOffset(editor, "1.605");
  EXPECT_TRUE(LeaveOffset(editor));
  EXPECT_EQ(OffsetOf(editor), 16'050);
  TypeOffset(editor, "1.6025");
  EXPECT_FALSE(LeaveOffset(editor));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Tx Shift must be a 50kHz step."});
  EXPECT_EQ(editor.offset, "600 kHz");
}

TEST(ChannelOffset, LetsAnUntouchedOffsetTextStandForItsValue) {
  auto image = MakeWideImage();
  Bytes record = Repeater();
  record[15] = 0x10;
  record[16] = 0x50;
  PutChannel(*image, 7, record);
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  EXPECT_EQ(editor.offset, "1.500 MHz");
  EXPECT_EQ(OffsetOf(editor), 10'500);
  EXPECT_TRUE(LeaveOffset(editor));
  EXPECT_EQ(editor.offset, "1.500 MHz");
  EXPECT_EQ(OffsetOf(editor), 10'500);
  EXPECT_EQ(editor.transmit, "143.9625");
  EXPECT_EQ(FrequenciesOf(editor).offset, 10'500);
}

TEST(ChannelOffset, ParsesTheSameOffsetTextOnceItIsTyped) {
  ChannelEditor editor = NewChannel();
  TypeOffset(editor, "1.05");
  EXPECT_TRUE(LeaveOffset(editor));
  EXPECT_EQ(editor.offset, "1.500 MHz");
  EXPECT_EQ(OffsetOf(editor), 10'500);
  TypeOffset(editor, "1.500 MHz");
  EXPECT_EQ(OffsetOf(editor), 15'000);
  EXPECT_TRUE(LeaveOffset(editor));
  EXPECT_EQ(editor.offset, "1.5000 MHz");
}

TEST(ChannelOffset, RefusesAStoredOffsetThatIsOutOfRange) {
  auto image = MakeWideImage();
  Bytes record = Repeater();
  record[14] = record[15] = record[16] = 0xFF;  // 1666.665 MHz
  PutChannel(*image, 7, record);
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  EXPECT_FALSE(LeaveOffset(editor));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Tx Shift must be less than 99.95MHz."});
  EXPECT_TRUE(LeaveOffset(editor));
}

TEST(ChannelOffset, RefusesAStoredOffsetBesideTheGrid) {
  auto image = MakeWideImage();
  Bytes record = Repeater();
  record[15] = 0x06;
  record[16] = 0x12;  // 612 kHz and a half
  PutChannel(*image, 7, record);
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  EXPECT_FALSE(LeaveOffset(editor));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Tx Shift must be a 50kHz step."});
}

TEST(ChannelOffset, OpensTheOffsetOfAnOddSplitAtTheDefault) {
  auto image = MakeWideImage();
  Bytes record = Repeater();
  record[17] = 0x17;
  record[14] = 0x44;
  record[15] = 0x61;
  PutChannel(*image, 7, record);
  const ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  EXPECT_EQ(editor.offset, "600 kHz");
  EXPECT_EQ(editor.transmit, "446.1000");
}

TEST(BandDefaults, AreTheUsualOffsetAndStepOfTheBand) {
  struct Row {
    const char* receive;
    const char* offset;
    int step;
  };
  for (const Row& row : {Row{"1.000", "0 kHz", 1}, Row{"7.100", "0 kHz", 0},
                         Row{"98.1", "0 kHz", 5}, Row{"180", "0 kHz", 6}, Row{"51", "500 kHz", 1},
                         Row{"145", "600 kHz", 0}, Row{"439", "5 MHz", 5}, Row{"121", "0 kHz", 5},
                         Row{"270", "0 kHz", 2}, Row{"810", "0 kHz", 1}, Row{"20", "0 kHz", 0}}) {
    ChannelEditor editor = NewChannel();
    editor.receive = row.receive;
    TakeBandDefaults(editor);
    EXPECT_EQ(editor.offset, row.offset) << row.receive;
    EXPECT_EQ(editor.choices.step, row.step) << row.receive;
    EXPECT_TRUE(StepPosition(editor)) << row.receive;
  }
}

TEST(BandDefaults, RecomputeTheTransmitFrequency) {
  ChannelEditor editor = NewChannel();
  editor.receive = "439";
  ChangeShift(editor, Shift::kMinus);
  TakeBandDefaults(editor);
  EXPECT_EQ(editor.transmit, "434.0000");
}

TEST(BandDefaults, GiveMwTheNineKilohertzStepInTheExtendedVersion) {
  const RegionGuard guard({.extended_version = true});
  ChannelEditor editor = NewChannel();
  editor.receive = "1.000";
  TakeBandDefaults(editor);
  EXPECT_EQ(editor.choices.step, 8);
  EXPECT_EQ(StepPosition(editor), 1);
}

TEST(BandDefaults, OfAnEmptyReceiveFieldAreThoseOutsideEveryBand) {
  ChannelEditor editor = NewChannel();
  TakeBandDefaults(editor);
  EXPECT_EQ(editor.offset, "0 kHz");
  EXPECT_EQ(editor.choices.step, 0);
  EXPECT_EQ(editor.transmit, "");
}

}  // namespace
}  // namespace qz7
