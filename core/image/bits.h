#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace qz7 {

// A code or a flag that shares its byte with others: `width` bits of one byte, from bit `shift` up;
// bit 0 is the least significant one.
struct BitField {
  std::size_t byte;  // its place in the bytes that are read or written
  int shift;         // 0..7
  int width;         // 1..8 - shift
};

// The value of the field, 0..2^width - 1. The byte lies inside `bytes`.
constexpr int ReadBits(std::span<const std::uint8_t> bytes, BitField field) {
  return (bytes[field.byte] >> field.shift) & ((1 << field.width) - 1);
}

// Puts a value in the field's place and leaves the byte's other bits. Of the value the lowest
// `width` bits count.
constexpr void WriteBits(std::span<std::uint8_t> bytes, BitField field, int value) {
  const int mask = ((1 << field.width) - 1) << field.shift;
  const int kept = bytes[field.byte] & ~mask;
  bytes[field.byte] = static_cast<std::uint8_t>(kept | ((value << field.shift) & mask));
}

}  // namespace qz7
