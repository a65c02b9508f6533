#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "core/editors/channel_fields.h"
#include "core/image/text_codec.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

std::uint8_t TextByte(Dice& dice) {
  const std::uint8_t byte = dice.Byte();
  return byte == 0 || IsControl(static_cast<char>(byte)) ? 'x' : byte;
}

// Random bytes, but codes that have a meaning, texts that can be typed, and frequencies of which
// the editor accepts many.
void PutRandomChannel(Dice& dice, CloneImage& image, int n) {
  const std::size_t record = RecordPlace(n);
  PutBytes(image, record + 2, Kilohertz(500 + dice.Below(999'000)));
  PutBytes(image, record + 14,
           Kilohertz(dice.Heads() ? 5 * dice.Below(20'000) : dice.Below(999'999)));
  if (dice.Below(4) != 0) {
    const int khz = 500 + 5 * dice.Below(200'000);
    PutBytes(image, record + 2, Kilohertz(khz));
  }
  image[record + 1] = static_cast<std::uint8_t>(dice.Below(9));
  image[record + 5] = static_cast<std::uint8_t>(dice.Below(27) << 2 | dice.Below(3));
  image[record + 17] = static_cast<std::uint8_t>(dice.Below(64));
  image[record + 18] = static_cast<std::uint8_t>(dice.Below(39));
  image[record + 19] = static_cast<std::uint8_t>(dice.Below(104));
  std::generate_n(image.begin() + static_cast<std::ptrdiff_t>(record) + 6, 8,
                  [&] { return TextByte(dice); });
  std::uint8_t* comment = image.data() + 13602 + 32 * (n - 1);
  std::memset(comment, 0, 32);
  std::generate_n(comment, dice.Below(32), [&] { return TextByte(dice); });
  image[FlagPlace(n)] |= 1;
}

// What the radio keeps and no field tells stands at 0.
ChannelBytes ToldBytes(const CloneImage& image, int n) {
  ChannelBytes channel = ChannelOf(image, n);
  channel.record[0] &= 0x7F;
  channel.record[20] = channel.record[21] = 0;
  channel.flags &= 0x0F;
  channel.name.resize(8);
  return channel;
}

// Writes the channel as the editor's OK does; false where that refuses it.
bool Accept(CloneImage& image, int n) {
  ChannelEditor editor = *OpenChannelEditor(image, n, test_region);
  const bool accepted = AcceptChannel(image, editor).refused == EditorField::kNone;
  test_seams.messages.clear();
  return accepted;
}

bool ListsItsStep(const CloneImage& image, int n) {
  return StepPosition(*OpenChannelEditor(image, n, test_region)).has_value();
}

TEST(ChannelFieldsProperty, AllThatIsToldOfAChannelMakesTheSameRecordOfAnEmptyOne) {
  int made = 0;
  for (unsigned seed = 1; seed <= 3000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    const auto image = MakeRandomImage(dice);
    MakeWide(*image);
    const int n = 1 + dice.Below(240);
    const int empty = 2 + dice.Below(239);
    PutRandomChannel(dice, *image, n);
    if (!Accept(*image, n)) {
      continue;
    }
    const auto target = MakeWideImage();
    ChannelEditor editor = *OpenChannelEditor(*target, empty, test_region);
    std::string why_not;
    const bool set = SetEditorFields(editor, DescribeChannel(*image, n, test_region), why_not);
    EXPECT_EQ(set, ListsItsStep(*image, n)) << why_not;
    if (set) {
      EXPECT_EQ(AcceptChannel(*target, editor).refused, EditorField::kNone);
      EXPECT_EQ(ToldBytes(*image, n), ToldBytes(*target, empty));
      ++made;
    }
  }
  EXPECT_GT(made, 500);
}

TEST(ChannelFieldsProperty, AllThatIsToldOfASpecialSlotMakesTheSameRecordOfAnother) {
  for (unsigned seed = 1; seed <= 1000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    const auto image = MakeRandomImage(dice);
    MakeWide(*image);
    const int n = -1 - dice.Below(30);
    PutRandomChannel(dice, *image, 1);
    std::copy_n(image->begin() + 3678, 22,
                image->begin() + static_cast<std::ptrdiff_t>(RecordPlace(n)));
    if (!Accept(*image, n) || !ListsItsStep(*image, n)) {
      continue;
    }
    const auto target = MakeWideImage();
    ChannelEditor editor = *OpenChannelEditor(*target, n, test_region);
    std::string why_not;
    EXPECT_TRUE(SetEditorFields(editor, DescribeChannel(*image, n, test_region), why_not))
        << why_not;
    EXPECT_EQ(AcceptChannel(*target, editor).refused, EditorField::kNone);
    const Bytes before = BytesAt(*image, RecordPlace(n), 20);
    const Bytes after = BytesAt(*target, RecordPlace(n), 20);
    EXPECT_EQ(before[0] & 0x7F, after[0]);
    const int told = IsVfoSlot(n) ? 6 : 14;
    EXPECT_EQ(Bytes(before.begin() + 1, before.begin() + told),
              Bytes(after.begin() + 1, after.begin() + told));
    EXPECT_EQ(Bytes(before.begin() + 14, before.end()), Bytes(after.begin() + 14, after.end()));
  }
}

}  // namespace
}  // namespace qz7
