#include <gtest/gtest.h>

#include <functional>

#include "core/editors/channel_editor.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

// What the user enters, and the 22 bytes that come of it on a record of 0xFF: bit 7 of the first
// byte and the last two bytes are the old ones.
namespace qz7 {
namespace {

using namespace editor_fixture;

struct Entry {
  const char* what;
  int n;
  std::function<void(ChannelEditor&)> enter;
  Bytes record;
};

void Receive(ChannelEditor& editor, const char* text) {
  editor.receive = text;
  LeaveReceive(editor);
}

std::vector<Entry> Entries() {
  return {
      {.what = "nothing but a receive frequency: the defaults",
       .n = 7,
       .enter = [](ChannelEditor& e) { Receive(e, "145.5"); },
       .record = {0x80, 0x00, 0x14, 0x55, 0x00, 0x00, ' ',  ' ',  ' ',  ' ',  ' ',
                  ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x0C, 0x0C, 0x00, 0xFF, 0xFF}},
      {.what = "6.25 kHz grid, minus, tone encode, 12.5 kHz, name, icon, option A",
       .n = 12,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "145.0125");
             ChangeShift(e, Shift::kMinus);
             e.choices.tone_mode = ToneMode::kEncode;
             e.choices.tone_index = 8;
             e.choices.step = Step::kKhz12Half;
             e.choices.name = "RPT1";
             e.choices.icon = 5;
             e.choices.option_a = true;
           },
       .record = {0x95, 0x02, 0x14, 0x50, 0x12, 0x14, 'R',  'P',  'T',  '1',  ' ',
                  ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x1D, 0x08, 0x00, 0xFF, 0xFF}},
      {.what = "minus 7.6 MHz, tone squelch with the last tone, Low2, last icon",
       .n = 220,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "438.95");
             ChangeShift(e, Shift::kMinus);
             ChooseOffset(e, 5);
             e.choices.tone_mode = ToneMode::kSquelch;
             e.choices.tone_index = 38;
             e.choices.power = Power::kLow2;
             e.choices.step = Step::kKhz25;
             e.choices.icon = 26;
             e.choices.name = "12345678";
           },
       .record = {0x80, 0x05, 0x43, 0x89, 0x50, 0x68, '1',  '2',  '3',  '4',  '5',
                  '6',  '7',  '8',  0x00, 0x76, 0x00, 0x25, 0x26, 0x00, 0xFF, 0xFF}},
      {.what = "odd split with a transmit frequency on the other grid, DCS, AM, option B",
       .n = 240,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "433.5");
             ChangeShift(e, Shift::kOddSplit);
             e.transmit = "146.5125";
             e.choices.tone_mode = ToneMode::kDcs;
             e.choices.dcs_index = 103;
             e.choices.mode = Mode::kAm;
             e.choices.power = Power::kLow2;
             e.choices.step = Step::kKhz25;
             e.choices.option_b = true;
           },
       .record = {0xA4, 0x05, 0x43, 0x35, 0x00, 0x01, ' ',  ' ',  ' ',  ' ',  ' ',
                  ' ',  ' ',  ' ',  0x14, 0x65, 0x12, 0x37, 0x0C, 0x67, 0xFF, 0xFF}},
      {.what = "an offset that puts the transmit frequency on the other grid",
       .n = 8,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "145.0125");
             ChangeShift(e, Shift::kPlus);
             TypeOffset(e, "1.605");
           },
       // 145012 is no multiple of 5 kHz; 146.6175 MHz is on the 6.25 kHz grid no less.
       .record = {0xC5, 0x00, 0x14, 0x50, 0x12, 0x00, ' ',  ' ',  ' ',  ' ',  ' ',
                  ' ',  ' ',  ' ',  0x00, 0x16, 0x05, 0x0E, 0x0C, 0x00, 0xFF, 0xFF}},
      {.what = "an odd split on no grid at all: the low two bits of class 5",
       .n = 8,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "145");
             ChangeShift(e, Shift::kOddSplit);
             e.transmit = "146.001";
           },
       .record = {0x84, 0x00, 0x14, 0x50, 0x00, 0x00, ' ',  ' ',  ' ',  ' ',  ' ',
                  ' ',  ' ',  ' ',  0x14, 0x60, 0x01, 0x0F, 0x0C, 0x00, 0xFF, 0xFF}},
      {.what = "MW with its band's defaults, AM",
       .n = 9,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "1.000");
             TakeBandDefaults(e);
             e.choices.mode = Mode::kAm;
           },
       .record = {0x80, 0x01, 0x00, 0x10, 0x00, 0x01, ' ',  ' ',  ' ',  ' ',  ' ',
                  ' ',  ' ',  ' ',  0x00, 0x00, 0x00, 0x0C, 0x0C, 0x00, 0xFF, 0xFF}},
      {.what = "FM broadcast, wide: the short list of steps lacks 5 kHz",
       .n = 9,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "98.1");
             e.choices.mode = Mode::kFmWide;
             e.choices.power = Power::kLow1;
           },
       .record = {0x80, 0x05, 0x09, 0x81, 0x00, 0x02, ' ',  ' ',  ' ',  ' ',  ' ',
                  ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x00, 0x0C, 0x00, 0xFF, 0xFF}},
      {.what = "6m, 20 kHz of the short list: stored as 3, and 51.02 is off a 15 kHz step",
       .n = 9,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "51.02");
             e.choices.step = e.steps[2].step;
             e.choices.power = Power::kLow3;
           },
       .record = {0xC0, 0x03, 0x05, 0x10, 0x20, 0x00, ' ',  ' ',  ' ',  ' ',  ' ',
                  ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x08, 0x0C, 0x00, 0xFF, 0xFF}},
      {.what = "5 kHz multiple on a 10 kHz step: not off step",
       .n = 9,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "145.005");
             e.choices.step = Step::kKhz10;
           },
       .record = {0x80, 0x01, 0x14, 0x50, 0x05, 0x00, ' ',  ' ',  ' ',  ' ',  ' ',
                  ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x0C, 0x0C, 0x00, 0xFF, 0xFF}},
      {.what = "home channel: a name, but the icon bits go",
       .n = -26,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "145.3");
             e.choices = {.shift = Shift::kPlus, .step = Step::kKhz25, .icon = 9, .name = "HOME"};
             TypeOffset(e, "600k");
           },
       .record = {0x80, 0x05, 0x14, 0x53, 0x00, 0x00, 'H',  'O',  'M',  'E',  ' ',
                  ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x0E, 0x0C, 0x00, 0xFF, 0xFF}},
      {.what = "VFO of the second bank",
       .n = -17,
       .enter =
           [](ChannelEditor& e) {
             Receive(e, "446.0125");
             e.choices = {.shift = Shift::kSimplex, .step = Step::kKhz12Half, .name = ""};
             TypeOffset(e, "5");
           },
       .record = {0x85, 0x02, 0x44, 0x60, 0x12, 0x00, ' ',  ' ',  ' ',  ' ',  ' ',
                  ' ',  ' ',  ' ',  0x00, 0x50, 0x00, 0x0C, 0x0C, 0x00, 0xFF, 0xFF}},
  };
}

TEST(ChannelEditorBytes, AreTheOnesOfTheTables) {
  for (const Entry& entry : Entries()) {
    SCOPED_TRACE(entry.what);
    auto image = MakeWideImage();
    PutBytes(*image, RecordPlace(entry.n), Bytes(22, 0xFF));
    ChannelEditor editor = *OpenChannelEditor(*image, entry.n, test_region);
    entry.enter(editor);
    EXPECT_EQ(AcceptChannel(*image, editor).refused, EditorField::kNone);
    EXPECT_EQ(BytesAt(*image, RecordPlace(entry.n), 22), entry.record);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{});
  }
}

// The 9 kHz grid of the regions that have it: class 2 for both frequencies.
TEST(ChannelEditorBytes, HaveTheNineKilohertzGridOutsideRegion0) {
  const RegionGuard guard({.variant = Variant::kOne, .extended_version = true});
  auto image = MakeImage();
  (*image)[3068] = 1;
  PutBytes(*image, RecordPlace(7), Bytes(22, 0xFF));
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  Receive(editor, "1.602");
  TakeBandDefaults(editor);
  EXPECT_EQ(AcceptChannel(*image, editor).refused, EditorField::kNone);
  EXPECT_EQ(BytesAt(*image, RecordPlace(7), 6), (Bytes{0x8A, 0x08, 0x00, 0x16, 0x02, 0x00}));
  Receive(editor, "1.600");
  EXPECT_EQ(AcceptChannel(*image, editor).refused, EditorField::kReceive);
}

TEST(ChannelEditorBytes, ShowAgainAsTheyWereEntered) {
  for (const Entry& entry : Entries()) {
    SCOPED_TRACE(entry.what);
    auto image = MakeWideImage();
    if (entry.n > 0) {
      PutChannel(*image, entry.n, entry.record);
    } else {
      PutBytes(*image, RecordPlace(entry.n), entry.record);
    }
    ChannelEditor editor = *OpenChannelEditor(*image, entry.n, test_region);
    EXPECT_FALSE(AcceptChannel(*image, editor).record_changed);
    EXPECT_EQ(BytesAt(*image, RecordPlace(entry.n), 22), entry.record);
  }
}

}  // namespace
}  // namespace qz7
