#include "core/editors/groups.h"

#include <gtest/gtest.h>

#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

// All channels on 145.5 MHz with the name "ABC", programmed and shown; no groups, and nothing
// behind them.
std::unique_ptr<CloneImage> ImageOfChannels() {
  auto image = MakeImage();
  for (int n = 1; n <= 240; ++n) {
    PutChannel(*image, n, {0,   0,   0x14, 0x55, 0x00, 0, 'A', 'B', 'C', ' ', ' ',
                           ' ', ' ', ' ',  0,    6,    0, 12,  12,  0,   0,   0});
  }
  PutGroups(*image, NoGroups());
  (*image)[3350] = (*image)[3351] = 255;
  (*image)[10487] = 0x77;
  return image;
}

std::string Row(const std::string& label) { return label + "  145.5000 ABC     "; }

// The group editor, with its two images.
struct Window {
  std::unique_ptr<CloneImage> image = ImageOfChannels();
  std::unique_ptr<CloneImage> working_copy = MakePatternImage();
  GroupEditor editor;
};

// Opens the editor on a fresh copy of the window's image.
GroupEditor& OpenEditor(Window& window, int g) {
  *window.working_copy = *window.image;
  window.editor = OpenGroupEditor(*window.working_copy, g, test_region);
  return window.editor;
}

Window Open(const Groups& groups, int g = 0) {
  Window window;
  PutGroups(*window.image, groups);
  OpenEditor(window, g);
  return window;
}

void AddAndExpect(Window& window, int row, GroupEdit outcome) {
  EXPECT_EQ(AddToGroupList(*window.working_copy, window.editor, row), outcome) << row;
}

TEST(GroupNames, CountFromOne) {
  EXPECT_EQ(std::string(kGroupNames[0]), "Group 1");
  EXPECT_EQ(std::string(kGroupNames[4]), "Group 5");
  EXPECT_EQ(std::size(kGroupNames), 5U);
}

TEST(GroupRow, HoldsLabelFrequencyAndName) {
  auto image = ImageOfChannels();
  EXPECT_EQ(GroupRow(*image, 7, test_region), " 7   145.5000 ABC     ");
  EXPECT_EQ(GroupRow(*image, 100, test_region), "100  145.5000 ABC     ");
  EXPECT_EQ(GroupRow(*image, 221, test_region), "L1   145.5000 ABC     ");
  EXPECT_EQ(GroupRow(*image, 240, test_region), "U10  145.5000 ABC     ");
  PutBytes(*image, RecordPlace(7) + 2, {0x00, 0x50, 0x12});
  PutBytes(*image, RecordPlace(7) + 6, {' ', '1', '2', '3', '4', '5', '6', 0xFE});
  EXPECT_EQ(GroupRow(*image, 7, test_region), " 7     5.0125  123456\xFE");
}

TEST(GroupRow, RestoresTheHalfKilohertz) {
  auto image = ImageOfChannels();
  PutBytes(*image, RecordPlace(7) + 2, {0x14, 0x50, 0x37});
  EXPECT_EQ(GroupRow(*image, 7, test_region), " 7   145.0375 ABC     ");
}

TEST(GroupRow, OfAnAbsentChannelIsEmpty) {
  EXPECT_EQ(GroupRow(*ImageOfChannels(), 241, test_region), "");
  EXPECT_EQ(GroupRow(*ImageOfChannels(), 256, test_region), "");
}

TEST(GroupChannelRow, ShowsTheLabelAloneUnlessProgrammedAndShown) {
  auto image = ImageOfChannels();
  EXPECT_EQ(GroupChannelRow(*image, 7, test_region), Row(" 7 "));
  (*image)[3357 + 7] = 0x01;
  EXPECT_EQ(GroupChannelRow(*image, 7, test_region), " 7");
  (*image)[3357 + 7] = 0x02;
  EXPECT_EQ(GroupChannelRow(*image, 7, test_region), " 7");
  (*image)[3357 + 240] = 0x00;
  EXPECT_EQ(GroupChannelRow(*image, 240, test_region), "U10");
}

TEST(GroupEditor, OpensOnACopyOfTheImage) {
  const Window window = Open({{6, 99}, {}, {}, {}, {}});
  EXPECT_EQ(*window.working_copy, *window.image);
  EXPECT_EQ(window.editor.group, 0);
  EXPECT_FALSE(window.editor.changed);
  EXPECT_EQ(window.editor.rows, (std::vector<std::string>{Row(" 7 "), Row("100")}));
}

TEST(GroupEditor, ShowsTheMembersOfAnyGroup) {
  EXPECT_EQ(Open({{6}, {}, {8}, {}, {}}, 2).editor.rows, std::vector<std::string>{Row(" 9 ")});
  EXPECT_EQ(Open({{6}, {}, {8}, {}, {9}}, 4).editor.rows, std::vector<std::string>{Row("10 ")});
  EXPECT_EQ(Open({{6}, {}, {}, {}, {}}, 1).editor.rows, std::vector<std::string>{});
}

TEST(GroupEditor, ShowsMembersWhateverTheirFlags) {
  Window window;
  PutGroups(*window.image, {{6}, {}, {}, {}, {}});
  (*window.image)[3357 + 7] = 0;
  EXPECT_EQ(OpenEditor(window, 0).rows, std::vector<std::string>{Row(" 7 ")});
}

TEST(GroupEditor, ShowsTheNextGroupsFirstMemberAsAnExtraLastRow) {
  EXPECT_EQ(Open({{0}, {6, 7}, {}, {}, {}}).editor.rows,
            (std::vector<std::string>{Row(" 1 "), Row(" 7 ")}));
  EXPECT_EQ(Open({{}, {6, 7}, {}, {}, {}}).editor.rows, std::vector<std::string>{Row(" 7 ")});
  const Window full = Open({Numbers(10, 24), {6}, {}, {}, {}});
  EXPECT_EQ(full.editor.rows.size(), 25U);
  EXPECT_EQ(full.editor.rows.back(), Row(" 7 "));
}

TEST(GroupEditor, ReadsTheTwoBytesBehindTheLastGroup) {
  Window window;
  (*window.image)[3350] = 0;
  (*window.image)[3351] = 6;
  const GroupEditor& editor = OpenEditor(window, 4);
  EXPECT_EQ(editor.rows, std::vector<std::string>{Row(" 7 ")});
}

TEST(GroupEditor, SkipsFreeEntriesBetweenMembersAndAbsentChannels) {
  Window window;
  PutBytes(*window.image, 3110, {0, 6, 255, 7, 0, 255, 0, 240, 9, 8});
  EXPECT_EQ(OpenEditor(window, 0).rows, (std::vector<std::string>{Row(" 7 "), Row(" 9 ")}));
}

TEST(GroupEditorOk, WritesBack25RowsWithoutAChange) {
  Window window = Open({Numbers(10, 24), {6, 5}, {}, {}, {}});
  CloneImage expected = *window.image;
  expected[10487] = 0;
  AcceptGroups(*window.working_copy, window.editor);
  EXPECT_EQ(DifferingOffsets(expected, *window.working_copy), std::vector<std::size_t>{});
}

TEST(GroupEditorOk, TakesTheNextGroupsFirstMemberInWhereThereIsRoomWanted) {
  Window window = Open({{0, 1}, {6, 5}, {}, {}, {}});
  AcceptGroups(*window.working_copy, window.editor);
  EXPECT_EQ(GroupsOf(*window.working_copy), (Groups{{0, 1, 6}, {6, 5}, {}, {}, {}}));
}

TEST(GroupEditorOk, WritesThe25thRowOfTheLastGroupBehindTheTable) {
  Window window;
  PutGroups(*window.image, {{}, {}, {}, {}, Numbers(10, 24)});
  (*window.image)[3350] = 0x33;
  (*window.image)[3351] = 6;
  OpenEditor(window, 4);
  AcceptGroups(*window.working_copy, window.editor);
  CloneImage expected = *window.image;
  expected[3350] = 0;
  expected[10487] = 4;
  EXPECT_EQ(DifferingOffsets(expected, *window.working_copy), std::vector<std::size_t>{});
}

TEST(GroupEditorOk, StoresTheRowsFromTheFirstEntryOn) {
  Window window = Open({{6, 99, 8}, {}, {}, {}, {}});
  RemoveFromGroupList(window.editor, 1);
  AddAndExpect(window, 239, GroupEdit::kDone);
  AddAndExpect(window, 11, GroupEdit::kDone);
  AcceptGroups(*window.working_copy, window.editor);
  CloneImage expected = *window.image;
  PutBytes(expected, 3110, {0, 6, 0, 8, 0, 255, 0, 11, 255, 255});
  expected[10487] = 0;
  EXPECT_EQ(DifferingOffsets(expected, *window.working_copy), std::vector<std::size_t>{});
}

TEST(GroupEditorOk, EmptiesAGroupWithoutRows) {
  Window window = Open({{}, {6}, {}, {}, {}}, 1);
  RemoveFromGroupList(window.editor, 0);
  AcceptGroups(*window.working_copy, window.editor);
  CloneImage expected = *window.image;
  expected[3103] = 255;
  expected[3158] = expected[3159] = 255;
  // The last group stored with members stays.
  EXPECT_EQ(DifferingOffsets(expected, *window.working_copy), std::vector<std::size_t>{});
}

TEST(GroupEditorOk, StoresAPmsChannelAs255Wanted) {
  Window window = Open(NoGroups());
  AddAndExpect(window, 220, GroupEdit::kDone);
  EXPECT_EQ(window.editor.rows, std::vector<std::string>{Row("L1 ")});
  AcceptGroups(*window.working_copy, window.editor);
  EXPECT_EQ(BytesAt(*window.working_copy, 3110, 4), (Bytes{0, 255, 255, 255}));
  EXPECT_EQ((*window.working_copy)[3102], 0);
}

TEST(GroupAdd, BeepsWithoutASelection) {
  Window window = Open(NoGroups());
  EXPECT_EQ(AddToGroupList(*window.working_copy, window.editor, std::nullopt), GroupEdit::kBeep);
  EXPECT_FALSE(window.editor.changed);
}

TEST(GroupAdd, BeepsForAMaskedChannelWithoutSettingTheChangedFlag) {
  Window window = Open(NoGroups());
  (*window.working_copy)[3357 + 7] = 0x01;
  AddAndExpect(window, 6, GroupEdit::kBeep);
  EXPECT_FALSE(window.editor.changed);
  EXPECT_TRUE(window.editor.rows.empty());
}

TEST(GroupAdd, TakesTwentyFourChannelsAndNoMore) {
  Window window = Open(NoGroups());
  for (int row = 0; row < 24; ++row) {
    AddAndExpect(window, row + 50, GroupEdit::kDone);
  }
  AddAndExpect(window, 100, GroupEdit::kBeep);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(window.editor.rows.size(), 24U);
  AcceptGroups(*window.working_copy, window.editor);
  EXPECT_EQ(GroupsOf(*window.working_copy)[0], Numbers(50, 24));
}

TEST(GroupAdd, SetsTheChangedFlagEvenWhereTheGroupIsFull) {
  Window window = Open({Numbers(10, 24), {}, {}, {}, {}});
  AddAndExpect(window, 100, GroupEdit::kBeep);
  EXPECT_TRUE(window.editor.changed);
}

TEST(GroupAdd, RefusesAChannelThatIsInTheGroup) {
  Window window = Open({{6, 99}, {}, {}, {}, {}});
  AddAndExpect(window, 99, GroupEdit::kBeepAndTell);
  EXPECT_EQ(window.editor.rows.size(), 2U);
  EXPECT_TRUE(window.editor.changed);
  EXPECT_TRUE(test_seams.messages.empty()) << "the window beeps first";
}

TEST(GroupAdd, SaysNothingAboutAMemberOfAFullGroup) {
  Window window = Open({Numbers(10, 24), {}, {}, {}, {}});
  AddAndExpect(window, 10, GroupEdit::kBeep);
}

TEST(GroupAdd, DoesNotKnowAPmsChannelAgain) {
  Window window = Open(NoGroups());
  AddAndExpect(window, 220, GroupEdit::kDone);
  AddAndExpect(window, 220, GroupEdit::kDone);
  EXPECT_EQ(window.editor.rows.size(), 2U);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(GroupAdd, LeavesOutAnUnprogrammedChannelButSetsTheChangedFlag) {
  Window window = Open(NoGroups());
  (*window.working_copy)[3357 + 7] = 0x02;
  AddAndExpect(window, 6, GroupEdit::kDone);
  EXPECT_TRUE(window.editor.rows.empty());
  EXPECT_TRUE(window.editor.changed);
  EXPECT_FALSE(CancelGroups(*window.image, *window.image, window.editor));
  EXPECT_EQ(test_seams.messages.size(), 1U);
}

TEST(GroupAdd, BeepsForAChannelThatAHostileCountInvents) {
  Window window = Open(NoGroups());
  (*window.working_copy)[57] = 0xFF;
  AddAndExpect(window, 240, GroupEdit::kBeep);
  EXPECT_FALSE(window.editor.changed);
}

TEST(GroupRemove, DeletesTheRow) {
  Window window = Open({{6, 99}, {}, {}, {}, {}});
  EXPECT_EQ(RemoveFromGroupList(window.editor, 0), GroupEdit::kDone);
  EXPECT_EQ(window.editor.rows, std::vector<std::string>{Row("100")});
  EXPECT_TRUE(window.editor.changed);
}

TEST(GroupRemove, BeepsWithoutASelection) {
  Window window = Open({{6, 99}, {}, {}, {}, {}});
  EXPECT_EQ(RemoveFromGroupList(window.editor, std::nullopt), GroupEdit::kBeep);
  EXPECT_EQ(RemoveFromGroupList(window.editor, 2), GroupEdit::kBeep);
  EXPECT_FALSE(window.editor.changed);
  EXPECT_EQ(window.editor.rows.size(), 2U);
}

TEST(GroupChange, StoresTheListAndShowsTheOther) {
  Window window = Open({{6}, {}, {8}, {}, {}});
  AddAndExpect(window, 4, GroupEdit::kDone);
  ChangeGroup(*window.working_copy, window.editor, 2);
  EXPECT_EQ(window.editor.group, 2);
  EXPECT_EQ(window.editor.rows, std::vector<std::string>{Row(" 9 ")});
  EXPECT_TRUE(window.editor.changed);
  EXPECT_EQ(GroupsOf(*window.working_copy), (Groups{{6, 4}, {}, {8}, {}, {}}));
  EXPECT_EQ((*window.working_copy)[10487], 2);
}

TEST(GroupChange, KeepsTheLastGroupWhereTheListIsEmpty) {
  Window window = Open(NoGroups());
  ChangeGroup(*window.working_copy, window.editor, 3);
  EXPECT_EQ((*window.working_copy)[10487], 0x77);
  EXPECT_EQ((*window.working_copy)[3102], 255);
}

TEST(GroupChange, ToTheSameGroupDoesNothing) {
  Window window = Open({{6}, {7}, {}, {}, {}});
  RemoveFromGroupList(window.editor, 0);
  ChangeGroup(*window.working_copy, window.editor, 0);
  EXPECT_EQ(*window.working_copy, *window.image);
  EXPECT_EQ(window.editor.rows, std::vector<std::string>{Row(" 8 ")});
}

TEST(GroupCancel, ClosesWithoutAQuestionWhenNothingChanged) {
  const Window window = Open({{6}, {}, {}, {}, {}});
  EXPECT_TRUE(CancelGroups(*window.image, *window.working_copy, window.editor));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(GroupCancel, AsksAfterAnAddOrRemove) {
  Window window = Open({{6}, {}, {}, {}, {}});
  RemoveFromGroupList(window.editor, 0);
  test_seams.answers = {Answer::kNo, Answer::kYes};
  EXPECT_FALSE(CancelGroups(*window.image, *window.working_copy, window.editor));
  EXPECT_TRUE(CancelGroups(*window.image, *window.working_copy, window.editor));
  ASSERT_EQ(test_seams.messages.size(), 2U);
  EXPECT_EQ(test_seams.messages[0].text, "Cancel all changes to memory channels?");
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kYesNo);
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kQuestion);
}

TEST(GroupCancel, AsksWhereAChangeOfGroupRewroteTheCopy) {
  Window window = Open({{6}, {}, {}, {}, {}});
  ChangeGroup(*window.working_copy, window.editor, 1);  // the last group becomes 1
  EXPECT_FALSE(window.editor.changed);
  EXPECT_FALSE(CancelGroups(*window.image, *window.working_copy, window.editor));
  EXPECT_EQ(test_seams.messages.size(), 1U);
}

// The bytes that looking through the groups and OK may write: states, entries, the two bytes behind
// the table, and the last group.
TEST(GroupEditorProperty, TouchesNothingButTheGroups) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    const auto working_copy = std::make_unique<CloneImage>(*image);
    GroupEditor editor = OpenGroupEditor(*working_copy, dice.Below(5), test_region);
    for (int i = 0; i < 40; ++i) {
      switch (dice.Below(3)) {
        case 0:
          AddToGroupList(*working_copy, editor, dice.Below(240));
          break;
        case 1:
          RemoveFromGroupList(editor, dice.Below(25));
          break;
        default:
          ChangeGroup(*working_copy, editor, dice.Below(5));
      }
      ASSERT_LE(editor.rows.size(), 25U);
    }
    AcceptGroups(*working_copy, editor);
    Offsets groups;
    AddRange(groups, 3102, 5);
    AddRange(groups, 3110, 242);
    AddRange(groups, 10487, 1);
    EXPECT_EQ(Unexpected(*image, *working_copy, groups), std::vector<std::size_t>{});
  }
}

// A group whose next group is empty comes back as it was, but for the last group's number.
TEST(GroupEditorProperty, OpenAndOkKeepsAWellFormedGroup) {
  for (unsigned seed = 1; seed <= 100; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    const auto g = static_cast<std::size_t>(dice.Below(5));
    Groups groups = NoGroups();
    groups[g] = Numbers(dice.Below(150), dice.Below(25));
    Window window = Open(groups, static_cast<int>(g));
    AcceptGroups(*window.working_copy, window.editor);
    CloneImage expected = *window.image;
    if (!groups[g].empty()) {
      expected[10487] = static_cast<std::uint8_t>(g);
    }
    EXPECT_EQ(DifferingOffsets(expected, *window.working_copy), std::vector<std::size_t>{});
  }
}

}  // namespace
}  // namespace qz7
