#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "core/editors/memory_list.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

// Long random runs of the list's commands beside a plain model of them: a list of channels and
// five lists of numbers. The whole image is compared after every command.
namespace qz7 {
namespace {

using namespace editor_fixture;

struct Model {
  std::vector<ChannelBytes> channels;  // index 0 is channel 1
  Groups groups;
};

Groups RandomGroups(Dice& dice) {
  Groups groups(5);
  for (std::vector<int>& group : groups) {
    const int wanted = dice.Below(25);
    while (static_cast<int>(group.size()) < wanted) {
      const int index = dice.Below(240);
      if (std::find(group.begin(), group.end(), index) == group.end()) {
        group.push_back(index);
      }
    }
  }
  return groups;
}

Model ModelOf(const CloneImage& image) {
  Model model;
  for (int n = 1; n <= 240; ++n) {
    model.channels.push_back(ChannelOf(image, n));
  }
  model.groups = GroupsOf(image);
  return model;
}

// `base` with everything that the model tells.
CloneImage ImageOf(const Model& model, const CloneImage& base) {
  CloneImage image = base;
  for (int n = 1; n <= 240; ++n) {
    PutChannelBytes(image, n, model.channels[static_cast<std::size_t>(n - 1)]);
  }
  PutGroups(image, model.groups);
  return image;
}

ChannelBytes Emptied(ChannelBytes channel) {
  channel.flags &= 0xF0;
  channel.name[0] = 0;
  channel.comment[0] = 0;
  return channel;
}

// Drops `gone` from the groups and gives every other number its new one.
void Renumber(Groups& groups, int gone, const std::function<int(int)>& renumbered) {
  for (std::vector<int>& group : groups) {
    group.erase(std::remove(group.begin(), group.end(), gone), group.end());
    std::transform(group.begin(), group.end(), group.begin(), renumbered);
  }
}

void ModelSwap(Model& model, int a, int b) {
  std::swap(model.channels[static_cast<std::size_t>(a)],
            model.channels[static_cast<std::size_t>(b)]);
  Renumber(model.groups, -1, [=](int i) { return i == a ? b : i == b ? a : i; });
}

void ModelClear(Model& model, int row) {
  ChannelBytes& channel = model.channels[static_cast<std::size_t>(row)];
  channel = Emptied(channel);
  Renumber(model.groups, row, [](int i) { return i; });
}

// The record of the emptied channel 220 stays as it was.
void ModelDelete(Model& model, int row) {
  const ChannelBytes last = model.channels[219];
  model.channels.erase(model.channels.begin() + row);
  model.channels.insert(model.channels.begin() + 219, Emptied(last));
  Renumber(model.groups, row, [=](int i) { return i > row && i < 220 ? i - 1 : i; });
}

void ModelInsert(Model& model, int row) {
  const ChannelBytes here = model.channels[static_cast<std::size_t>(row)];
  model.channels.erase(model.channels.begin() + 219);
  model.channels.insert(model.channels.begin() + row, Emptied(here));
  Renumber(model.groups, 219, [=](int i) { return i >= row && i < 219 ? i + 1 : i; });
}

// One random command on the image and on the model; true where the command did anything.
bool RunRandomCommand(Dice& dice, CloneImage& image, Model& model) {
  const int row = dice.Below(240);
  const bool yes = dice.Below(4) != 0;
  test_seams.answers = {yes ? Answer::kYes : Answer::kNo};
  switch (dice.Below(5)) {
    case 0:
      if (row > 0) {
        ModelSwap(model, row - 1, row);
      }
      return !MoveRowUp(image, row).beep;
    case 1:
      if (row < 239) {
        ModelSwap(model, row, row + 1);
      }
      return !MoveRowDown(image, row).beep;
    case 2:
      if (row < 239) {
        ModelClear(model, row);
      }
      return !ClearRow(image, row).beep;
    case 3:
      if (row < 220) {
        ModelDelete(model, row);
      }
      return !DeleteRow(image, row).beep;
    default:
      if (row < 220 && (yes || (model.channels[219].flags & 1) == 0)) {
        ModelInsert(model, row);
      }
      return !InsertRow(image, row).beep;
  }
}

TEST(MemoryListProperty, EverythingOfAChannelTravelsTogetherAndNothingElseMoves) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    PutGroups(*image, RandomGroups(dice));
    const CloneImage base = *image;
    Model model = ModelOf(*image);
    int done = 0;
    for (int i = 0; i < 100; ++i) {
      done += RunRandomCommand(dice, *image, model) ? 1 : 0;
      ASSERT_EQ(DifferingOffsets(ImageOf(model, base), *image), std::vector<std::size_t>{}) << i;
    }
    EXPECT_GT(done, 50);
  }
}

TEST(MemoryListProperty, PmsChannelsNeverMoveOnDeleteAndInsert) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    const Bytes records = BytesAt(*image, 3678 + 220 * 22, 20 * 22);
    const Bytes flags = BytesAt(*image, 3358 + 220, 20);
    const Bytes names = BytesAt(*image, 11202 + 2200, 200);
    const Bytes comments = BytesAt(*image, 13602 + 220 * 32, 640);
    for (int i = 0; i < 100; ++i) {
      test_seams.answers = {Answer::kYes};
      dice.Heads() ? DeleteRow(*image, dice.Below(240)) : InsertRow(*image, dice.Below(240));
    }
    EXPECT_EQ(BytesAt(*image, 3678 + 220 * 22, 20 * 22), records);
    EXPECT_EQ(BytesAt(*image, 3358 + 220, 20), flags);
    EXPECT_EQ(BytesAt(*image, 11202 + 2200, 200), names);
    EXPECT_EQ(BytesAt(*image, 13602 + 220 * 32, 640), comments);
  }
}

void ExpectSameBut(const CloneImage& before, const CloneImage& after, int n) {
  for (int c = 1; c <= 240; ++c) {
    if (c != n) {
      EXPECT_EQ(ChannelOf(after, c), ChannelOf(before, c)) << c;
    }
  }
  EXPECT_EQ((*GetChannelFlagByte(after, n)) & 0x0F, 0);
  Groups groups = GroupsOf(before);
  Renumber(groups, n - 1, [](int i) { return i; });
  EXPECT_EQ(GroupsOf(after), groups);
}

TEST(MemoryListProperty, DeleteThenInsertRestoresAllButTheDeleted) {
  for (unsigned seed = 1; seed <= 30; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    PutGroups(*image, RandomGroups(dice));
    const CloneImage before = *image;
    const int row = dice.Below(220);
    DeleteRow(*image, row);
    InsertRow(*image, row);
    EXPECT_TRUE(test_seams.messages.empty());
    ExpectSameBut(before, *image, row + 1);
  }
}

TEST(MemoryListProperty, InsertThenDeleteRestoresAllButWhatFellOff) {
  for (unsigned seed = 1; seed <= 30; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    PutGroups(*image, RandomGroups(dice));
    const CloneImage before = *image;
    const int row = dice.Below(220);
    test_seams.answers = {Answer::kYes};
    InsertRow(*image, row);
    DeleteRow(*image, row);
    ExpectSameBut(before, *image, 220);
  }
}

// Whatever a file holds: no command leaves the buffer or comes to no end.
TEST(MemoryListProperty, EveryCommandStandsEveryHostileImage) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    auto image = MakeRandomImage(dice);
    const int count = dice.Below(400);
    (*image)[56] = static_cast<std::uint8_t>(count);
    (*image)[57] = static_cast<std::uint8_t>(count >> 8);
    const CloneImage before = *image;
    for (int i = 0; i < 20; ++i) {
      const int row = dice.Below(count + 1);
      test_seams.answers = {Answer::kYes};
      switch (dice.Below(5)) {
        case 0:
          MoveRowUp(*image, row);
          break;
        case 1:
          MoveRowDown(*image, row);
          break;
        case 2:
          ClearRow(*image, row);
          break;
        case 3:
          DeleteRow(*image, row);
          break;
        default:
          InsertRow(*image, row);
      }
    }
    Offsets channels;
    AddRange(channels, 3102, 5);
    AddRange(channels, 3110, 240);
    AddRange(channels, 3358, 240);
    AddRange(channels, 3678, 5280);
    AddRange(channels, 11202, 2400);
    AddRange(channels, 13602, 7680);
    EXPECT_EQ(Unexpected(before, *image, channels), std::vector<std::size_t>{});
  }
}

}  // namespace
}  // namespace qz7
