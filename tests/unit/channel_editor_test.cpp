#include "core/editors/channel_editor.h"

#include <gtest/gtest.h>

#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

// 145.0125 MHz, minus 600 kHz, tone encode 88.5, DCS 025, FM-Narrow, Low2, 12.5 kHz, icon 5,
// option A, name RPT1.
Bytes Repeater() {
  return {0x15, 0x02, 0x14, 0x50, 0x12, 0x14, 'R',  'P',  'T',  '1',  ' ',
          ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x15, 0x08, 0x01, 0xA5, 0x5A};
}

Bytes RecordOn(std::uint8_t b2, std::uint8_t b3, std::uint8_t b4) {
  Bytes record = Repeater();
  record[2] = b2;
  record[3] = b3;
  record[4] = b4;
  return record;
}

std::vector<std::string> StepTexts(const ChannelEditor& editor) {
  std::vector<std::string> texts;
  for (const StepChoice& step : editor.steps) {
    texts.emplace_back(step.text);
  }
  return texts;
}

ChannelEditor NewChannel(int n = 7) { return *OpenChannelEditor(*MakeWideImage(), n, test_region); }

TEST(ChannelEditor, ShowsEveryFieldOfAProgrammedChannel) {
  auto image = MakeWideImage();
  PutChannel(*image, 12, Repeater(), 0x0D);
  PutBytes(*image, 13602 + 32 * 11, {'o', 'n', ' ', 't', 'o', 'p', 0, 'x'});
  const auto editor = OpenChannelEditor(*image, 12, test_region);
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->n, 12);
  EXPECT_EQ(editor->receive, "145.0125");
  EXPECT_EQ(editor->transmit, "144.4125");
  EXPECT_EQ(editor->offset, "600 kHz");
  EXPECT_EQ(editor->choices.shift, 1);
  EXPECT_EQ(editor->choices.tone_mode, 1);
  EXPECT_EQ(editor->choices.tone_index, 8);
  EXPECT_EQ(editor->choices.dcs_index, 1);
  EXPECT_EQ(editor->choices.mode, 0);
  EXPECT_EQ(editor->choices.power, 1);
  EXPECT_EQ(editor->choices.step, 2);
  EXPECT_EQ(StepPosition(*editor), 2);
  EXPECT_EQ(editor->choices.icon, 5);
  EXPECT_TRUE(editor->choices.option_a);
  EXPECT_FALSE(editor->choices.option_b);
  EXPECT_EQ(editor->choices.name, "RPT1");
  EXPECT_EQ(editor->comment, "on top");
  EXPECT_TRUE(editor->skip);
  EXPECT_TRUE(editor->masked);
  EXPECT_TRUE(editor->option);
}

TEST(ChannelEditor, ShowsTheDefaultsOfAnUnprogrammedChannel) {
  auto image = MakeWideImage();
  PutChannel(*image, 12, Repeater(), 0x0C);
  PutBytes(*image, 13602 + 32 * 11, {'x', 0});
  const auto editor = OpenChannelEditor(*image, 12, test_region);
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->receive, "");
  EXPECT_EQ(editor->transmit, "");
  EXPECT_EQ(editor->offset, "600 kHz");
  EXPECT_EQ(editor->choices.shift, 0);
  EXPECT_EQ(editor->choices.tone_mode, 0);
  EXPECT_EQ(editor->choices.tone_index, 12);
  EXPECT_EQ(editor->choices.dcs_index, 0);
  EXPECT_EQ(editor->choices.mode, 0);
  EXPECT_EQ(editor->choices.power, 3);
  EXPECT_EQ(editor->choices.step, 0);
  EXPECT_EQ(editor->choices.icon, 0);
  EXPECT_FALSE(editor->choices.option_a);
  EXPECT_FALSE(editor->choices.option_b);
  EXPECT_EQ(editor->choices.name, "");
  EXPECT_EQ(editor->comment, "");
  EXPECT_FALSE(editor->skip);
  EXPECT_FALSE(editor->masked);
  EXPECT_FALSE(editor->option);
}

TEST(ChannelEditor, ShowsASpecialSlotWhateverItsProgrammedFlag) {
  auto image = MakeWideImage();
  PutBytes(*image, RecordPlace(-26), Repeater());
  (*image)[3578 + 25] = 0x0C;
  const auto editor = OpenChannelEditor(*image, -26, test_region);
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->receive, "145.0125");
  EXPECT_EQ(editor->choices.name, "RPT1");
  // Skip, masked and option are of memory channels only.
  EXPECT_FALSE(editor->skip);
  EXPECT_FALSE(editor->masked);
  EXPECT_FALSE(editor->option);
}

TEST(ChannelEditor, IsNotThereForAnAbsentChannel) {
  auto image = MakeWideImage();
  EXPECT_FALSE(OpenChannelEditor(*image, 0, test_region));
  EXPECT_FALSE(OpenChannelEditor(*image, 241, test_region));
  EXPECT_FALSE(OpenChannelEditor(*image, -31, test_region));
  (*image)[57] = 0xFF;
  EXPECT_FALSE(OpenChannelEditor(*image, 241, test_region));
  EXPECT_TRUE(OpenChannelEditor(*image, 240, test_region));
  EXPECT_TRUE(OpenChannelEditor(*image, -30, test_region));
}

TEST(ChannelEditor, NamesItsChannelInTheTitle) {
  const auto image = MakeWideImage();
  EXPECT_EQ(EditorTitle(*image, 5), "Edit Memory Channel  5");
  EXPECT_EQ(EditorTitle(*image, 100), "Edit Memory Channel 100");
  EXPECT_EQ(EditorTitle(*image, 221), "Edit Memory Channel L1");
  EXPECT_EQ(EditorTitle(*image, 240), "Edit Memory Channel U10");
  EXPECT_EQ(EditorTitle(*image, -1), "Edit VFO MW");
  EXPECT_EQ(EditorTitle(*image, -6), "Edit VFO V Ham");
  EXPECT_EQ(EditorTitle(*image, -11), "Edit VFO MW");
  EXPECT_EQ(EditorTitle(*image, -20), "Edit VFO Act2");
  EXPECT_EQ(EditorTitle(*image, -21), "Edit Home MW");
  EXPECT_EQ(EditorTitle(*image, -30), "Edit Home Act2");
}

TEST(ChannelEditor, HasAHelpTopicForMemoryAndOneForSpecialChannels) {
  EXPECT_EQ(EditorHelpContext(1), 107);
  EXPECT_EQ(EditorHelpContext(-1), 111);
  EXPECT_EQ(EditorHelpContext(-30), 111);
}

TEST(ChannelEditor, HidesTheNameOfVfoSlotsAndTheMemoryFieldsOfAllSpecialSlots) {
  EXPECT_TRUE(HasNameField(NewChannel(7)));
  EXPECT_TRUE(HasMemoryFields(NewChannel(7)));
  EXPECT_FALSE(HasNameField(NewChannel(-1)));
  EXPECT_FALSE(HasNameField(NewChannel(-20)));
  EXPECT_TRUE(HasNameField(NewChannel(-21)));
  EXPECT_FALSE(HasMemoryFields(NewChannel(-1)));
  EXPECT_FALSE(HasMemoryFields(NewChannel(-21)));
}

TEST(ChannelEditor, CannotMaskChannel1) {
  EXPECT_FALSE(HasMaskedBox(NewChannel(1)));
  EXPECT_TRUE(HasMaskedBox(NewChannel(2)));
  EXPECT_FALSE(HasMaskedBox(NewChannel(-21)));
}

TEST(ChannelEditor, EnablesTheTransmitFieldForAnOddSplitOnly) {
  ChannelEditor editor = NewChannel();
  for (int shift = 0; shift < 4; ++shift) {
    ChangeShift(editor, static_cast<Shift>(shift));
    EXPECT_EQ(HasTransmitField(editor), shift == 3) << shift;
  }
}

TEST(ChannelEditor, DisablesTheStepOfTheMwSlotsAndInTheMwBand) {
  auto image = MakeWideImage();
  for (int n = -1; n >= -30; --n) {
    PutBytes(*image, RecordPlace(n), RecordOn(0x14, 0x50, 0x00));
    EXPECT_EQ(HasStepChoice(*OpenChannelEditor(*image, n, test_region)),
              n != -1 && n != -11 && n != -21)
        << n;
  }
  PutChannel(*image, 7, RecordOn(0x00, 0x10, 0x00));
  EXPECT_FALSE(HasStepChoice(*OpenChannelEditor(*image, 7, test_region)));
  PutChannel(*image, 7, RecordOn(0x00, 0x17, 0x99));
  EXPECT_FALSE(HasStepChoice(*OpenChannelEditor(*image, 7, test_region)));
  PutChannel(*image, 7, RecordOn(0x00, 0x18, 0x00));
  EXPECT_TRUE(HasStepChoice(*OpenChannelEditor(*image, 7, test_region)));
  EXPECT_TRUE(HasStepChoice(NewChannel()));
}

TEST(ChannelEditor, ListsTheStepsOfItsFrequency) {
  const std::vector<std::string> full = {"5 kHz",  "10 kHz", "12.5 kHz", "15 kHz",
                                         "20 kHz", "25 kHz", "50 kHz",   "100 kHz"};
  const std::vector<std::string> few = {"10 kHz", "12.5 kHz", "20 kHz",
                                        "25 kHz", "50 kHz",   "100 kHz"};
  ChannelEditor editor = NewChannel();
  EXPECT_EQ(StepTexts(editor), full);
  editor.receive = "98.1";
  LeaveReceive(editor);
  EXPECT_EQ(StepTexts(editor), few);
  editor.receive = "145";
  LeaveReceive(editor);
  EXPECT_EQ(StepTexts(editor), full);
  const auto image = MakeWideImage();
  EXPECT_EQ(StepTexts(*OpenChannelEditor(*image, -3, test_region)), few);
  EXPECT_EQ(StepTexts(*OpenChannelEditor(*image, -6, test_region)), full);
}

TEST(ChannelEditor, TakesTheStepOfTheBandWhereItsListLacksTheChosenOne) {
  ChannelEditor editor = NewChannel();
  editor.receive = "98.1";
  LeaveReceive(editor);
  EXPECT_EQ(editor.choices.step, 5);
  EXPECT_EQ(StepPosition(editor), 3);
  // 25 kHz is in both lists and stays.
  editor.receive = "145";
  LeaveReceive(editor);
  EXPECT_EQ(editor.choices.step, 5);
}

TEST(ChannelEditor, TakesTheFirstStepWhereNeitherIsListed) {
  ChannelEditor editor = NewChannel();
  editor.receive = "780";  // in no band: its step would be 5 kHz
  LeaveReceive(editor);
  EXPECT_EQ(editor.choices.step, 1);
}

TEST(ChannelEditor, KeepsAStepThatTheRadioStoredAndTheListLacks) {
  auto image = MakeWideImage();
  Bytes record = RecordOn(0x09, 0x81, 0x00);
  record[1] = 4;
  PutChannel(*image, 7, record);
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  EXPECT_EQ(StepPosition(editor), std::nullopt);
  LeaveReceive(editor);
  EXPECT_EQ(editor.choices.step, 4);
  record[1] = 200;
  PutChannel(*image, 7, record);
  editor = *OpenChannelEditor(*image, 7, test_region);
  EXPECT_EQ(StepPosition(editor), std::nullopt);
  editor.receive = "145";
  LeaveReceive(editor);
  EXPECT_EQ(editor.choices.step, std::nullopt);
}

TEST(ChannelEditor, WritesBothFrequenciesInCanonicalFormOnLeavingTheReceiveField) {
  ChannelEditor editor = NewChannel();
  editor.receive = "145500";
  LeaveReceive(editor);
  EXPECT_EQ(editor.receive, "145.5000");
  EXPECT_EQ(editor.transmit, "145.5000");
  editor.receive = "50.12 MHz";
  LeaveReceive(editor);
  EXPECT_EQ(editor.receive, " 50.1200");
  EXPECT_EQ(editor.transmit, " 50.1200");
  editor.receive = "1620k";
  LeaveReceive(editor);
  EXPECT_EQ(editor.receive, "  1.6200");
}

TEST(ChannelEditor, LeavesAnEmptyReceiveFieldEmpty) {
  ChannelEditor editor = NewChannel();
  LeaveReceive(editor);
  EXPECT_EQ(editor.receive, "");
  EXPECT_EQ(editor.transmit, "");
  ChangeShift(editor, Shift::kPlus);
  EXPECT_EQ(editor.receive, "");
  EXPECT_EQ(editor.transmit, "");
}

TEST(ChannelEditor, LeavesTextThatIsNoFrequencyAsTyped) {
  ChannelEditor editor = NewChannel();
  editor.receive = "abc";
  LeaveReceive(editor);
  EXPECT_EQ(editor.receive, "abc");
  EXPECT_EQ(editor.transmit, "  0.0000");
}

TEST(ChannelEditor, RecomputesTheTransmitFrequencyWithTheShift) {
  ChannelEditor editor = NewChannel();
  editor.receive = "145";
  ChangeShift(editor, Shift::kMinus);
  EXPECT_EQ(editor.receive, "145.0000");
  EXPECT_EQ(editor.transmit, "144.4000");
  ChangeShift(editor, Shift::kPlus);
  EXPECT_EQ(editor.transmit, "145.6000");
  ChangeShift(editor, Shift::kSimplex);
  EXPECT_EQ(editor.transmit, "145.0000");
}

TEST(ChannelEditor, StartsAnOddSplitFromTheTransmitFrequencyShown) {
  ChannelEditor editor = NewChannel();
  editor.receive = "145";
  ChangeShift(editor, Shift::kMinus);
  ChangeShift(editor, Shift::kOddSplit);
  EXPECT_EQ(editor.transmit, "144.4000");
  editor.transmit = "446.1";
  LeaveReceive(editor);
  EXPECT_EQ(editor.transmit, "446.1000");
  ChangeShift(editor, Shift::kPlus);
  EXPECT_EQ(editor.transmit, "145.6000");
}

TEST(ChannelEditor, FallsBackToTheReceiveFrequencyOutOfRange) {
  ChannelEditor editor = NewChannel();
  editor.receive = "0.55";
  ChangeShift(editor, Shift::kMinus);
  EXPECT_EQ(editor.transmit, "  0.5500");
  editor.receive = "999.3000";
  ChangeShift(editor, Shift::kPlus);
  EXPECT_EQ(editor.transmit, "999.9000");
  editor.receive = "999.3001";
  LeaveReceive(editor);
  EXPECT_EQ(editor.transmit, "999.3001");
}

}  // namespace
}  // namespace qz7
