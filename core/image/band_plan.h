#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/image/frequency.h"

namespace qz7 {

enum Band : int {
  kMw,
  kSw,
  kFm,
  kTv,
  kSixMetres,
  kVHam,
  kUHam,
  kAir,
  kAct1,
  kAct2,
  kOutsideEveryBand
};

inline constexpr std::array<const char*, kBandCount> kBandNames = {
    "MW", "SW", "FM", "TV", "6m", "V Ham", "U Ham", "Air", "Act1", "Act2"};

// The market that the program's band limits follow, one for the whole run. Nothing assigns
// `region` or `sub_variant` today, so region 0 is in use. `extended_version` is cleared at
// start-up and set by template creation from a radio of version type 2: it offers the 9 kHz step,
// gives MW that default step and lifts the cellular blocks of Act2.
struct RegionVariant {
  int region = 0;       // 0, 1 or 2
  int sub_variant = 0;  // of region 2 only: 0..5
  bool extended_version = false;
};
extern RegionVariant region_variant;

// The first band, in the order of Band, whose range holds f; kOutsideEveryBand (10) for none.
int BandOf(Frequency f);
// Whether f lies in that band's own range; false for a band outside 0..9.
bool InBand(int band, Frequency f);

// Whether the radio of this image (its version bytes) accepts f.
bool IsValidFrequency(const CloneImage& image, Frequency f);

// The default step index of f's band.
int DefaultStep(Frequency f);
// The default repeater offset of f's band: 6m 500 kHz, V Ham 600 kHz, U Ham 5 MHz, others 0.
Frequency DefaultBandOffset(Frequency f);
// The frequency that a special slot starts from, by band 0..9.
Frequency DefaultBandFrequency(int band);

struct StepChoice {
  const char* text;
  int index;  // what the record stores
};

// The steps to choose from for a frequency, or for a new channel n without one. The list depends on
// the frequency alone once there is one.
std::vector<StepChoice> FillStepList(std::optional<Frequency> f, int n);

inline constexpr std::array<const char*, 6> kOffsetChoices = {"600 kHz", "1 MHz", "1.6 MHz",
                                                              "3 MHz",   "5 MHz", "7.6 MHz"};

}  // namespace qz7
