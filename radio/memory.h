#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace qz7radio {

// The radio's memory as it goes over the cable: a header, then blocks. Behind it goes one byte, its
// checksum.
inline constexpr std::size_t kHeaderSize = 10;
inline constexpr std::size_t kBlockSize = 16;
inline constexpr std::size_t kBlockCount = 507;
inline constexpr std::size_t kMemorySize = kHeaderSize + kBlockSize * kBlockCount;
inline constexpr std::size_t kExchangeSize = kMemorySize + 1;
static_assert(kMemorySize == 8122);

// Every header begins with this byte; a listener skips whatever comes before it.
inline constexpr std::uint8_t kHeaderStart = 0x0A;

using Memory = std::array<std::uint8_t, kMemorySize>;

// The low 8 bits of the sum of all bytes.
std::uint8_t Checksum(const Memory& memory);

// What the radio holds before anybody has programmed it from a file: some channels of every kind
// (simplex, repeaters with tones and shifts, one on a half kilohertz, split, masked, a pair of scan
// limits), every VFO and home slot on a frequency of its band, two autodial numbers, no groups.
Memory BuiltInMemory();

}  // namespace qz7radio
