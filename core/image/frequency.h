#pragma once

#include <compare>
#include <cstdint>

namespace qz7 {

// A frequency, an offset or a grid distance, exact to 100 Hz. Numbers become frequencies, and
// frequencies numbers, by the functions below alone, which name the unit. The range is far wider
// than that of any radio, so that sums and differences of parsed texts never overflow.
struct Frequency {
  std::int64_t hundred_hertz = 0;  // 146.52 MHz is 1465200

  // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy reads a comparison with 0 into it
  friend constexpr auto operator<=>(Frequency, Frequency) = default;
  friend constexpr Frequency operator+(Frequency a, Frequency b) {
    return {a.hundred_hertz + b.hundred_hertz};
  }
  friend constexpr Frequency operator-(Frequency a, Frequency b) {
    return {a.hundred_hertz - b.hundred_hertz};
  }
  // What is left over from a multiple of `step`.
  friend constexpr Frequency operator%(Frequency f, Frequency step) {
    return {f.hundred_hertz % step.hundred_hertz};
  }
};

constexpr Frequency HundredHertz(std::int64_t count) { return {count}; }
constexpr Frequency Kilohertz(std::int64_t count) { return {count * 10}; }
constexpr Frequency Megahertz(std::int64_t count) { return {count * 10'000}; }
// Tens of hertz, the unit of the channel summary; a rest below 100 Hz is dropped.
constexpr Frequency TensOfHertz(std::int64_t count) { return {count / 10}; }

constexpr std::int64_t WholeKilohertz(Frequency f) { return f.hundred_hertz / 10; }
constexpr std::int64_t InTensOfHertz(Frequency f) { return f.hundred_hertz * 10; }

constexpr bool IsMultipleOf(Frequency f, Frequency step) { return f % step == Frequency{}; }

// A multiple of 6.25 kHz, the grid that the unit is too coarse for.
constexpr bool IsOnSixKilohertzGrid(Frequency f) { return InTensOfHertz(f) % 625 == 0; }

}  // namespace qz7
