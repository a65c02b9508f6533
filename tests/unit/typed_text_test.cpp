#include "core/image/typed_text.h"

#include <gtest/gtest.h>

#include "core/image/channel_text.h"

namespace qz7 {
namespace {

TEST(TypingAFrequency, TakesADecimalCommaAsAPoint) {
  EXPECT_EQ(FrequencyCharacter(','), '.');
  for (const char c : std::string("0123456789. kKmMxX;'\xB1\x08\x16")) {
    EXPECT_EQ(FrequencyCharacter(c), c);
  }
}

TEST(PastingAFrequency, TakesDecimalCommasAsPoints) {
  const EditedField empty{.limit = 10};
  EXPECT_EQ(PastedFrequency(empty, "145,5"), "145.5");
  EXPECT_EQ(ParseFrequency(PastedFrequency(empty, "145,5")), HundredHertz(1'455'000));
  EXPECT_EQ(PastedFrequency(empty, "145.5"), "145.5");
  EXPECT_EQ(PastedFrequency(empty, "600 kHz"), "600 kHz");
  EXPECT_EQ(PastedFrequency(empty, ",5"), ".5");
  EXPECT_EQ(PastedFrequency(empty, ""), "");
}

TEST(PastingAFrequency, TakesTheFirstLineAsFarAsThereIsRoom) {
  EXPECT_EQ(PastedFrequency({.limit = 10}, "145,5000 MHz"), "145.5000 M");
  EXPECT_EQ(PastedFrequency({.limit = 10}, "145,5\r\n433,5"), "145.5");
  EXPECT_EQ(PastedFrequency({.limit = 10}, "\n145,5"), "");
  const EditedField half{.text = "145.00", .selection_begin = 6, .selection_end = 6, .limit = 10};
  EXPECT_EQ(PastedFrequency(half, "12,556"), "12.5");
  const EditedField selected{
      .text = "145.000000", .selection_begin = 4, .selection_end = 10, .limit = 10};
  EXPECT_EQ(PastedFrequency(selected, "5000000"), "500000");
  const EditedField full{
      .text = "145.000000", .selection_begin = 10, .selection_end = 10, .limit = 10};
  EXPECT_EQ(PastedFrequency(full, "1"), "");
}

TEST(PastingWhole, ReplacesTheSelection) {
  const EditedField field{
      .text = "555-1234", .selection_begin = 4, .selection_end = 8, .limit = 16};
  EXPECT_EQ(PasteWhole(field, "9"), "555-9");
  EXPECT_EQ(PasteWhole(field, ""), "555-");
  EXPECT_EQ(PasteWhole({.text = "12", .selection_begin = 1, .selection_end = 1, .limit = 16}, "xy"),
            "1xy2");
}

TEST(PastingWhole, RefusesWhatDoesNotGoInWhole) {
  const EditedField empty{.limit = 16};
  EXPECT_EQ(PasteWhole(empty, "0123456789012345"), "0123456789012345");
  EXPECT_EQ(PasteWhole(empty, "01234567890123456"), std::nullopt);
  const EditedField field{
      .text = "0123456789", .selection_begin = 0, .selection_end = 2, .limit = 16};
  EXPECT_EQ(PasteWhole(field, "ABCDABCD"), "ABCDABCD23456789");
  EXPECT_EQ(PasteWhole(field, "ABCDABCD#"), std::nullopt);
}

TEST(PastingWhole, LooksAtTheFirstLineAlone) {
  EXPECT_EQ(PasteWhole({.limit = 8}, "555-1234\r\n"), "555-1234");
  EXPECT_EQ(PasteWhole({.limit = 8}, "555-1234\n555-4321"), "555-1234");
}

// A text that the program has put there may be longer than what can be typed.
TEST(PastingWhole, HasNoRoomInATextBeyondTheLimit) {
  const EditedField field{
      .text = "0123456789", .selection_begin = 0, .selection_end = 1, .limit = 4};
  EXPECT_EQ(PasteWhole(field, "1"), std::nullopt);
  EXPECT_EQ(PasteWhole(field, ""), "123456789");
  EXPECT_EQ(PastedFrequency(field, "1"), "");
}

}  // namespace
}  // namespace qz7
