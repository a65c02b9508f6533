#include "core/editors/memory_list.h"

#include <gtest/gtest.h>

#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

constexpr const char* kWillBeDeleted = "Memory channel 220 is active and will be deleted\nProceed?";

void ExpectBeep(const ListChange& change) {
  EXPECT_TRUE(change.beep);
  EXPECT_EQ(change.row_count, 0);
  EXPECT_EQ(change.selection, std::nullopt);
}

void ExpectRows(const ListChange& change, int first_row, int row_count, int selection) {
  EXPECT_FALSE(change.beep);
  EXPECT_EQ(change.first_row, first_row);
  EXPECT_EQ(change.row_count, row_count);
  EXPECT_EQ(change.selection, selection);
}

ChannelBytes Cleared(ChannelBytes channel) {
  channel.flags &= 0xF0;
  channel.name[0] = 0;
  channel.comment[0] = 0;
  return channel;
}

// A new channel 220 so that nothing is asked.
std::unique_ptr<CloneImage> MarkedImageWithRoom() {
  auto image = MakeMarkedImage();
  (*image)[3358 + 219] = 0;
  return image;
}

TEST(SwapChannels, ExchangesEverythingThatTravels) {
  auto image = MakeMarkedImage();
  SwapChannels(*image, 5, 9);
  EXPECT_EQ(ChannelOf(*image, 5), MarkedChannel(9));
  EXPECT_EQ(ChannelOf(*image, 9), MarkedChannel(5));
  EXPECT_EQ(ChannelOf(*image, 6), MarkedChannel(6));
}

TEST(SwapChannels, KeepsEveryPlaceInTheGroups) {
  auto image = MakeMarkedImage();
  PutGroups(*image, {{1, 4, 8}, {8, 4}, {4}, {8}, {2}});
  SwapChannels(*image, 5, 9);
  EXPECT_EQ(GroupsOf(*image), (Groups{{1, 8, 4}, {4, 8}, {8}, {4}, {2}}));
}

TEST(SwapChannels, LeavesAChannelAloneThatIsSwappedWithItself) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  SwapChannels(*image, 5, 5);
  EXPECT_EQ(*image, before);
}

TEST(MoveChannel, CopiesEverythingThatTravels) {
  auto image = MakeMarkedImage();
  MoveChannel(*image, 5, 9);
  EXPECT_EQ(ChannelOf(*image, 5), MarkedChannel(9));
  EXPECT_EQ(ChannelOf(*image, 9), MarkedChannel(9));
}

TEST(MoveChannel, KeepsThePlacesOfTheMovedAndDropsTheOverwritten) {
  auto image = MakeMarkedImage();
  PutGroups(*image, {{1, 4, 8}, {8, 4}, {4}, {8}, {2}});
  MoveChannel(*image, 5, 9);
  EXPECT_EQ(GroupsOf(*image), (Groups{{1, 4}, {4}, {}, {4}, {2}}));
  EXPECT_EQ((*image)[3104], 255);
}

TEST(MoveChannel, OfAChannelOntoItselfKeepsItsGroups) {
  auto image = MakeMarkedImage();
  PutGroups(*image, {{4}, {}, {}, {}, {}});
  const CloneImage before = *image;
  MoveChannel(*image, 5, 5);
  EXPECT_EQ(*image, before);
}

TEST(ClearChannel, ClearsFourFlagsNameCommentAndGroupsButNotTheRecord) {
  auto image = MakeMarkedImage();
  PutGroups(*image, {{1, 4, 8}, {4}, {}, {}, {}});
  (*image)[3358 + 4] = 0xFF;
  CloneImage expected = *image;
  expected[3358 + 4] = 0xF0;
  expected[11202 + 40] = 0;
  expected[13602 + 128] = 0;
  PutGroups(expected, {{1, 8}, {}, {}, {}, {}});
  ClearChannel(*image, 5);
  EXPECT_EQ(DifferingOffsets(expected, *image), std::vector<std::size_t>{});
}

TEST(ChannelOperations, DoNothingForNumbersThatAreNoMemoryChannel) {
  for (const int n : {0, -1, -30, -31, 241, 1000}) {
    auto image = MakeMarkedImage();
    const CloneImage before = *image;
    SwapChannels(*image, n, 5);
    SwapChannels(*image, 5, n);
    MoveChannel(*image, n, 5);
    MoveChannel(*image, 5, n);
    ClearChannel(*image, n);
    EXPECT_EQ(*image, before) << n;
  }
}

TEST(MoveRowUp, SwapsAndTheSelectionFollows) {
  auto image = MakeMarkedImage();
  ExpectRows(MoveRowUp(*image, 7), 6, 2, 6);
  EXPECT_EQ(ChannelOf(*image, 7), MarkedChannel(8));
  EXPECT_EQ(ChannelOf(*image, 8), MarkedChannel(7));
}

TEST(MoveRowUp, BeepsForChannel1) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  ExpectBeep(MoveRowUp(*image, 0));
  EXPECT_EQ(*image, before);
  ExpectRows(MoveRowUp(*image, 1), 0, 2, 0);
}

TEST(MoveRowDown, SwapsAndTheSelectionFollows) {
  auto image = MakeMarkedImage();
  ExpectRows(MoveRowDown(*image, 7), 7, 2, 8);
  EXPECT_EQ(ChannelOf(*image, 9), MarkedChannel(8));
  EXPECT_EQ(ChannelOf(*image, 8), MarkedChannel(9));
}

TEST(MoveRowDown, BeepsForChannel240) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  ExpectBeep(MoveRowDown(*image, 239));
  EXPECT_EQ(*image, before);
  ExpectRows(MoveRowDown(*image, 238), 238, 2, 239);
}

TEST(MoveRowDown, SwapsChannel220WithThePmsChannelL1) {
  auto image = MakeMarkedImage();
  ExpectRows(MoveRowDown(*image, 219), 219, 2, 220);
  EXPECT_EQ(ChannelOf(*image, 221), MarkedChannel(220));
  EXPECT_EQ(ChannelOf(*image, 220), MarkedChannel(221));
}

TEST(ClearRow, ClearsInPlace) {
  auto image = MakeMarkedImage();
  ExpectRows(ClearRow(*image, 4), 4, 1, 4);
  EXPECT_EQ(ChannelOf(*image, 5), Cleared(MarkedChannel(5)));
  EXPECT_EQ(ChannelOf(*image, 6), MarkedChannel(6));
}

TEST(ClearRow, RefusesTheLastChannelAlone) {
  auto image = MakeMarkedImage();
  ExpectBeep(ClearRow(*image, 239));
  EXPECT_EQ(ChannelOf(*image, 240), MarkedChannel(240));
  ExpectRows(ClearRow(*image, 238), 238, 1, 238);
  EXPECT_EQ(ChannelOf(*image, 239), Cleared(MarkedChannel(239)));
}

TEST(ClearRow, IsAllowedForChannel1) {
  auto image = MakeMarkedImage();
  ExpectRows(ClearRow(*image, 0), 0, 1, 0);
  EXPECT_EQ((*image)[3358] & 0x0F, 0);
}

TEST(DeleteRow, ClosesTheGapInFrontOfThePmsChannels) {
  auto image = MakeMarkedImage();
  ExpectRows(DeleteRow(*image, 2), 2, 238, 2);
  EXPECT_EQ(ChannelOf(*image, 2), MarkedChannel(2));
  for (int n = 3; n < 220; ++n) {
    EXPECT_EQ(ChannelOf(*image, n), MarkedChannel(n + 1)) << n;
  }
  EXPECT_EQ(ChannelOf(*image, 220), Cleared(MarkedChannel(220)));
  for (int n = 221; n <= 240; ++n) {
    EXPECT_EQ(ChannelOf(*image, n), MarkedChannel(n)) << n;
  }
}

TEST(DeleteRow, OfRow219ClearsChannel220WithoutMovingAnything) {
  auto image = MakeMarkedImage();
  CloneImage expected = *image;
  PutChannelBytes(expected, 220, Cleared(MarkedChannel(220)));
  ExpectRows(DeleteRow(*image, 219), 219, 21, 219);
  EXPECT_EQ(*image, expected);
}

TEST(DeleteRow, OfAPmsChannelBeeps) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  ExpectBeep(DeleteRow(*image, 220));
  ExpectBeep(DeleteRow(*image, 239));
  EXPECT_EQ(*image, before);
}

TEST(DeleteRow, MakesTheGroupsFollow) {
  auto image = MakeMarkedImage();
  PutGroups(*image, {{219, 2, 3, 1}, {2}, {220, 239}, {}, {}});
  DeleteRow(*image, 2);
  EXPECT_EQ(GroupsOf(*image), (Groups{{218, 2, 1}, {}, {220, 239}, {}, {}}));
  EXPECT_EQ((*image)[3103], 255);
}

TEST(InsertRow, OpensAGapInFrontOfThePmsChannels) {
  auto image = MarkedImageWithRoom();
  ExpectRows(InsertRow(*image, 4), 4, 236, 4);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(ChannelOf(*image, 4), MarkedChannel(4));
  EXPECT_EQ(ChannelOf(*image, 5), Cleared(MarkedChannel(5)));
  for (int n = 6; n <= 220; ++n) {
    EXPECT_EQ(ChannelOf(*image, n), MarkedChannel(n - 1)) << n;
  }
  for (int n = 221; n <= 240; ++n) {
    EXPECT_EQ(ChannelOf(*image, n), MarkedChannel(n)) << n;
  }
}

TEST(InsertRow, AsksBeforeChannel220FallsOff) {
  auto image = MakeMarkedImage();
  PutGroups(*image, {{4, 218, 219}, {219}, {4}, {}, {}});
  test_seams.answers = {Answer::kYes};
  ExpectRows(InsertRow(*image, 4), 4, 236, 4);
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, kWillBeDeleted);
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kYesNo);
  EXPECT_EQ(ChannelOf(*image, 220), MarkedChannel(219));
  EXPECT_EQ(ChannelOf(*image, 6), MarkedChannel(5));
  EXPECT_EQ(ChannelOf(*image, 5), Cleared(MarkedChannel(5)));
  EXPECT_EQ(GroupsOf(*image), (Groups{{5, 219}, {}, {5}, {}, {}}));
}

TEST(InsertRow, ChangesNothingOnNo) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  test_seams.answers = {Answer::kNo};
  const ListChange change = InsertRow(*image, 4);
  EXPECT_FALSE(change.beep);
  EXPECT_EQ(change.row_count, 0);
  EXPECT_EQ(change.selection, std::nullopt);
  EXPECT_EQ(*image, before);
}

TEST(InsertRow, AtRow219ClearsChannel220Alone) {
  auto image = MakeMarkedImage();
  CloneImage expected = *image;
  PutChannelBytes(expected, 220, Cleared(MarkedChannel(220)));
  test_seams.answers = {Answer::kYes};
  ExpectRows(InsertRow(*image, 219), 219, 21, 219);
  EXPECT_EQ(*image, expected);
}

TEST(InsertRow, AtAPmsChannelBeepsAndAsksNothing) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  ExpectBeep(InsertRow(*image, 220));
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(*image, before);
}

TEST(ListCommands, OnlyBeepWithoutASelection) {
  auto image = MakeMarkedImage();
  const CloneImage before = *image;
  for (auto* command : {MoveRowUp, MoveRowDown, ClearRow, DeleteRow, InsertRow}) {
    ExpectBeep(command(*image, std::nullopt));
  }
  EXPECT_TRUE(ChannelToEdit({}).beep);
  EXPECT_EQ(ChannelToEdit({}).channel, 0);
  EXPECT_EQ(*image, before);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(ListCommands, FollowTheCountOfTheImage) {
  auto image = MakeMarkedImage();
  (*image)[56] = 100;
  test_seams.answers = {Answer::kNo};
  ExpectBeep(MoveRowDown(*image, 99));
  ExpectBeep(ClearRow(*image, 99));
  ExpectBeep(DeleteRow(*image, 80));
  ExpectRows(DeleteRow(*image, 79), 79, 21, 79);
  EXPECT_EQ(ChannelOf(*image, 80), Cleared(MarkedChannel(80)));
  InsertRow(*image, 3);
  EXPECT_TRUE(test_seams.messages.empty());
  InsertRow(*image, 3);
  EXPECT_EQ(ShownTexts(),
            std::vector<std::string>{"Memory channel 80 is active and will be deleted\nProceed?"});
}

TEST(ListCommands, BeepOnAListOfPmsChannelsAlone) {
  auto image = MakeMarkedImage();
  (*image)[56] = 20;
  ExpectBeep(DeleteRow(*image, 0));
  ExpectBeep(InsertRow(*image, 0));
}

TEST(ListCommands, SkipTheChannelsThatAHostileCountInvents) {
  auto image = MakeMarkedImage();
  (*image)[56] = 0xFF;
  (*image)[57] = 0xFF;
  PutGroups(*image, {{238, 239}, {}, {}, {}, {}});
  CloneImage expected = *image;
  for (int n = 1; n < 240; ++n) {
    PutChannelBytes(expected, n, MarkedChannel(n + 1));
  }
  PutGroups(expected, {{237, 238}, {}, {}, {}, {}});
  ExpectRows(DeleteRow(*image, 0), 0, 65535, 0);
  EXPECT_EQ(DifferingOffsets(expected, *image), std::vector<std::size_t>{});
  const CloneImage before = *image;
  ExpectRows(MoveRowDown(*image, 239), 239, 2, 240);
  ExpectRows(ClearRow(*image, 300), 300, 1, 300);
  ExpectRows(MoveRowUp(*image, 65534), 65533, 2, 65533);
  EXPECT_EQ(*image, before);
}

}  // namespace
}  // namespace qz7
