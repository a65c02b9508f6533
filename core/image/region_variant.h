#pragma once

#include <cstdint>

namespace qz7 {

enum class Variant : std::uint8_t { kZero, kOne, kTwo };

// The market that the program's band limits follow. Nothing assigns `variant` or `sub_variant`
// today, so variant 0 is in use. `extended_version` is cleared at start-up and set by template
// creation from a radio of version type 2: it offers the 9 kHz step, gives MW that default step and
// lifts the cellular blocks of Act2.
struct RegionVariant {
  Variant variant = Variant::kZero;
  int sub_variant = 0;  // of variant 2 only: 0..5
  bool extended_version = false;
};

}  // namespace qz7
