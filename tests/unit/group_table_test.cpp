#include "core/editors/group_table.h"

#include <gtest/gtest.h>

#include "tests/unit/editor_fixture.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

std::unique_ptr<CloneImage> ImageWith(const Groups& groups) {
  auto image = MakePatternImage();
  PutGroups(*image, groups);
  return image;
}

TEST(GroupTable, LiesAtItsPlacesInTheImage) {
  auto image = ImageWith(NoGroups());
  const CloneImage before = *image;
  AppendToGroup(*image, 0, 6);
  AppendToGroup(*image, 4, 239);
  EXPECT_EQ(DifferingOffsets(before, *image),
            (std::vector<std::size_t>{3102, 3106, 3110, 3111, 3302, 3303}));
  EXPECT_EQ((*image)[3102], 0);
  EXPECT_EQ((*image)[3110], 0);
  EXPECT_EQ((*image)[3111], 6);
  EXPECT_EQ((*image)[3303], 239);
}

TEST(GroupTable, KnowsItsMembers) {
  const auto image = ImageWith({{4, 9}, {}, {}, {}, {9}});
  EXPECT_TRUE(IsInGroup(*image, 0, 4));
  EXPECT_TRUE(IsInGroup(*image, 0, 9));
  EXPECT_TRUE(IsInGroup(*image, 4, 9));
  EXPECT_FALSE(IsInGroup(*image, 1, 4));
  EXPECT_FALSE(IsInGroup(*image, 4, 4));
}

TEST(GroupTable, DoesNotTakeAFreeEntryForChannel256) {
  const auto image = ImageWith(NoGroups());
  EXPECT_FALSE(IsInGroup(*image, 0, 255));
}

TEST(GroupTable, TakesAnyFirstByteBut255ForAUsedEntry) {
  auto image = ImageWith(NoGroups());
  PutBytes(*image, 3110, {9, 4, 254, 5});
  EXPECT_TRUE(IsInGroup(*image, 0, 4));
  EXPECT_TRUE(IsInGroup(*image, 0, 5));
  RenameInGroups(*image, 4, 6);
  RemoveFromGroup(*image, 0, 5);
  EXPECT_EQ(BytesAt(*image, 3110, 4), (Bytes{9, 6, 255, 255}));
}

TEST(GroupTable, AppendsAtTheFirstFreePlace) {
  auto image = ImageWith({{4, 9}, {}, {}, {}, {}});
  AppendToGroup(*image, 0, 2);
  EXPECT_EQ(GroupsOf(*image), (Groups{{4, 9, 2}, {}, {}, {}, {}}));
}

TEST(GroupTable, DoesNotAppendAMemberAgain) {
  auto image = ImageWith({{4, 9}, {}, {}, {}, {}});
  AppendToGroup(*image, 0, 4);
  EXPECT_EQ(GroupsOf(*image), (Groups{{4, 9}, {}, {}, {}, {}}));
}

TEST(GroupTable, TakesTwentyFourMembersAndNoMore) {
  auto image = ImageWith({Numbers(10, 23), {}, {}, {}, {}});
  AppendToGroup(*image, 0, 100);
  EXPECT_TRUE(IsInGroup(*image, 0, 100));
  const CloneImage full = *image;
  AppendToGroup(*image, 0, 101);
  EXPECT_EQ(*image, full);
}

TEST(GroupTable, MovesLaterEntriesUpWhenOneGoes) {
  auto image = ImageWith({{4, 9, 2, 7}, {9}, {}, {}, {}});
  RemoveFromGroup(*image, 0, 9);
  EXPECT_EQ(GroupsOf(*image), (Groups{{4, 2, 7}, {9}, {}, {}, {}}));
  EXPECT_EQ(BytesAt(*image, 3110, 10), (Bytes{0, 4, 0, 2, 0, 7, 255, 255, 255, 255}));
}

TEST(GroupTable, EndsAFullGroupWithTheMarkWhenOneGoes) {
  auto image = ImageWith({{}, Numbers(10, 24), {1}, {}, {}});
  RemoveFromGroup(*image, 1, 33);
  EXPECT_EQ(BytesAt(*image, 3110 + 48 + 44, 6), (Bytes{0, 32, 255, 255, 0, 1}));
  EXPECT_EQ((*image)[3103], 0);
}

TEST(GroupTable, IsEmptyWhenTheLastMemberGoes) {
  auto image = ImageWith({{4}, {4, 5}, {}, {}, {}});
  RemoveFromEveryGroup(*image, 4);
  EXPECT_EQ((*image)[3102], 255);
  EXPECT_EQ((*image)[3103], 0);
  EXPECT_EQ(GroupsOf(*image), (Groups{{}, {5}, {}, {}, {}}));
}

TEST(GroupTable, LeavesAGroupAloneThatLacksTheChannel) {
  auto image = ImageWith(NoGroups());
  (*image)[3102] = 77;  // a state that no group of ours has
  const CloneImage before = *image;
  RemoveFromEveryGroup(*image, 4);
  EXPECT_EQ(*image, before);
}

TEST(GroupTable, LosesEveryEntryOfAChannelThatAFileListsTwice) {
  auto image = ImageWith({{4, 9, 4}, {}, {}, {}, {}});
  RemoveFromGroup(*image, 0, 4);
  EXPECT_EQ(GroupsOf(*image), (Groups{{9}, {}, {}, {}, {}}));
}

TEST(GroupTable, SwapsNumbersWhereTheyStand) {
  auto image = ImageWith({{4, 9, 2}, {9}, {4}, {2}, {9, 4}});
  SwapInGroups(*image, 4, 9);
  EXPECT_EQ(GroupsOf(*image), (Groups{{9, 4, 2}, {4}, {9}, {2}, {4, 9}}));
}

TEST(GroupTable, RenamesWhereTheChannelStands) {
  auto image = ImageWith({{4, 9, 2}, {9}, {}, {}, {}});
  RenameInGroups(*image, 9, 11);
  EXPECT_EQ(GroupsOf(*image), (Groups{{4, 11, 2}, {11}, {}, {}, {}}));
}

TEST(GroupTable, NeverRenamesAFreeEntry) {
  auto image = ImageWith(NoGroups());
  const CloneImage before = *image;
  RenameInGroups(*image, 255, 3);
  SwapInGroups(*image, 255, 3);
  EXPECT_EQ(*image, before);
}

}  // namespace
}  // namespace qz7
