#include "core/editors/list_history.h"

#include <gtest/gtest.h>

#include "core/image/channel_record.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;
using Selection = std::vector<int>;

const RowsChange kBeep{.beep = true, .selection = {}};

TEST(ListHistory, TakesAStepBackAndDoesItAgain) {
  auto image = MakeMarkedImage();
  const CloneImage start = *image;
  ListHistory history = StartHistory(*image);
  MoveRowsUp(*image, Selection{4, 5});
  const CloneImage moved = *image;
  RecordStep(history, *image, Selection{4, 5}, Selection{3, 4});
  EXPECT_EQ(Undo(history, *image),
            (RowsChange{.first_row = 3, .row_count = 3, .selection = {4, 5}}));
  EXPECT_EQ(*image, start);
  EXPECT_EQ(Redo(history, *image),
            (RowsChange{.first_row = 3, .row_count = 3, .selection = {3, 4}}));
  EXPECT_EQ(*image, moved);
}

TEST(ListHistory, BeepsAtItsEnds) {
  auto image = MakeMarkedImage();
  ListHistory history = StartHistory(*image);
  EXPECT_FALSE(CanUndo(history));
  EXPECT_FALSE(CanRedo(history));
  EXPECT_EQ(Undo(history, *image), kBeep);
  EXPECT_EQ(Redo(history, *image), kBeep);
  RecordStep(history, *image, {}, {});
  EXPECT_FALSE(CanUndo(history)) << "what changes nothing is no step";
}

TEST(ListHistory, ANewStepTakesThePlaceOfThoseThatWereTakenBack) {
  auto image = MakeMarkedImage();
  ListHistory history = StartHistory(*image);
  ClearRows(*image, Selection{4});
  RecordStep(history, *image, Selection{4}, Selection{4});
  Undo(history, *image);
  ClearRows(*image, Selection{9});
  const CloneImage cleared = *image;
  RecordStep(history, *image, Selection{9}, Selection{9});
  EXPECT_FALSE(CanRedo(history));
  Undo(history, *image);
  EXPECT_TRUE(IsProgrammed(*image, 5));
  Redo(history, *image);
  EXPECT_EQ(*image, cleared);
}

TEST(ListHistory, KeepsTheLastStepsOfAVeryLongVisit) {
  auto image = MakeMarkedImage();
  ListHistory history = StartHistory(*image);
  for (std::size_t i = 0; i < kMostSteps + 20; ++i) {
    MoveRowsDown(*image, Selection{static_cast<int>(i % 200)});
    RecordStep(history, *image, {}, {});
  }
  std::size_t steps = 0;
  while (CanUndo(history)) {
    Undo(history, *image);
    ++steps;
  }
  EXPECT_EQ(steps, kMostSteps);
  EXPECT_GE(steps, 100U);
  EXPECT_EQ(history.steps.front().image, *image);
}

Selection RandomRows(Dice& dice) {
  std::set<int> rows;
  for (int i = dice.Below(4); i >= 0; --i) {
    rows.insert(dice.Below(240));
  }
  return {rows.begin(), rows.end()};
}

// One random thing that a user does in the list, the channel editor's work included.
void RunRandomCommand(Dice& dice, CloneImage& image, std::vector<ChannelCopy>& clipboard) {
  const Selection rows = RandomRows(dice);
  const int n = rows.front() + 1;
  test_seams.answers = {dice.Heads() ? Answer::kYes : Answer::kNo};
  switch (dice.Below(8)) {
    case 0:
      MoveRowsUp(image, rows);
      break;
    case 1:
      MoveRowsDown(image, rows);
      break;
    case 2:
      ClearRows(image, rows);
      break;
    case 3:
      DeleteRows(image, rows);
      break;
    case 4:
      InsertBeforeRows(image, rows);
      break;
    case 5:
      clipboard = CopyRows(image, rows);
      break;
    case 6:
      PasteRows(image, rows, clipboard);
      break;
    default:
      StoreReceive(GetChannelRecord(image, n), ::qz7::Kilohertz(dice.Below(999'999)));
      SetProgrammed(image, n, true);
      SetMasked(image, n, dice.Heads());
  }
}

// No entry of a group twice, none behind the first free one, the state as the entries say.
void ExpectWholeGroups(const CloneImage& image) {
  const Groups groups = GroupsOf(image);
  for (std::size_t g = 0; g < groups.size(); ++g) {
    EXPECT_EQ(std::set<int>(groups[g].begin(), groups[g].end()).size(), groups[g].size());
    EXPECT_EQ(image[3102 + g], groups[g].empty() ? 255 : 0);
    for (std::size_t i = 0; i < groups[g].size(); ++i) {
      EXPECT_EQ(image[3110 + g * 48 + i * 2], 0) << g << " " << i;
    }
  }
}

TEST(ListHistoryProperty, WhateverIsDoneIsUndoneAndDoneAgainToTheByte) {
  for (unsigned seed = 1; seed <= 10; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    PutGroups(*image, {Numbers(dice.Below(200), 24), Numbers(dice.Below(200), 9), {}, {3}, {219}});
    ListHistory history = StartHistory(*image);
    std::vector<CloneImage> seen{*image};
    std::vector<ChannelCopy> clipboard;
    for (int i = 0; i < 110; ++i) {
      RunRandomCommand(dice, *image, clipboard);
      RecordStep(history, *image, {}, {});
      if (seen.back() != *image) {
        seen.push_back(*image);
      }
      ExpectWholeGroups(*image);
    }
    ASSERT_GT(seen.size(), 40U);
    for (std::size_t i = seen.size() - 1; i > 0; --i) {
      Undo(history, *image);
      ASSERT_EQ(*image, seen[i - 1]) << i;
    }
    EXPECT_FALSE(CanUndo(history));
    for (std::size_t i = 1; i < seen.size(); ++i) {
      Redo(history, *image);
      ASSERT_EQ(*image, seen[i]) << i;
    }
    EXPECT_FALSE(CanRedo(history));
  }
}

// The rows that are written anew are enough: no other row looks different.
TEST(ListHistoryProperty, TheRowsOfAStepAreAllThatDiffer) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    ListHistory history = StartHistory(*image);
    std::vector<ChannelCopy> clipboard = CopyRows(*image, Selection{7, 8});
    const CloneImage before = *image;
    RunRandomCommand(dice, *image, clipboard);
    const CloneImage after = *image;
    RecordStep(history, *image, {}, {});
    const RowsChange change = Undo(history, *image);
    for (int row = 0; row < 240; ++row) {
      if (row < change.first_row || row >= change.first_row + change.row_count) {
        EXPECT_EQ(ChannelOf(before, row + 1), ChannelOf(after, row + 1)) << row;
      }
    }
  }
}

}  // namespace
}  // namespace qz7
