#include <gtest/gtest.h>

#include "core/editors/channel_editor.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

constexpr const char* kReceiveText = "A valid receive frequency is required";

Bytes Simplex() {
  return {0x80, 0x05, 0x14, 0x50, 0x00, 0x00, 'O',  'L',  'D',  ' ',  ' ',
          ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x0C, 0x0C, 0x00, 0xA5, 0x5A};
}

// Channel 7 programmed on 145 MHz, and a comment.
std::unique_ptr<CloneImage> ImageWithChannel7() {
  auto image = MakeWideImage();
  PutGroups(*image, NoGroups());
  PutChannel(*image, 7, Simplex());
  PutBytes(*image, 11202 + 60, {'O', 'L', 'D', ' ', ' ', ' ', ' ', ' ', 0, 'z'});
  PutBytes(*image, 13602 + 32 * 6, {'s', 'e', 'a', 0});
  return image;
}

void ExpectRefused(CloneImage& image, ChannelEditor& editor, const char* text, const char* caption,
                   EditorField focus) {
  const CloneImage before = image;
  test_seams.messages.clear();
  const ChannelEnd end = AcceptChannel(image, editor);
  EXPECT_EQ(end.refused, focus);
  EXPECT_FALSE(end.record_changed);
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, text);
  EXPECT_EQ(test_seams.messages[0].caption, caption);
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
  EXPECT_EQ(image, before);
}

void ExpectReceiveRefused(CloneImage& image, int n, const std::string& receive) {
  SCOPED_TRACE(receive);
  ChannelEditor editor = *OpenChannelEditor(image, n, test_region);
  editor.receive = receive;
  ExpectRefused(image, editor, kReceiveText, "QZ-7H Programmer", EditorField::kReceive);
}

ChannelEnd AcceptReceive(CloneImage& image, int n, const std::string& receive) {
  ChannelEditor editor = *OpenChannelEditor(image, n, test_region);
  editor.receive = receive;
  return AcceptChannel(image, editor);
}

TEST(ChannelEditorOk, ChecksTheOffsetFirst) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  editor.receive = "20";  // invalid as well
  TypeOffset(editor, "100");
  ExpectRefused(*image, editor, "Tx Shift must be less than 99.95MHz.", "Tx Shift Error",
                EditorField::kOffset);
  EXPECT_EQ(editor.offset, "600 kHz");
  EXPECT_EQ(editor.receive, "20");
  ExpectRefused(*image, editor, kReceiveText, "QZ-7H Programmer", EditorField::kReceive);
}

TEST(ChannelEditorOk, ChecksTheOffsetOfASimplexChannelToo) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  TypeOffset(editor, "0.6012");
  ExpectRefused(*image, editor, "Tx Shift must be a 50kHz step.", "Tx Shift Error",
                EditorField::kOffset);
}

TEST(ChannelEditorOk, RefusesAFrequencyThatTheVersionLacks) {
  auto image = ImageWithChannel7();
  ExpectReceiveRefused(*image, 7, "20");
  ExpectReceiveRefused(*image, 7, "15.9999");
  ExpectReceiveRefused(*image, 7, "16");
  (*image)[3073] = 0;
  ExpectReceiveRefused(*image, 7, "162.55");
  EXPECT_EQ(AcceptReceive(*image, 7, "146.52").refused, EditorField::kNone);
}

TEST(ChannelEditorOk, RefusesAFrequencyOnNoGrid) {
  auto image = ImageWithChannel7();
  ExpectReceiveRefused(*image, 7, "145.001");
  ExpectReceiveRefused(*image, 7, "145.0063");
  EXPECT_EQ(AcceptReceive(*image, 7, "145.0125").refused, EditorField::kNone);
  EXPECT_EQ(BytesAt(*image, RecordPlace(7) + 2, 3), (Bytes{0x14, 0x50, 0x12}));
  EXPECT_EQ((*image)[RecordPlace(7)] & 3, 1);
}

TEST(ChannelEditorOk, RefusesAFrequencyOutsideTheSlotsBand) {
  auto image = ImageWithChannel7();
  for (const int n : {-6, -16, -26}) {
    ExpectReceiveRefused(*image, n, "180");
    ExpectReceiveRefused(*image, n, "136.995");
    ExpectReceiveRefused(*image, n, "174");
    EXPECT_EQ(AcceptReceive(*image, n, "137").refused, EditorField::kNone);
    EXPECT_EQ(AcceptReceive(*image, n, "173.995").refused, EditorField::kNone);
  }
  EXPECT_EQ(AcceptReceive(*image, 7, "180").refused, EditorField::kNone);
}

TEST(ChannelEditorOk, RefusesAnEmptyReceiveFieldOfASpecialSlot) {
  auto image = ImageWithChannel7();
  ExpectReceiveRefused(*image, -6, "");
  ExpectReceiveRefused(*image, -26, "");
}

TEST(ChannelEditorOk, ClearsAMemoryChannelWithoutAReceiveFrequency) {
  for (const char* nothing : {"", "  ", "0", "  0.0000"}) {
    auto image = ImageWithChannel7();
    PutGroups(*image, {{3, 6}, {6}, {}, {}, {}});
    CloneImage expected = *image;
    PutGroups(expected, {{3}, {}, {}, {}, {}});
    expected[3357 + 7] = 0;
    expected[11202 + 60] = 0;
    expected[13602 + 32 * 6] = 0;
    const ChannelEnd end = AcceptReceive(*image, 7, nothing);
    EXPECT_EQ(end.refused, EditorField::kNone);
    EXPECT_FALSE(end.record_changed);
    EXPECT_EQ(DifferingOffsets(expected, *image), std::vector<std::size_t>{}) << nothing;
    EXPECT_TRUE(test_seams.messages.empty());
  }
}

TEST(ChannelEditorOk, LeavesAnUnprogrammedChannelAloneThatStaysEmpty) {
  auto image = ImageWithChannel7();
  (*image)[3357 + 8] = 0xFE;
  PutBytes(*image, 13602 + 32 * 7, {'x', 0});
  const CloneImage before = *image;
  EXPECT_EQ(AcceptReceive(*image, 8, "").refused, EditorField::kNone);
  EXPECT_EQ(*image, before);
}

TEST(ChannelEditorOk, RefusesTextThatIsNoFrequencyInsteadOfClearing) {
  auto image = ImageWithChannel7();
  ExpectReceiveRefused(*image, 7, "abc");
  ExpectReceiveRefused(*image, 7, "-145");
}

TEST(ChannelEditorOk, DoesNotRangeCheckTheTransmitFrequency) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  ChangeShift(editor, Shift::kOddSplit);
  editor.transmit = "20.0013";
  EXPECT_EQ(AcceptChannel(*image, editor).refused, EditorField::kNone);
  EXPECT_EQ(BytesAt(*image, RecordPlace(7) + 14, 3), (Bytes{0x02, 0x00, 0x01}));
}

TEST(ChannelEditorOk, TakesTheTextsAsTheyStandWhileTheFocusIsStillInThem) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  ChangeShift(editor, Shift::kPlus);
  editor.receive = "146.94";
  TypeOffset(editor, "1.6");
  EXPECT_TRUE(AcceptChannel(*image, editor).record_changed);
  EXPECT_EQ(editor.receive, "146.9400");
  EXPECT_EQ(editor.offset, "1.6000 MHz");
  EXPECT_EQ(editor.transmit, "148.5400");
  EXPECT_EQ(BytesAt(*image, RecordPlace(7) + 14, 3), (Bytes{0x00, 0x16, 0x00}));
}

TEST(ChannelEditorOk, WritesFlagsNameAndComment) {
  auto image = ImageWithChannel7();
  (*image)[3357 + 7] = 0xA3;
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  editor.choices.name = "NEW";
  editor.comment = "on the hill";
  editor.skip = true;
  editor.option = true;
  CloneImage expected = *image;
  PutBytes(expected, RecordPlace(7) + 6, {'N', 'E', 'W', ' ', ' ', ' ', ' ', ' '});
  PutBytes(expected, 11202 + 60, {'N', 'E', 'W', ' ', ' ', ' ', ' ', ' ', 0, 'z'});
  PutBytes(expected, 13602 + 32 * 6, {'o', 'n', ' ', 't', 'h', 'e', ' ', 'h', 'i', 'l', 'l', 0});
  expected[3357 + 7] = 0xAF;
  EXPECT_TRUE(AcceptChannel(*image, editor).record_changed);
  EXPECT_EQ(DifferingOffsets(expected, *image), std::vector<std::size_t>{});
}

TEST(ChannelEditorOk, ClearsTheFlagsThatAreOff) {
  auto image = ImageWithChannel7();
  (*image)[3357 + 7] = 0xFD;
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  editor.skip = editor.masked = editor.option = false;
  AcceptChannel(*image, editor);
  EXPECT_EQ((*image)[3357 + 7], 0xF3);
}

TEST(ChannelEditorOk, MakesAnUnprogrammedChannelProgrammedAndShown) {
  auto image = ImageWithChannel7();
  EXPECT_TRUE(AcceptReceive(*image, 8, "145.5").record_changed);
  EXPECT_EQ((*image)[3357 + 8], 0x03);
}

TEST(ChannelEditorOk, MakesAProgrammedChannelProgrammedAgainThoughNothingElseChanged) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  (*image)[3357 + 7] = 0x02;
  EXPECT_FALSE(AcceptChannel(*image, editor).record_changed);
  EXPECT_EQ((*image)[3357 + 7], 0x03);
}

TEST(ChannelEditorOk, TakesAMaskedChannelOutOfItsGroups) {
  auto image = ImageWithChannel7();
  PutGroups(*image, {{3, 6, 9}, {}, {6}, {9}, {}});
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  editor.masked = true;
  AcceptChannel(*image, editor);
  EXPECT_EQ(GroupsOf(*image), (Groups{{3, 9}, {}, {}, {9}, {}}));
  EXPECT_EQ((*image)[3104], 255);
  EXPECT_EQ((*image)[3357 + 7], 0x01);
}

TEST(ChannelEditorOk, LeavesTheGroupsOfAShownChannelAlone) {
  auto image = ImageWithChannel7();
  PutGroups(*image, {{3, 6, 9}, {}, {6}, {9}, {}});
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  AcceptChannel(*image, editor);
  EXPECT_EQ(GroupsOf(*image), (Groups{{3, 6, 9}, {}, {6}, {9}, {}}));
}

TEST(ChannelEditorOk, LeavesTheNameTableEntryOfABlankNameEmpty) {
  auto image = ImageWithChannel7();
  for (const char* name : {"", "   ", "        "}) {
    ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
    editor.choices.name = name;
    AcceptChannel(*image, editor);
    EXPECT_EQ(BytesAt(*image, RecordPlace(7) + 6, 8), Bytes(8, ' '));
    EXPECT_EQ((*image)[11202 + 60], 0);
    EXPECT_EQ((*image)[11202 + 69], 'z');
  }
}

TEST(ChannelEditorOk, StoresANameOfAllEightCharacters) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  editor.choices.name = " ABCDEF\xFE";
  AcceptChannel(*image, editor);
  EXPECT_EQ(BytesAt(*image, 11202 + 60, 10),
            (Bytes{' ', 'A', 'B', 'C', 'D', 'E', 'F', 0xFE, 0, 'z'}));
}

TEST(ChannelEditorOk, StoresACommentOnlyWhenItChanged) {
  auto image = ImageWithChannel7();
  const std::size_t place = 13602 + 32 * 6;
  PutBytes(*image, place, Bytes(32, 'c'));  // without an end
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  EXPECT_EQ(editor.comment.size(), 32U);
  AcceptChannel(*image, editor);
  EXPECT_EQ(BytesAt(*image, place, 32), Bytes(32, 'c'));
  editor.comment = std::string(31, 'd') + "e";
  AcceptChannel(*image, editor);
  EXPECT_EQ(BytesAt(*image, place, 31), Bytes(31, 'd'));
  EXPECT_EQ((*image)[place + 31], 0);
  EXPECT_EQ((*image)[place + 32], 0);
  editor.comment = "";
  AcceptChannel(*image, editor);
  EXPECT_EQ(BytesAt(*image, place, 32), Bytes(32, 0));
}

TEST(ChannelEditorOk, OfASpecialSlotWritesTheRecordAlone) {
  for (const int n : {-6, -16, -26}) {
    auto image = MakePatternImage();
    MakeWide(*image);
    const std::size_t place = RecordPlace(n);
    PutBytes(*image, place, Simplex());
    const CloneImage before = *image;
    ChannelEditor editor = *OpenChannelEditor(*image, n, test_region);
    editor.receive = "146";
    editor.comment = "none";
    editor.skip = editor.masked = editor.option = true;
    EXPECT_TRUE(AcceptChannel(*image, editor).record_changed);
    Offsets allowed;
    AddRange(allowed, place, 22);
    EXPECT_EQ(Unexpected(before, *image, allowed), std::vector<std::size_t>{}) << n;
    EXPECT_EQ(BytesAt(*image, place + 2, 3), (Bytes{0x14, 0x60, 0x00}));
  }
}

TEST(ChannelEditorOk, DoesNotMarkAnUntouchedChannelAsChanged) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  const CloneImage before = *image;
  EXPECT_FALSE(AcceptChannel(*image, editor).record_changed);
  EXPECT_EQ(*image, before);
}

TEST(ChannelEditorOk, KeepsAnUntouchedOffsetWhoseTextReadsAsAnother) {
  auto image = ImageWithChannel7();
  PutBytes(*image, RecordPlace(7) + 14, {0x00, 0x10, 0x50});
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  EXPECT_EQ(editor.offset, "1.500 MHz");
  EXPECT_FALSE(AcceptChannel(*image, editor).record_changed);
  EXPECT_EQ(BytesAt(*image, RecordPlace(7) + 14, 3), (Bytes{0x00, 0x10, 0x50}));
}

TEST(ChannelEditorOk, KeepsUntouchedCodesWithoutAMeaning) {
  auto image = ImageWithChannel7();
  Bytes record = Simplex();
  record[0] = 0xC0;  // no known step: off step
  record[1] = 9;
  record[5] = 0xFF;
  record[17] = 0xF4;
  record[18] = 39;
  record[19] = 104;
  PutChannel(*image, 7, record);
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  EXPECT_EQ(editor.choices.tone_mode, std::nullopt);
  EXPECT_EQ(editor.choices.tone_index, std::nullopt);
  EXPECT_EQ(editor.choices.dcs_index, std::nullopt);
  EXPECT_EQ(editor.choices.mode, std::nullopt);
  EXPECT_EQ(StepPosition(editor), std::nullopt);
  EXPECT_FALSE(AcceptChannel(*image, editor).record_changed);
  EXPECT_EQ(BytesAt(*image, RecordPlace(7), 22), record);
  editor.choices.tone_mode = ToneMode::kDcs;
  editor.choices.mode = Mode::kAm;
  editor.choices.step = Step::kKhz25;
  editor.choices.dcs_index = 103;
  editor.choices.tone_index = 38;
  EXPECT_TRUE(AcceptChannel(*image, editor).record_changed);
  EXPECT_EQ(BytesAt(*image, RecordPlace(7), 2), (Bytes{0x80, 5}));
  EXPECT_EQ((*image)[RecordPlace(7) + 5], 0xFD);
  EXPECT_EQ(BytesAt(*image, RecordPlace(7) + 17, 3), (Bytes{0x34, 38, 103}));
}

TEST(ChannelTurn, AcceptsTheChannelAndShowsTheNext) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  editor.receive = "146.5";
  const ChannelTurn turn = TurnToNext(*image, editor);
  EXPECT_FALSE(turn.beep);
  EXPECT_TRUE(turn.end.record_changed);
  EXPECT_EQ(editor.n, 8);
  EXPECT_EQ(editor.receive, "");
  EXPECT_FALSE(TurnToPrevious(*image, editor).beep);
  EXPECT_EQ(editor.n, 7);
  EXPECT_EQ(editor.receive, "146.5000");
}

TEST(ChannelTurn, GoesBackToTheFirstChannel) {
  auto image = ImageWithChannel7();
  PutChannel(*image, 1, Simplex());
  ChannelEditor editor = *OpenChannelEditor(*image, 2, test_region);
  EXPECT_FALSE(TurnToPrevious(*image, editor).beep);
  EXPECT_EQ(editor.n, 1);
  EXPECT_EQ(editor.receive, "145.0000");
}

TEST(ChannelTurn, StaysOnARefusedChannel) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, 7, test_region);
  editor.receive = "20";
  const ChannelTurn turn = TurnToNext(*image, editor);
  EXPECT_FALSE(turn.beep);
  EXPECT_EQ(turn.end.refused, EditorField::kReceive);
  EXPECT_EQ(editor.n, 7);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{kReceiveText});
}

TEST(ChannelTurn, OnlyBeepsInFrontOfTheFirstAndBehindTheLastChannel) {
  auto image = ImageWithChannel7();
  ChannelEditor first = *OpenChannelEditor(*image, 1, test_region);
  first.receive = "20";  // would be refused
  EXPECT_TRUE(TurnToPrevious(*image, first).beep);
  EXPECT_EQ(first.n, 1);
  ChannelEditor last = *OpenChannelEditor(*image, 240, test_region);
  last.receive = "145";
  const CloneImage before = *image;
  EXPECT_TRUE(TurnToNext(*image, last).beep);
  EXPECT_EQ(last.n, 240);
  EXPECT_EQ(*image, before);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(ChannelTurn, IsForMemoryChannelsOnly) {
  auto image = ImageWithChannel7();
  ChannelEditor editor = *OpenChannelEditor(*image, -6, test_region);
  EXPECT_TRUE(TurnToNext(*image, editor).beep);
  EXPECT_TRUE(TurnToPrevious(*image, editor).beep);
  EXPECT_EQ(editor.n, -6);
}

}  // namespace
}  // namespace qz7
