#pragma once

#include <cstdint>

namespace qz7 {

// A frequency, an offset or a grid distance in units of 100 Hz: 146.52 MHz is 1465200.
using Frequency = std::int32_t;

inline constexpr Frequency kKilohertz = 10;
inline constexpr Frequency kMegahertz = 10'000;

}  // namespace qz7
