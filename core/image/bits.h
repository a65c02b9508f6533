#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace qz7 {

// Where a small number is packed: `width` bits of one byte, from bit `shift` on (0 is the lowest).
struct BitField {
  std::size_t byte;
  int shift = 0;
  int width = 8;
};

constexpr int BitMask(BitField field) { return ((1 << field.width) - 1) << field.shift; }

constexpr int ReadBits(std::span<const std::uint8_t> bytes, BitField field) {
  return (bytes[field.byte] & BitMask(field)) >> field.shift;
}

// Stores the low bits of `value`; the byte's other bits stay.
constexpr void WriteBits(std::span<std::uint8_t> bytes, BitField field, int value) {
  const int bits = value << field.shift & BitMask(field);
  bytes[field.byte] = static_cast<std::uint8_t>((bytes[field.byte] & ~BitMask(field)) | bits);
}

}  // namespace qz7
