#pragma once

#include <array>
#include <optional>
#include <vector>

#include "core/image/channel_codes.h"
#include "core/image/clone_image.h"
#include "core/image/frequency.h"
#include "core/image/region_variant.h"

namespace qz7 {

// The first band, in the order of Band, whose range holds f; kOutsideEveryBand for none.
Band BandOf(Frequency f, const RegionVariant& region);
// Whether f lies in that band's own range; false for kOutsideEveryBand.
bool InBand(Band band, Frequency f, const RegionVariant& region);

// Whether the radio of this image (its version bytes) accepts f.
bool IsValidFrequency(const CloneImage& image, Frequency f);

// The default step of f's band.
Step DefaultStep(Frequency f, const RegionVariant& region);
// The default repeater offset of f's band: 6m 500 kHz, V Ham 600 kHz, U Ham 5 MHz, others 0.
Frequency DefaultBandOffset(Frequency f, const RegionVariant& region);
// The frequency that a special slot of a band starts from.
Frequency DefaultBandFrequency(Band band);

struct StepChoice {
  const char* text;
  Step step;  // what the record stores
};

// The steps to choose from for a frequency, or for a new channel n without one. The list depends on
// the frequency alone once there is one.
std::vector<StepChoice> FillStepList(std::optional<Frequency> f, int n,
                                     const RegionVariant& region);

inline constexpr std::array<const char*, 6> kOffsetChoices = {"600 kHz", "1 MHz", "1.6 MHz",
                                                              "3 MHz",   "5 MHz", "7.6 MHz"};

}  // namespace qz7
