#include <gtest/gtest.h>

#include "core/editors/memory_list.h"
#include "core/image/operating_state.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

// How the memory list opens and closes, and what it edits.
namespace qz7 {
namespace {

using namespace editor_fixture;

TEST(ChannelToEdit, IsTheOneSelected) {
  constexpr int kRows[] = {0, 239};
  EXPECT_EQ(ChannelToEdit({kRows, 1}).channel, 1);
  EXPECT_EQ(ChannelToEdit({kRows + 1, 1}).channel, 240);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(ChannelToEdit, RefusesMoreThanOne) {
  constexpr int kRows[] = {3, 4};
  const RowToEdit row = ChannelToEdit(kRows);
  EXPECT_FALSE(row.beep);
  EXPECT_EQ(row.channel, 0);
  EXPECT_EQ(ShownTexts(),
            std::vector<std::string>{"Only one channel can be selected for editing."});
}

TEST(MemoryListOk, RefusesAnImageWithoutChannel1) {
  auto image = MakeMarkedImage();
  const CloneImage accepted = *image;
  ClearRow(*image, 0);
  EXPECT_EQ(AcceptMemoryList(*image, accepted), ListEnd::kStaysOpen);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Memory channel 1 must always be programmed"});
}

TEST(MemoryListOk, RefusesChannel1EvenWhereNothingHasChanged) {
  auto image = MakeMarkedImage();
  ClearChannel(*image, 1);
  const CloneImage accepted = *image;
  EXPECT_EQ(AcceptMemoryList(*image, accepted), ListEnd::kStaysOpen);
}

TEST(MemoryListOk, LeavesAnUnchangedImageAlone) {
  auto image = MakeMarkedImage();
  (*image)[10457] = 0x77;  // an operating state that a refresh would change
  const CloneImage accepted = *image;
  EXPECT_EQ(AcceptMemoryList(*image, accepted), ListEnd::kUnchanged);
  EXPECT_EQ(*image, accepted);
}

TEST(MemoryListOk, RefreshesTheOperatingStateOfAChangedImage) {
  auto image = MakeMarkedImage();
  const CloneImage accepted = *image;
  (*image)[10451] = 0;
  (*image)[10482] = 2;
  MoveRowDown(*image, 2);
  CloneImage expected = *image;
  RefreshOperatingState(expected);
  EXPECT_NE(expected, *image);
  EXPECT_EQ(AcceptMemoryList(*image, accepted), ListEnd::kChanged);
  EXPECT_EQ(*image, expected);
  EXPECT_EQ(BytesAt(*image, 10472, 8), Bytes(8, 4));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(MemoryListCancel, ClosesWithoutAQuestionWhenNothingChanged) {
  auto image = MakeMarkedImage();
  EXPECT_TRUE(MayCancelMemoryList(*image, *image));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(MemoryListCancel, AsksAndStaysOpenOnNo) {
  auto image = MakeMarkedImage();
  const CloneImage accepted = *image;
  ClearRow(*image, 7);
  test_seams.answers = {Answer::kNo};
  EXPECT_FALSE(MayCancelMemoryList(*image, accepted));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Cancel all changes to memory channels?"});
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kYesNo);
}

TEST(MemoryListCancel, ClosesOnYes) {
  auto image = MakeMarkedImage();
  const CloneImage accepted = *image;
  DeleteRow(*image, 7);
  test_seams.answers = {Answer::kYes};
  EXPECT_TRUE(MayCancelMemoryList(*image, accepted));
}

}  // namespace
}  // namespace qz7
