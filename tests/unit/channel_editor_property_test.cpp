#include <gtest/gtest.h>

#include <algorithm>

#include "core/editors/channel_editor.h"
#include "core/editors/channel_fields.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

// A frequency in the middle of each special slot's band.
constexpr int kSlotKilohertz[] = {1000,   7100,   98100,  180000, 51000,
                                  145000, 439000, 121500, 300000, 810000};

// Random bytes, but a receive frequency and an offset that the editor accepts.
void PutAcceptableRecord(Dice& dice, CloneImage& image, int n) {
  const int khz = n < 0 ? kSlotKilohertz[~n % 10] : 144000 + 5 * dice.Below(800);
  PutBytes(image, RecordPlace(n) + 2, Kilohertz(khz));
  PutBytes(image, RecordPlace(n) + 14, Kilohertz(5 * dice.Below(19990)));
  if (n > 0) {
    image[FlagPlace(n)] |= 1;
  }
}

// The bytes of a record that OK writes in another form although nobody touched the editor.
Bytes Rewritten(Bytes record, int n) {
  Bytes expected = record;
  if (record[1] == 8) {
    expected[1] = 1;  // shows as 10 kHz
  }
  if (n < 0) {
    expected[5] &= 3;  // icon bits
  }
  // A name ends at its first 0 byte.
  const auto end = std::find(record.begin() + 6, record.begin() + 14, 0);
  std::fill(expected.begin() + (end - record.begin()), expected.begin() + 14, ' ');
  if (record[18] > 39) {
    expected[18] = 0;
  }
  if (record[19] > 104) {
    expected[19] = 0;
  }
  return expected;
}

// Byte 0 holds what OK works out: both grid classes and the off-step flag.
void ExpectRecord(const Bytes& record, const Bytes& expected) {
  EXPECT_EQ(record[0] & 0xB0, expected[0] & 0xB0);
  EXPECT_EQ(Bytes(record.begin() + 1, record.end()), Bytes(expected.begin() + 1, expected.end()));
}

// All that OK on channel n may write.
Offsets PlacesOf(const CloneImage& image, int n) {
  Offsets places;
  AddRange(places, RecordPlace(n), 22);
  if (n > 0) {
    const auto index = static_cast<std::size_t>(n - 1);
    AddRange(places, 3358 + index, 1);
    AddRange(places, 11202 + 10 * index, 9);
    AddRange(places, 13602 + 32 * index, 32);
  }
  if (n > 0 && (image[FlagPlace(n)] & 2) == 0) {
    AddRange(places, 3102, 5);
    AddRange(places, 3110, 240);
  }
  return places;
}

int RandomChannel(Dice& dice) {
  return dice.Below(3) == 0 ? -1 - dice.Below(30) : 1 + dice.Below(240);
}

TEST(ChannelEditorProperty, OpenAndOkRewritesOnlyWhatItShowsInAnotherForm) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    MakeWide(*image);
    const int n = RandomChannel(dice);
    PutAcceptableRecord(dice, *image, n);
    const CloneImage before = *image;
    ChannelEditor editor = *OpenChannelEditor(*image, n, test_region);
    ASSERT_EQ(AcceptChannel(*image, editor).refused, EditorField::kNone) << n;
    ExpectRecord(BytesAt(*image, RecordPlace(n), 22),
                 Rewritten(BytesAt(before, RecordPlace(n), 22), n));
    EXPECT_EQ(Unexpected(before, *image, PlacesOf(*image, n)), std::vector<std::size_t>{});
    if (n > 0) {
      EXPECT_EQ(ChannelOf(*image, n).flags, ChannelOf(before, n).flags);
      EXPECT_EQ(ChannelOf(*image, n).comment, ChannelOf(before, n).comment);
    }
  }
}

// What the radio and this editor write themselves stays as it is to the last byte.
TEST(ChannelEditorProperty, OpenAndOkChangesNothingOfAChannelThatItWrote) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    MakeWide(*image);
    const int n = RandomChannel(dice);
    PutAcceptableRecord(dice, *image, n);
    ChannelEditor editor = *OpenChannelEditor(*image, n, test_region);
    AcceptChannel(*image, editor);
    const CloneImage before = *image;
    editor = *OpenChannelEditor(*image, n, test_region);
    EXPECT_FALSE(AcceptChannel(*image, editor).record_changed);
    EXPECT_EQ(DifferingOffsets(before, *image), std::vector<std::size_t>{});
  }
}

void ChooseAtRandom(Dice& dice, ChannelEditor& editor) {
  static const std::vector<const char*> receives = {"145.0125", "51.02", "439",  "98.1",
                                                    "1.000",    "7.1",   "121.5"};
  editor.receive = receives[static_cast<std::size_t>(dice.Below(7))];
  ChangeShift(editor, static_cast<Shift>(dice.Below(4)));
  editor.transmit = receives[static_cast<std::size_t>(dice.Below(7))];
  ChooseOffset(editor, dice.Below(6));
  LeaveReceive(editor);
  ChannelChoices& choices = editor.choices;
  choices.tone_mode = static_cast<ToneMode>(dice.Below(4));
  choices.tone_index = dice.Below(39);
  choices.dcs_index = dice.Below(104);
  choices.mode = static_cast<Mode>(dice.Below(3));
  choices.power = static_cast<Power>(dice.Below(4));
  choices.step =
      editor.steps[static_cast<std::size_t>(dice.Below(static_cast<int>(editor.steps.size())))]
          .step;
  choices.icon = dice.Below(27);
  choices.option_a = dice.Heads();
  choices.option_b = dice.Heads();
  choices.name = std::string(static_cast<std::size_t>(dice.Below(9)), 'N');
  editor.comment = std::string(static_cast<std::size_t>(dice.Below(32)), 'c');
  editor.skip = dice.Heads();
  editor.masked = dice.Heads();
  editor.option = dice.Heads();
}

TEST(ChannelEditorProperty, WhatIsChosenShowsAgainAndNothingElseIsTouched) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    MakeWide(*image);
    const CloneImage before = *image;
    const int n = 1 + dice.Below(240);
    ChannelEditor chosen = *OpenChannelEditor(*image, n, test_region);
    ChooseAtRandom(dice, chosen);
    ASSERT_EQ(AcceptChannel(*image, chosen).refused, EditorField::kNone);
    EXPECT_EQ(Unexpected(before, *image, PlacesOf(*image, n)), std::vector<std::size_t>{});
    const ChannelEditor shown = *OpenChannelEditor(*image, n, test_region);
    EXPECT_EQ(shown.receive, chosen.receive);
    EXPECT_EQ(shown.transmit, chosen.transmit);
    if (chosen.choices.shift != 3) {
      EXPECT_EQ(shown.offset, chosen.offset);
    }
    EXPECT_EQ(shown.choices.shift, chosen.choices.shift);
    EXPECT_EQ(shown.choices.tone_mode, chosen.choices.tone_mode);
    EXPECT_EQ(shown.choices.tone_index, chosen.choices.tone_index);
    EXPECT_EQ(shown.choices.dcs_index, chosen.choices.dcs_index);
    EXPECT_EQ(shown.choices.mode, chosen.choices.mode);
    EXPECT_EQ(shown.choices.power, chosen.choices.power);
    EXPECT_EQ(shown.choices.step, chosen.choices.step);
    EXPECT_EQ(shown.choices.icon, chosen.choices.icon);
    EXPECT_EQ(shown.choices.option_a, chosen.choices.option_a);
    EXPECT_EQ(shown.choices.option_b, chosen.choices.option_b);
    EXPECT_EQ(shown.choices.name, chosen.choices.name);
    EXPECT_EQ(shown.comment, chosen.comment);
    EXPECT_EQ(shown.skip, chosen.skip);
    EXPECT_EQ(shown.masked, chosen.masked);
    EXPECT_EQ(shown.option, chosen.option);
  }
}

// Whatever a file holds, and whatever version it claims: a refusal writes nothing.
TEST(ChannelEditorProperty, ARefusalWritesNothing) {
  int refused = 0;
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    (*image)[3068] = static_cast<std::uint8_t>(dice.Below(4));
    const int n = RandomChannel(dice);
    const CloneImage before = *image;
    ChannelEditor editor = *OpenChannelEditor(*image, n, test_region);
    if (AcceptChannel(*image, editor).refused != EditorField::kNone) {
      ++refused;
      EXPECT_EQ(DifferingOffsets(before, *image), std::vector<std::size_t>{});
    }
  }
  EXPECT_GT(refused, 100);
}

// The console program's own output, taken as input.
TEST(ChannelFieldsProperty, TakeTheDescriptionOfTheChannelItself) {
  for (unsigned seed = 1; seed <= 600; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    const int n = RandomChannel(dice);
    const ChannelEditor before = *OpenChannelEditor(*image, n, test_region);
    ChannelEditor editor = before;
    std::string why_not;
    std::vector<NamedValue> values = DescribeChannel(*image, n, test_region);
    if (dice.Heads()) {
      std::reverse(values.begin(), values.end());
    }
    ASSERT_TRUE(SetEditorFields(editor, values, why_not)) << why_not;
    for (const auto& [name, value] : DescribeChannel(*image, n, test_region)) {
      ASSERT_TRUE(SetEditorField(editor, name, value, why_not)) << why_not;
    }
    EXPECT_EQ(editor.receive, before.receive);
    EXPECT_EQ(editor.transmit, before.transmit);
    EXPECT_EQ(editor.offset, before.offset);
    EXPECT_EQ(editor.written_offset, before.written_offset);
    EXPECT_EQ(editor.choices.shift, before.choices.shift);
    EXPECT_EQ(editor.choices.tone_mode, before.choices.tone_mode);
    EXPECT_EQ(editor.choices.tone_index, before.choices.tone_index);
    EXPECT_EQ(editor.choices.dcs_index, before.choices.dcs_index);
    EXPECT_EQ(editor.choices.mode, before.choices.mode);
    EXPECT_EQ(editor.choices.power, before.choices.power);
    EXPECT_EQ(editor.choices.step, before.choices.step);
    EXPECT_EQ(editor.choices.name, before.choices.name);
    EXPECT_EQ(editor.comment, before.comment);
    EXPECT_EQ(editor.choices.icon, before.choices.icon);
    EXPECT_EQ(editor.skip, before.skip);
    EXPECT_EQ(editor.masked, before.masked);
    EXPECT_EQ(editor.option, before.option);
    EXPECT_EQ(editor.choices.option_a, before.choices.option_a);
    EXPECT_EQ(editor.choices.option_b, before.choices.option_b);
  }
}

TEST(ChannelFieldsProperty, TakeTheDescriptionOfAnotherChannel) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeWideImage();
    ChannelEditor source = *OpenChannelEditor(*image, 20, test_region);
    ChooseAtRandom(dice, source);
    TakeBandDefaults(source);
    ASSERT_EQ(AcceptChannel(*image, source).refused, EditorField::kNone);
    ChannelEditor target = *OpenChannelEditor(*image, 30, test_region);
    std::string why_not;
    ASSERT_TRUE(SetEditorFields(target, DescribeChannel(*image, 20, test_region), why_not))
        << why_not;
    ASSERT_EQ(AcceptChannel(*image, target).refused, EditorField::kNone);
    EXPECT_EQ(ChannelOf(*image, 30), ChannelOf(*image, 20));
  }
}

}  // namespace
}  // namespace qz7
