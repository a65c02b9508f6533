#include "core/editors/channel_fields.h"

#include <gtest/gtest.h>

#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

ChannelEditor Editor(int n = 7) {
  ChannelEditor editor = *OpenChannelEditor(*MakeWideImage(), n, test_region);
  std::string why_not;
  if (n > 0) {
    SetEditorField(editor, "rx", "145", why_not);
  }
  return editor;
}

bool Set(ChannelEditor& editor, const char* name, const std::string& value) {
  std::string why_not;
  const bool set = SetEditorField(editor, name, value, why_not);
  EXPECT_EQ(set, why_not.empty()) << why_not;
  return set;
}

std::string WhyNot(ChannelEditor editor, const char* name, const std::string& value) {
  std::string why_not;
  EXPECT_FALSE(SetEditorField(editor, name, value, why_not)) << name << "=" << value;
  EXPECT_TRUE(test_seams.messages.empty());
  return why_not;
}

TEST(ChannelFields, SetFrequenciesLikeTheControls) {
  ChannelEditor editor = Editor();
  EXPECT_TRUE(Set(editor, "rx", "439000k"));
  EXPECT_EQ(editor.receive, "439.0000");
  EXPECT_TRUE(Set(editor, "shift", "minus"));
  EXPECT_EQ(editor.transmit, "438.4000");
  EXPECT_TRUE(Set(editor, "offset", "7.6"));
  EXPECT_EQ(editor.offset, "7.6000 MHz");
  EXPECT_EQ(editor.transmit, "431.4000");
  EXPECT_TRUE(Set(editor, "shift", "split"));
  EXPECT_TRUE(Set(editor, "tx", "146.5"));
  EXPECT_EQ(editor.transmit, "146.5000");
}

TEST(ChannelFields, TakeEveryShift) {
  ChannelEditor editor = Editor();
  const std::vector<const char*> names = {"simplex", "minus", "plus", "split"};
  for (int shift = 3; shift >= 0; --shift) {
    EXPECT_TRUE(Set(editor, "shift", names[static_cast<std::size_t>(shift)]));
    EXPECT_EQ(editor.choices.shift, shift);
  }
  EXPECT_EQ(WhyNot(editor, "shift", "up"), "shift: one of simplex, minus, plus, split");
  EXPECT_EQ(WhyNot(editor, "shift", ""), "shift: one of simplex, minus, plus, split");
}

TEST(ChannelFields, EmptyTheReceiveFrequencyToClearTheChannel) {
  ChannelEditor editor = Editor();
  EXPECT_TRUE(Set(editor, "rx", ""));
  EXPECT_EQ(editor.receive, "");
}

TEST(ChannelFields, LeaveItToTheEditorWhetherAReceiveFrequencyIsOne) {
  ChannelEditor editor = Editor();
  for (const char* text : {"abc", "0", "0.000", "2000"}) {
    EXPECT_TRUE(Set(editor, "rx", text));
  }
  EXPECT_EQ(editor.receive, "2000.0000");
}

TEST(ChannelFields, TakeATransmitFrequencyOfZeroForAnOddSplit) {
  ChannelEditor editor = Editor();
  Set(editor, "shift", "split");
  EXPECT_TRUE(Set(editor, "tx", "0"));
  EXPECT_EQ(editor.transmit, "  0.0000");
}

TEST(ChannelFields, RefuseWhatIsNoFrequency) {
  const ChannelEditor editor = Editor();
  EXPECT_EQ(WhyNot(editor, "rx", "145.0125000"), "rx: at most 10 characters");
  EXPECT_EQ(WhyNot(editor, "offset", "abc"), "offset: \"abc\" is not a frequency");
  EXPECT_EQ(WhyNot(editor, "offset", ""), "offset: \"\" is not a frequency");
  ChannelEditor split = editor;
  Set(split, "shift", "split");
  EXPECT_EQ(WhyNot(split, "tx", "abc"), "tx: \"abc\" is not a frequency");
  EXPECT_EQ(WhyNot(split, "tx", "145.0125000"), "tx: at most 10 characters");
}

TEST(ChannelFields, TakeAFrequencyOfTenCharacters) {
  ChannelEditor editor = Editor();
  EXPECT_TRUE(Set(editor, "rx", "146.012500"));
  EXPECT_EQ(editor.receive, "146.0125");
  Set(editor, "shift", "split");
  EXPECT_TRUE(Set(editor, "tx", "147.012500"));
  EXPECT_EQ(editor.transmit, "147.0125");
}

TEST(ChannelFields, RefuseATransmitTextWithoutDigitsForAnEmptyField) {
  ChannelEditor editor = *OpenChannelEditor(*MakeWideImage(), 7, test_region);
  EXPECT_EQ(editor.transmit, "");
  EXPECT_EQ(WhyNot(editor, "tx", "abc"),
            "tx: follows rx, shift and offset unless the shift is split");
  EXPECT_TRUE(Set(editor, "tx", ""));
}

TEST(ChannelFields, RefuseATransmitFrequencyThatIsNotTheShifts) {
  ChannelEditor editor = Editor();
  Set(editor, "shift", "minus");
  EXPECT_EQ(WhyNot(editor, "tx", "146"),
            "tx: follows rx, shift and offset unless the shift is split");
  EXPECT_TRUE(Set(editor, "tx", "144.4"));
}

TEST(ChannelFields, RefuseAnOffsetWithTheEditorsTexts) {
  const ChannelEditor editor = Editor();
  EXPECT_EQ(WhyNot(editor, "offset", "99.9501"), "Tx Shift must be less than 99.95MHz.");
  EXPECT_EQ(WhyNot(editor, "offset", "1.6025"), "Tx Shift must be a 50kHz step.");
}

TEST(ChannelFields, TakeAnOffsetAsItReadsWhateverTheWindowShows) {
  ChannelEditor editor = Editor();
  EXPECT_TRUE(Set(editor, "offset", "1.05"));
  EXPECT_EQ(editor.offset, "1.500 MHz");
  EXPECT_TRUE(Set(editor, "offset", "1.05 MHz"));
  EXPECT_EQ(OffsetOf(editor), 10'500);
  EXPECT_TRUE(Set(editor, "offset", "1.500 MHz"));
  EXPECT_EQ(OffsetOf(editor), 15'000);
}

TEST(ChannelFields, ChooseFromTheLists) {
  ChannelEditor editor = Editor();
  EXPECT_TRUE(Set(editor, "tone-mode", "Tone Squelch"));
  EXPECT_EQ(editor.choices.tone_mode, 2);
  EXPECT_TRUE(Set(editor, "mode", "FM-Wide"));
  EXPECT_EQ(editor.choices.mode, 2);
  EXPECT_TRUE(Set(editor, "power", "Low1"));
  EXPECT_EQ(editor.choices.power, 0);
  EXPECT_TRUE(Set(editor, "step", "12.5 kHz"));
  EXPECT_EQ(editor.choices.step, 2);
  EXPECT_EQ(WhyNot(editor, "tone-mode", "Tone"),
            "tone-mode: one of None, Tone Encode, Tone Squelch, DCS");
  EXPECT_EQ(WhyNot(editor, "mode", "FM"), "mode: one of FM-Narrow, AM, FM-Wide");
  EXPECT_EQ(WhyNot(editor, "power", "low"), "power: one of Low1, Low2, Low3, High");
}

TEST(ChannelFields, ChooseEveryToneAndCode) {
  ChannelEditor editor = Editor();
  const std::vector<std::string> tones = image_fixture::ToneTexts();
  for (std::size_t i = 0; i < tones.size(); ++i) {
    EXPECT_TRUE(Set(editor, "tone", tones[i]));
    EXPECT_EQ(editor.choices.tone_index, static_cast<int>(i));
  }
  const std::vector<std::string> codes = image_fixture::DcsTexts();
  for (std::size_t i = 0; i < codes.size(); ++i) {
    EXPECT_TRUE(Set(editor, "dcs", codes[i]));
    EXPECT_EQ(editor.choices.dcs_index, static_cast<int>(i));
  }
  EXPECT_EQ(WhyNot(editor, "tone", "100").substr(0, 24), "tone: one of 67.0, 69.3,");
  EXPECT_EQ(WhyNot(editor, "dcs", "23").substr(0, 21), "dcs: one of 023, 025,");
}

TEST(ChannelFields, KeepACodeWithoutAMeaningForTheEmptyValue) {
  ChannelEditor editor = Editor();
  editor.choices.tone_mode = std::nullopt;
  editor.choices.mode = std::nullopt;
  for (const char* name : {"tone-mode", "mode", "tone", "dcs", "step"}) {
    EXPECT_TRUE(Set(editor, name, ""));
  }
  EXPECT_EQ(editor.choices.tone_mode, std::nullopt);
  EXPECT_EQ(editor.choices.mode, std::nullopt);
  EXPECT_EQ(editor.choices.tone_index, 12);
}

TEST(ChannelFields, OfferTheStepsOfTheFrequency) {
  ChannelEditor editor = Editor();
  Set(editor, "rx", "98.1");
  EXPECT_EQ(WhyNot(editor, "step", "5 kHz"),
            "step: one of 10 kHz, 12.5 kHz, 15 kHz, 25 kHz, 50 kHz, 100 kHz");
  // The list's "20 kHz" stores the 15 kHz of a record here; the 20 kHz of a record is not listed.
  EXPECT_FALSE(WhyNot(editor, "step", "20 kHz").empty());
  EXPECT_TRUE(Set(editor, "step", "15 kHz"));
  EXPECT_EQ(editor.choices.step, 3);
  Set(editor, "rx", "145");
  EXPECT_TRUE(Set(editor, "step", "20 kHz"));
  EXPECT_EQ(editor.choices.step, 4);
  EXPECT_FALSE(SetEditorField(editor, "step", "9 kHz", *std::make_unique<std::string>()));
}

TEST(ChannelFields, TakeAnyListedStepInTheMwBandWhereAnEarlierChoiceStays) {
  ChannelEditor editor = Editor();
  Set(editor, "step", "25 kHz");
  Set(editor, "rx", "1.000");
  EXPECT_EQ(editor.choices.step, 5);
  for (const char* step : {"5 kHz", "10 kHz", "25 kHz"}) {
    EXPECT_TRUE(Set(editor, "step", step));
  }
  EXPECT_EQ(editor.choices.step, 5);
}

TEST(ChannelFields, SetTexts) {
  ChannelEditor editor = Editor();
  EXPECT_TRUE(Set(editor, "name", "12345678"));
  EXPECT_EQ(editor.choices.name, "12345678");
  EXPECT_EQ(WhyNot(editor, "name", "123456789"), "name: at most 8 characters");
  EXPECT_TRUE(Set(editor, "comment", std::string(31, 'c')));
  EXPECT_EQ(editor.comment, std::string(31, 'c'));
  EXPECT_EQ(WhyNot(editor, "comment", std::string(32, 'c')), "comment: at most 31 characters");
  EXPECT_TRUE(Set(editor, "name", ""));
  EXPECT_TRUE(Set(editor, "comment", ""));
  EXPECT_EQ(editor.choices.name + editor.comment, "");
}

TEST(ChannelFields, RefuseControlBytesThatAreNotThereAlready) {
  ChannelEditor editor = Editor();
  for (const char* name : {"name", "comment"}) {
    for (const char* bad : {"\x01", "A\x1B[", "\n", "\x7F", "\x81", "B\x9D"}) {
      EXPECT_EQ(WhyNot(editor, name, bad),
                std::string(name) + ": a control character cannot be stored");
    }
    EXPECT_TRUE(Set(editor, name, "\x80\x9F\xA0\xB1\xFF"));
  }
  editor.choices.name = "A\x10";
  editor.comment = "\x1B[0m";
  EXPECT_TRUE(Set(editor, "name", "A\x10"));
  EXPECT_TRUE(Set(editor, "comment", "\x1B[0m"));
}

TEST(ChannelFields, SetTheIconByItsNumber) {
  ChannelEditor editor = Editor();
  EXPECT_TRUE(Set(editor, "icon", "26"));
  EXPECT_EQ(editor.choices.icon, 26);
  EXPECT_TRUE(Set(editor, "icon", "0"));
  for (const char* bad : {"27", "-1", "", "A", "1x", "99999999999"}) {
    EXPECT_EQ(WhyNot(editor, "icon", bad), "icon: 0 to 26");
  }
  editor.choices.icon = 63;
  EXPECT_TRUE(Set(editor, "icon", "63"));
}

TEST(ChannelFields, SwitchTheBoxes) {
  ChannelEditor editor = Editor();
  for (const auto& [name, box] :
       std::vector<std::pair<const char*, bool*>>{{"skip", &editor.skip},
                                                  {"masked", &editor.masked},
                                                  {"option", &editor.option},
                                                  {"option-a", &editor.choices.option_a},
                                                  {"option-b", &editor.choices.option_b}}) {
    EXPECT_TRUE(Set(editor, name, "on"));
    EXPECT_TRUE(*box);
    EXPECT_TRUE(Set(editor, name, "off"));
    EXPECT_FALSE(*box);
    EXPECT_EQ(WhyNot(editor, name, "yes"), std::string(name) + ": on or off");
  }
}

TEST(ChannelFields, DoNotMaskChannel1) {
  ChannelEditor editor = Editor(1);
  EXPECT_TRUE(Set(editor, "masked", "off"));
  EXPECT_EQ(WhyNot(editor, "masked", "on"), "masked: channel 1 cannot be masked");
}

TEST(ChannelFields, TakeOnlyNothingForFieldsThatASpecialSlotLacks) {
  ChannelEditor vfo = Editor(-6);
  ChannelEditor home = Editor(-26);
  for (const char* name : {"comment", "icon", "skip", "masked", "option"}) {
    EXPECT_TRUE(Set(vfo, name, ""));
    EXPECT_TRUE(Set(home, name, ""));
    EXPECT_EQ(WhyNot(home, name, "on"), std::string(name) + ": memory channels only");
  }
  EXPECT_TRUE(Set(vfo, "name", ""));
  EXPECT_EQ(WhyNot(vfo, "name", "X"), "name: VFO channels have no name");
  EXPECT_TRUE(Set(home, "name", "X"));
  EXPECT_TRUE(Set(vfo, "option-a", "on"));
}

TEST(ChannelFields, RefuseANameThatIsNone) {
  EXPECT_EQ(WhyNot(Editor(), "frequency", "145"), "there is no field \"frequency\"");
}

TEST(ChannelFields, GoInWhateverOrderTheyAreGiven) {
  ChannelEditor editor = Editor();
  std::string why_not;
  EXPECT_TRUE(SetEditorFields(editor,
                              {{"step", "50 kHz"},
                               {"tx", "446.1"},
                               {"offset", "5 MHz"},
                               {"rx", "98.1"},
                               {"shift", "split"}},
                              why_not));
  EXPECT_EQ(editor.transmit, "446.1000");
  EXPECT_EQ(editor.receive, " 98.1000");
  EXPECT_EQ(editor.choices.step, 6);
}

TEST(ChannelFields, SetTheReceiveFrequencyBeforeTheShift) {
  ChannelEditor editor = *OpenChannelEditor(*MakeWideImage(), 7, test_region);
  std::string why_not;
  EXPECT_TRUE(SetEditorFields(editor, {{"shift", "split"}, {"rx", "433.5"}}, why_not)) << why_not;
  EXPECT_EQ(editor.transmit, "433.5000");
  EXPECT_TRUE(
      SetEditorFields(editor, {{"offset", "1.6"}, {"shift", "minus"}, {"rx", "145.6"}}, why_not));
  EXPECT_EQ(editor.transmit, "144.0000");
}

TEST(ChannelFields, StopAtTheFirstThatIsRefused) {
  ChannelEditor editor = Editor();
  std::string why_not;
  EXPECT_FALSE(SetEditorFields(editor, {{"name", "A"}, {"what", "1"}, {"power", "x"}}, why_not));
  EXPECT_EQ(why_not, "power: one of Low1, Low2, Low3, High");
}

}  // namespace
}  // namespace qz7
