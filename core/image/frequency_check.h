#pragma once

#include "core/image/channel_codes.h"
#include "core/image/clone_image.h"
#include "core/image/frequency.h"
#include "core/image/region_variant.h"

namespace qz7 {

inline constexpr const char* kReceiveRefused = "A valid receive frequency is required";
inline constexpr const char* kTransmitRefused = "A valid transmit frequency is required";
inline constexpr const char* kOffsetErrorTitle = "Tx Shift Error";

// Why an offset is refused, or null: at most 99.95 MHz, in steps of 5 kHz (the message speaks of
// 50 kHz; both are meant as they stand).
const char* CheckOffset(Frequency offset);

// The transmit frequency that the editor shows for simplex, minus and plus; the receive frequency
// when that is zero, or when the result is negative or 999.9001 MHz or above. For odd split it is
// `transmit`, the field's own value.
Frequency RecomputeTransmit(Frequency receive, Shift shift, Frequency offset, Frequency transmit);

enum class ReceiveCheck {
  kAccepted,
  kRefused,       // show kReceiveRefused, focus on the receive field
  kClearChannel,  // a memory channel without a receive frequency: clear it
};

// Checks the receive frequency of channel n: valid for the radio's version, on a grid, and for a
// special slot inside the slot's own band.
ReceiveCheck CheckReceive(const CloneImage& image, int n, Frequency receive,
                          const RegionVariant& region);

// Checks the transmit frequency of channel n; false means kTransmitRefused. It is the receive
// frequency that is tested once more: the transmit frequency itself is not range-checked.
bool CheckTransmit(const CloneImage& image, int n, Frequency receive, const RegionVariant& region);

}  // namespace qz7
