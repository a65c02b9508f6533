#include "core/editors/list_history.h"

#include <gtest/gtest.h>

#include "core/editors/channel_editor.h"
#include "core/image/channel_record.h"
#include "core/interchange/copied_text.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;
using Selection = std::vector<int>;

std::unique_ptr<Document> DocumentWith(const CloneImage& image) {
  auto document = std::make_unique<Document>();
  document->image = image;
  return document;
}

const RowsChange kBeep{.beep = true, .selection = {}};

TEST(ListHistory, TakesAStepBackAndDoesItAgain) {
  auto document = DocumentWith(*MakeMarkedImage());
  CloneImage& image = document->image;
  const CloneImage start = image;
  ListHistory history = StartHistory(*document);
  MoveRowsUp(image, Selection{4, 5});
  const CloneImage moved = image;
  RecordStep(history, *document, Selection{4, 5}, Selection{3, 4});
  EXPECT_EQ(Undo(history, *document),
            (RowsChange{.first_row = 3, .row_count = 3, .selection = {4, 5}}));
  EXPECT_EQ(image, start);
  EXPECT_EQ(Redo(history, *document),
            (RowsChange{.first_row = 3, .row_count = 3, .selection = {3, 4}}));
  EXPECT_EQ(image, moved);
}

TEST(ListHistory, GivesTheChangedFlagOfEachStepBack) {
  auto document = DocumentWith(*MakeMarkedImage());
  ListHistory history = StartHistory(*document);
  MoveRowsUp(document->image, Selection{4});
  RecordStep(history, *document, {}, {});
  ClearRows(document->image, Selection{7});
  document->changed = true;  // as the channel editor does at once, and the list only at its end
  RecordStep(history, *document, {}, {});
  Undo(history, *document);
  EXPECT_FALSE(document->changed);
  Redo(history, *document);
  EXPECT_TRUE(document->changed);
  Undo(history, *document);
  Undo(history, *document);
  EXPECT_FALSE(document->changed);
}

TEST(ListHistory, LeavesADocumentThatHadChangedBeforeChanged) {
  auto document = DocumentWith(*MakeMarkedImage());
  document->changed = true;
  ListHistory history = StartHistory(*document);
  MoveRowsUp(document->image, Selection{4});
  RecordStep(history, *document, {}, {});
  Undo(history, *document);
  EXPECT_TRUE(document->changed);
}

TEST(ListHistory, BeepsAtItsEnds) {
  auto document = DocumentWith(*MakeMarkedImage());
  ListHistory history = StartHistory(*document);
  EXPECT_FALSE(CanUndo(history));
  EXPECT_FALSE(CanRedo(history));
  EXPECT_EQ(Undo(history, *document), kBeep);
  EXPECT_EQ(Redo(history, *document), kBeep);
  RecordStep(history, *document, {}, {});
  EXPECT_FALSE(CanUndo(history)) << "what changes nothing is no step";
}

TEST(ListHistory, ANewStepTakesThePlaceOfThoseThatWereTakenBack) {
  auto document = DocumentWith(*MakeMarkedImage());
  CloneImage& image = document->image;
  ListHistory history = StartHistory(*document);
  ClearRows(image, Selection{4});
  RecordStep(history, *document, Selection{4}, Selection{4});
  Undo(history, *document);
  ClearRows(image, Selection{9});
  const CloneImage cleared = image;
  RecordStep(history, *document, Selection{9}, Selection{9});
  EXPECT_FALSE(CanRedo(history));
  Undo(history, *document);
  EXPECT_TRUE(IsProgrammed(image, 5));
  Redo(history, *document);
  EXPECT_EQ(image, cleared);
}

TEST(ListHistory, KeepsTheLastStepsOfAVeryLongVisit) {
  auto document = DocumentWith(*MakeMarkedImage());
  CloneImage& image = document->image;
  ListHistory history = StartHistory(*document);
  for (std::size_t i = 0; i < kMostSteps + 20; ++i) {
    MoveRowsDown(image, Selection{static_cast<int>(i % 200)});
    RecordStep(history, *document, {}, {});
  }
  std::size_t steps = 0;
  while (CanUndo(history)) {
    Undo(history, *document);
    ++steps;
  }
  EXPECT_EQ(steps, kMostSteps);
  EXPECT_GE(steps, 100U);
  EXPECT_EQ(history.steps.front().image, image);
}

Selection RandomRows(Dice& dice) {
  std::set<int> rows;
  for (int i = dice.Below(4); i >= 0; --i) {
    rows.insert(dice.Below(240));
  }
  return {rows.begin(), rows.end()};
}

// The channel's window: read, changed, OK.
void EditAtRandom(Dice& dice, CloneImage& image, int n) {
  static const std::vector<const char*> receives = {"145.0125", "439", "98.1", "0", "nonsense"};
  auto editor = OpenChannelEditor(image, n, test_region);
  if (!editor) {
    return;
  }
  editor->receive = receives[static_cast<std::size_t>(dice.Below(5))];
  LeaveReceive(*editor);
  editor->choices.name = "CH" + std::to_string(dice.Below(100));
  editor->comment = std::to_string(dice.Below(100));
  editor->skip = dice.Heads();
  editor->masked = dice.Heads();
  AcceptChannel(image, *editor);
}

// What another program left on the clipboard.
std::vector<ChannelCopy> RandomText(Dice& dice, const CloneImage& image) {
  std::string text = "Frequency,Name\r\n";
  for (int i = dice.Below(5); i >= 0; --i) {
    text += std::to_string(144 + dice.Below(2)) + ".5,N" + std::to_string(i) + "\r\n";
  }
  return ChannelsOfText(image, text, test_region);
}

void CopyOrPaste(Dice& dice, CloneImage& image, const Selection& rows,
                 std::vector<ChannelCopy>& clipboard) {
  switch (dice.Below(5)) {
    case 0:
      clipboard = CopyRows(image, rows);
      break;
    case 1:
      clipboard = CopyRows(image, rows);
      ClearRows(image, rows);
      break;
    case 2:
      PasteRows(image, rows, RandomText(dice, image));
      break;
    default:
      PasteRows(image, rows, clipboard);
  }
}

// One random thing that a user does in the list.
void RunRandomCommand(Dice& dice, CloneImage& image, std::vector<ChannelCopy>& clipboard) {
  const Selection rows = RandomRows(dice);
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
      EditAtRandom(dice, image, rows.front() + 1);
      break;
    default:
      CopyOrPaste(dice, image, rows, clipboard);
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
    auto document = DocumentWith(*MakeRandomImage(dice));
    CloneImage& image = document->image;
    PutGroups(image, {Numbers(dice.Below(200), 24), Numbers(dice.Below(200), 9), {}, {3}, {219}});
    ListHistory history = StartHistory(*document);
    std::vector<CloneImage> seen{image};
    std::vector<ChannelCopy> clipboard;
    for (int i = 0; i < 110; ++i) {
      RunRandomCommand(dice, image, clipboard);
      RecordStep(history, *document, {}, {});
      if (seen.back() != image) {
        seen.push_back(image);
      }
      ExpectWholeGroups(image);
    }
    ASSERT_GT(seen.size(), 40U);
    for (std::size_t i = seen.size() - 1; i > 0; --i) {
      Undo(history, *document);
      ASSERT_EQ(image, seen[i - 1]) << i;
    }
    EXPECT_FALSE(CanUndo(history));
    for (std::size_t i = 1; i < seen.size(); ++i) {
      Redo(history, *document);
      ASSERT_EQ(image, seen[i]) << i;
    }
    EXPECT_FALSE(CanRedo(history));
  }
}

// The rows that are written anew are enough: no other row looks different.
TEST(ListHistoryProperty, TheRowsOfAStepAreAllThatDiffer) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto document = DocumentWith(*MakeRandomImage(dice));
    CloneImage& image = document->image;
    ListHistory history = StartHistory(*document);
    std::vector<ChannelCopy> clipboard = CopyRows(image, Selection{7, 8});
    const CloneImage before = image;
    RunRandomCommand(dice, image, clipboard);
    const CloneImage after = image;
    RecordStep(history, *document, {}, {});
    const RowsChange change = Undo(history, *document);
    for (int row = 0; row < 240; ++row) {
      if (row < change.first_row || row >= change.first_row + change.row_count) {
        EXPECT_EQ(ChannelOf(before, row + 1), ChannelOf(after, row + 1)) << row;
      }
    }
  }
}

}  // namespace
}  // namespace qz7
