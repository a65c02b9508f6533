#include "core/editors/list_rows.h"

#include <gtest/gtest.h>

#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;
using Selection = std::vector<int>;

RowsChange Changed(int first_row, int row_count, const Selection& selection) {
  return {.first_row = first_row, .row_count = row_count, .selection = selection};
}
const RowsChange kBeep{.beep = true, .selection = {}};

// The marks of the channels from `first` on: the number that each had at the start.
Selection Marks(const CloneImage& image, int first, int count) {
  Selection marks;
  for (int n = first; n < first + count; ++n) {
    marks.push_back(IsProgrammed(image, n) ? ChannelOf(image, n).record[2] : 0);
  }
  return marks;
}

void ExpectBeepAndNothingElse(RowsChange (*command)(CloneImage&, Rows), const Selection& rows) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  EXPECT_EQ(command(*image, rows), kBeep);
  EXPECT_EQ(*image, before);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(SeveralRows, MoveUpTogetherAndStaySelected) {
  auto image = MakeMarkedImage();
  PutGroups(*image, {{2, 3, 1, 5}, {}, {}, {}, {}});
  EXPECT_EQ(MoveRowsUp(*image, Selection{2, 3, 5}), Changed(1, 5, {1, 2, 4}));
  EXPECT_EQ(Marks(*image, 1, 7), (Selection{1, 3, 4, 2, 6, 5, 7}));
  EXPECT_EQ(GroupsOf(*image)[0], (Selection{1, 2, 3, 4}));
}

TEST(SeveralRows, MoveDownTogetherAndStaySelected) {
  auto image = MakeMarkedImage();
  EXPECT_EQ(MoveRowsDown(*image, Selection{2, 3, 5}), Changed(2, 5, {3, 4, 6}));
  EXPECT_EQ(Marks(*image, 1, 8), (Selection{1, 2, 5, 3, 4, 7, 6, 8}));
}

TEST(SeveralRows, AreAllClearedInPlace) {
  auto image = MakeMarkedImage();
  EXPECT_EQ(ClearRows(*image, Selection{2, 3, 5}), Changed(2, 4, {2, 3, 5}));
  EXPECT_EQ(Marks(*image, 1, 7), (Selection{1, 2, 0, 0, 5, 0, 7}));
}

TEST(SeveralRows, AreAllDeletedAndTheFirstPlaceStaysSelected) {
  auto image = MakeMarkedImage();
  EXPECT_EQ(DeleteRows(*image, Selection{2, 3, 5}), Changed(2, 238, {2}));
  EXPECT_EQ(Marks(*image, 1, 5), (Selection{1, 2, 5, 7, 8}));
  EXPECT_EQ(Marks(*image, 216, 6), (Selection{219, 220, 0, 0, 0, 221}));
}

TEST(SeveralRows, GetOneEmptyChannelBeforeTheFirst) {
  auto image = MakeMarkedImage();
  test_seams.answers = {Answer::kYes};
  EXPECT_EQ(InsertBeforeRows(*image, Selection{2, 3, 5}), Changed(2, 238, {2}));
  EXPECT_EQ(Marks(*image, 1, 6), (Selection{1, 2, 0, 3, 4, 5}));
  EXPECT_EQ(test_seams.messages.size(), 1U);
}

TEST(SeveralRows, StayWhereTheQuestionIsAnsweredWithNo) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  test_seams.answers = {Answer::kNo};
  EXPECT_EQ(InsertBeforeRows(*image, Selection{2}), RowsChange{});
  EXPECT_EQ(*image, before);
}

TEST(SeveralRows, OnlyBeepWhereOneDoesNotAllowTheCommand) {
  ExpectBeepAndNothingElse(MoveRowsUp, {0, 5});
  ExpectBeepAndNothingElse(MoveRowsDown, {5, 239});
  ExpectBeepAndNothingElse(ClearRows, {5, 239});
  ExpectBeepAndNothingElse(DeleteRows, {5, 220});
  ExpectBeepAndNothingElse(InsertBeforeRows, {220, 221});
}

TEST(SeveralRows, OnlyBeepWhereThereAreNone) {
  for (auto* command : {MoveRowsUp, MoveRowsDown, ClearRows, DeleteRows, InsertBeforeRows}) {
    ExpectBeepAndNothingElse(command, {});
  }
}

// Whatever rows are chosen, the result is that of the single commands, one after the other.
TEST(SeveralRows, AreAsManySingleCommands) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    PutGroups(*image, {Numbers(dice.Below(200), 24), Numbers(dice.Below(200), 9), {}, {3}, {}});
    CloneImage single = *image;
    std::set<int> rows;
    for (int i = dice.Below(12); i >= 0; --i) {
      rows.insert(1 + dice.Below(219));
    }
    const Selection selected(rows.begin(), rows.end());
    switch (dice.Below(4)) {
      case 0:
        MoveRowsUp(*image, selected);
        std::for_each(rows.begin(), rows.end(), [&](int row) { MoveRowUp(single, row); });
        break;
      case 1:
        MoveRowsDown(*image, selected);
        std::for_each(rows.rbegin(), rows.rend(), [&](int row) { MoveRowDown(single, row); });
        break;
      case 2:
        ClearRows(*image, selected);
        std::for_each(rows.begin(), rows.end(), [&](int row) { ClearRow(single, row); });
        break;
      default:
        DeleteRows(*image, selected);
        std::for_each(rows.rbegin(), rows.rend(), [&](int row) { DeleteRow(single, row); });
    }
    EXPECT_EQ(DifferingOffsets(single, *image), std::vector<std::size_t>{});
  }
}

TEST(CopiedChannels, HoldEverythingThatTravels) {
  auto image = MakeMarkedImage();
  const std::vector<ChannelCopy> copies = CopyRows(*image, Selection{4, 8, 240});
  ASSERT_EQ(copies.size(), 2U);
  auto other = MakeMarkedImage();
  PlaceCopy(*other, 1, copies[0]);
  PlaceCopy(*other, 2, copies[1]);
  EXPECT_EQ(ChannelOf(*other, 1), MarkedChannel(5));
  EXPECT_EQ(ChannelOf(*other, 2), MarkedChannel(9));
}

TEST(CopiedChannels, AreWrittenNowhereForANumberThatIsNoMemoryChannel) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  for (const int n : {0, -1, -31, 241, 1000}) {
    EXPECT_EQ(CopyOfChannel(*image, n), std::nullopt) << n;
    PlaceCopy(*image, n, ChannelCopy{});
    EXPECT_EQ(*image, before) << n;
  }
}

TEST(CopiedChannels, ComeBackFromTheirBytes) {
  auto image = MakeMarkedImage();
  const std::vector<ChannelCopy> copies = CopyRows(*image, Selection{4, 8});
  const std::string bytes = BytesOfCopies(copies);
  ASSERT_EQ(bytes.size(), 2U + 2U * 65U);
  EXPECT_EQ(bytes.substr(0, 3), std::string("\x02\x00\x05", 3));
  EXPECT_EQ(bytes[2 + 22], '\x53');  // the flags
  EXPECT_EQ(bytes.back(), '\x09');   // the comment's end
  EXPECT_EQ(CopiesOfBytes(bytes), copies);
  EXPECT_EQ(CopiesOfBytes(bytes + "more"), copies);
}

TEST(CopiedChannels, AreNoneWhereTheBytesDoNotHoldThem) {
  auto image = MakeMarkedImage();
  const std::string bytes = BytesOfCopies(CopyRows(*image, Selection{4, 8}));
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_EQ(CopiesOfBytes(bytes.substr(0, size)), std::nullopt) << size;
  }
  EXPECT_EQ(CopiesOfBytes("\xF1" + std::string(100'000, '\0')), std::nullopt);
}

TEST(Pasting, PutsTheChannelsFromTheFirstRowOn) {
  auto image = MakeMarkedImage();
  for (const int n : {11, 12, 13}) {
    ClearChannel(*image, n);
  }
  const std::vector<ChannelCopy> copies = CopyRows(*image, Selection{4, 8, 19});
  EXPECT_EQ(PasteRows(*image, Selection{10, 30}, copies), Changed(10, 3, {10, 11, 12}));
  EXPECT_EQ(Marks(*image, 10, 5), (Selection{10, 5, 9, 20, 14}));
  EXPECT_EQ(ChannelOf(*image, 12), MarkedChannel(9));
  EXPECT_EQ(ChannelOf(*image, 9), MarkedChannel(9));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(Pasting, AsksOnceBeforeProgrammedChannelsAreReplaced) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  const std::vector<ChannelCopy> copies = CopyRows(*image, Selection{4, 8, 19});
  test_seams.answers = {Answer::kNo, Answer::kYes, Answer::kYes};
  EXPECT_EQ(PasteRows(*image, Selection{10}, copies), RowsChange{});
  EXPECT_EQ(*image, before);
  EXPECT_EQ(PasteRows(*image, Selection{10}, copies).row_count, 3);
  ClearChannel(*image, 12);
  ClearChannel(*image, 13);
  PasteRows(*image, Selection{10}, copies);
  EXPECT_EQ(ShownTexts(), (std::vector<std::string>{
                              "3 memory channels are active and will be replaced\nProceed?",
                              "3 memory channels are active and will be replaced\nProceed?",
                              "Memory channel 11 is active and will be replaced\nProceed?"}));
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kYesNo);
}

TEST(Pasting, TakesWhatIsReplacedOutOfItsGroupsButNotAChannelPastedOntoItself) {
  auto image = MakeMarkedImage();
  PutGroups(*image, {{10, 4, 5}, {5}, {}, {}, {}});
  const std::vector<ChannelCopy> copies = CopyRows(*image, Selection{4, 8});
  test_seams.answers = {Answer::kYes};
  PasteRows(*image, Selection{4}, copies);
  EXPECT_EQ(GroupsOf(*image), (Groups{{10, 4}, {}, {}, {}, {}}));
  EXPECT_EQ(Marks(*image, 5, 2), (Selection{5, 9}));
}

TEST(Pasting, AnEmptyChannelEmptiesWhatItReplaces) {
  auto image = MakeMarkedImage();
  ClearChannel(*image, 9);
  test_seams.answers = {Answer::kYes};
  PasteRows(*image, Selection{10}, CopyRows(*image, Selection{8}));
  EXPECT_FALSE(IsProgrammed(*image, 11));
}

TEST(Pasting, IsRefusedWhereTheChannelsReachBehindTheLast) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  const std::vector<ChannelCopy> copies = CopyRows(*image, Selection{4, 8, 19});
  EXPECT_EQ(PasteRows(*image, Selection{238}, copies), RowsChange{});
  EXPECT_EQ(*image, before);
  EXPECT_EQ(ShownTexts(),
            std::vector<std::string>{"The 3 channels reach behind the last memory channel."});
  test_seams.answers = {Answer::kYes};
  EXPECT_EQ(PasteRows(*image, Selection{237}, copies), Changed(237, 3, {237, 238, 239}));
}

TEST(Pasting, BeepsWithoutARowOrAChannel) {
  auto image = MakeMarkedImage();
  const std::vector<ChannelCopy> copies = CopyRows(*image, Selection{4});
  EXPECT_EQ(PasteRows(*image, {}, copies), kBeep);
  EXPECT_EQ(PasteRows(*image, Selection{3}, {}), kBeep);
  (*image)[57] = 0xFF;  // a count that invents channels
  EXPECT_EQ(PasteRows(*image, Selection{240}, copies), kBeep);
}

}  // namespace
}  // namespace qz7
