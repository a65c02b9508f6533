#include "core/image/bits.h"

#include <gtest/gtest.h>

#include <array>

namespace qz7 {
namespace {

TEST(Bits, AreReadFromTheirPlace) {
  constexpr std::array<std::uint8_t, 2> kBytes = {0xFF, 0b1011'0010};
  EXPECT_EQ(ReadBits(kBytes, {.byte = 1, .shift = 0, .width = 8}), 0b1011'0010);
  EXPECT_EQ(ReadBits(kBytes, {.byte = 1, .shift = 4, .width = 4}), 0b1011);
  EXPECT_EQ(ReadBits(kBytes, {.byte = 1, .shift = 1, .width = 3}), 0b001);
  EXPECT_EQ(ReadBits(kBytes, {.byte = 1, .shift = 7, .width = 1}), 1);
  EXPECT_EQ(ReadBits(kBytes, {.byte = 1, .shift = 6, .width = 1}), 0);
  static_assert(ReadBits(kBytes, {.byte = 0, .shift = 2, .width = 3}) == 7);
}

TEST(Bits, LeaveTheOthersWhenTheyAreWritten) {
  std::array<std::uint8_t, 3> bytes = {0xAA, 0b1100'0011, 0xAA};
  WriteBits(bytes, {.byte = 1, .shift = 2, .width = 4}, 0b1001);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 3>{0xAA, 0b1110'0111, 0xAA}));
  WriteBits(bytes, {.byte = 1, .shift = 7, .width = 1}, 0);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 3>{0xAA, 0b0110'0111, 0xAA}));
  WriteBits(bytes, {.byte = 2, .shift = 0, .width = 8}, 0x55);
  EXPECT_EQ(bytes[2], 0x55);
}

TEST(Bits, TakeTheLowestBitsOfAValueThatIsTooLarge) {
  std::array<std::uint8_t, 1> bytes = {0};
  WriteBits(bytes, {.byte = 0, .shift = 1, .width = 2}, 0b1110);
  EXPECT_EQ(bytes[0], 0b0100);
  WriteBits(bytes, {.byte = 0, .shift = 0, .width = 8}, 0x1FE);
  EXPECT_EQ(bytes[0], 0xFE);
  WriteBits(bytes, {.byte = 0, .shift = 4, .width = 4}, -1);
  EXPECT_EQ(bytes[0], 0xFE);
}

}  // namespace
}  // namespace qz7
