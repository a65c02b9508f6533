#include "core/image/band_plan.h"

#include <algorithm>

namespace qz7 {
namespace {

// Megahertz to frequency units, exact for the borders of the tables below.
constexpr Frequency Mhz(double megahertz) {
  // NOLINTNEXTLINE(bugprone-incorrect-roundings): every border is positive
  return static_cast<Frequency>(megahertz * kMegahertz + 0.5);
}

struct Range {  // low <= f < high
  Frequency low;
  Frequency high;
};

constexpr Range MhzRange(double low, double high) { return {Mhz(low), Mhz(high)}; }
// A range whose upper end belongs to it.
constexpr Range MhzInclusive(double low, double high) { return {Mhz(low), Mhz(high) + 1}; }

bool Holds(Range range, Frequency f) { return range.low <= f && f < range.high; }

bool AnyHolds(std::span<const Range> ranges, Frequency f) {
  return std::any_of(ranges.begin(), ranges.end(), [f](Range range) { return Holds(range, f); });
}

// The three sets of limits that the region variants choose from. Sub-variants above 5 have no FM,
// no 6m, no TV and no Act2 band.
enum class Limits { kVariant0, kVariant1, kVariant2, kNone };

Limits CurrentLimits() {
  if (region_variant.region == 1) {
    return Limits::kVariant1;
  }
  if (region_variant.region != 2) {
    return Limits::kVariant0;
  }
  switch (region_variant.sub_variant) {
    case 0:
      return Limits::kVariant1;
    case 1:
      return Limits::kVariant0;
    case 2:
    case 3:
    case 4:
    case 5:
      return Limits::kVariant2;
    default:
      return Limits::kNone;
  }
}

bool InMw(Frequency f) { return Holds(MhzRange(region_variant.region == 0 ? 0.5 : 0.504, 1.8), f); }

bool InFm(Frequency f) {
  switch (CurrentLimits()) {
    case Limits::kVariant1:
      return Holds(MhzInclusive(76, 88), f);
    case Limits::kVariant0:
      return Holds(MhzInclusive(59, 108), f);
    case Limits::kVariant2:
      return Holds(MhzInclusive(88, 108), f);
    default:
      return false;
  }
}

bool InTv(Frequency f) {
  if (CurrentLimits() == Limits::kNone) {
    return false;
  }
  if (Holds(MhzRange(174, 222), f)) {
    return true;
  }
  switch (CurrentLimits()) {
    case Limits::kVariant1:
      return Holds(MhzRange(88, 108), f) || Holds(MhzRange(470, 770), f);
    case Limits::kVariant0:
      return Holds(MhzRange(470, 729), f);
    default:
      return Holds(MhzRange(470, 800), f);
  }
}

bool InSixMetres(Frequency f) {
  switch (CurrentLimits()) {
    case Limits::kVariant1:
      return Holds(MhzRange(48, 76), f);
    case Limits::kVariant0:
      return Holds(MhzRange(48, 59), f);
    case Limits::kVariant2:
      return Holds(MhzRange(48, 88), f);
    default:
      return false;
  }
}

bool InCellularBlock(Frequency f) {
  static constexpr std::array<Range, 4> kBlocks = {MhzRange(823.9901, 849), MhzRange(867.9901, 894),
                                                   MhzRange(917.9901, 944),
                                                   MhzRange(962.9901, 989)};
  return AnyHolds(kBlocks, f);
}

bool InAct2(Frequency f) {
  switch (CurrentLimits()) {
    case Limits::kVariant1:
      return Holds(MhzInclusive(770, 999), f);
    case Limits::kVariant0:
      return Holds(MhzInclusive(800, 999), f) &&
             (region_variant.extended_version || !InCellularBlock(f));
    case Limits::kVariant2:
      return Holds(MhzInclusive(800, 999), f);
    default:
      return false;
  }
}

// What a radio of each version accepts.
constexpr std::array kType0Wide = {MhzRange(0.5, 1.8), MhzRange(1.8, 16),  MhzRange(48, 59),
                                   MhzRange(59, 108),  MhzRange(108, 137), MhzRange(137, 174),
                                   MhzRange(174, 222), MhzRange(222, 420), MhzRange(420, 470),
                                   MhzRange(470, 729), MhzRange(800, 824), MhzRange(849, 869),
                                   MhzRange(894, 918), MhzRange(944, 963), MhzRange(989, 999)};
constexpr std::array kType0Ham = {MhzRange(50, 54), MhzRange(144, 148), MhzRange(430, 450)};
constexpr std::array kType1Narrow = {MhzRange(0.504, 1.8), MhzRange(1.8, 16),  MhzRange(50, 54),
                                     MhzRange(76, 88),     MhzRange(88, 108),  MhzRange(144, 146),
                                     MhzRange(174, 222),   MhzRange(430, 440), MhzRange(470, 770)};
constexpr std::array kType1Wide = {MhzRange(0.504, 1.8), MhzRange(1.8, 16),  MhzRange(48, 76),
                                   MhzRange(76, 88),     MhzRange(88, 108),  MhzRange(108, 137),
                                   MhzRange(137, 174),   MhzRange(174, 222), MhzRange(222, 420),
                                   MhzRange(420, 470),   MhzRange(470, 770), MhzRange(770, 999)};
constexpr std::array kType2Wide = {MhzRange(0.504, 1.8), MhzRange(1.8, 16),  MhzRange(48, 88),
                                   MhzRange(88, 108),    MhzRange(108, 137), MhzRange(137, 174),
                                   MhzRange(174, 222),   MhzRange(222, 420), MhzRange(420, 470),
                                   MhzRange(470, 800),   MhzRange(800, 999)};
constexpr std::array kType2Ham = {MhzRange(50, 52), MhzRange(144, 146), MhzRange(430, 440)};
constexpr std::array kType2Subtype4 = {MhzRange(50, 52), MhzRange(144, 146), MhzRange(432, 438)};

std::span<const Range> Type2Ranges(int subtype, int wide) {
  if (wide == 1) {
    return kType2Wide;
  }
  switch (subtype) {
    case 2:
    case 3:
    case 5:
      return kType2Ham;
    case 4:
      return kType2Subtype4;
    default:
      return {};
  }
}

std::span<const Range> ValidRanges(const CloneImage& image) {
  const int type = image[kVersionType];
  const int subtype = image[kVersionSubtype];
  const int wide = image[kWideCoverage];
  // The wide flag is on purpose tested against 1 in the first case and against 0 in the second.
  if (type == 0 || (type == 2 && subtype == 1)) {
    return wide == 1 ? std::span<const Range>(kType0Wide) : kType0Ham;
  }
  if (type == 1 || (type == 2 && subtype == 0)) {
    return wide == 0 ? std::span<const Range>(kType1Narrow) : kType1Wide;
  }
  return type == 2 ? Type2Ranges(subtype, wide) : std::span<const Range>();
}

constexpr std::array<StepChoice, 9> kFullSteps = {{{"5 kHz", 0},
                                                   {"9 kHz", 8},
                                                   {"10 kHz", 1},
                                                   {"12.5 kHz", 2},
                                                   {"15 kHz", 3},
                                                   {"20 kHz", 4},
                                                   {"25 kHz", 5},
                                                   {"50 kHz", 6},
                                                   {"100 kHz", 7}}};
// "20 kHz" of the short list stores 3 on purpose, which a record reads as 15 kHz.
constexpr std::array<StepChoice, 6> kShortSteps = {
    {{"10 kHz", 1}, {"12.5 kHz", 2}, {"20 kHz", 3}, {"25 kHz", 5}, {"50 kHz", 6}, {"100 kHz", 7}}};

bool HasShortSteps(std::optional<Frequency> f, int n) {
  if (!f) {
    const int band = IsSpecialSlot(n) && SlotOf(n) < kSpecialSlotCount ? SlotBand(n) : -1;
    return band == kFm || band == kSixMetres || band == kAct2;
  }
  static constexpr std::array kRanges = {MhzRange(48, 76), MhzRange(250, 300), MhzRange(580, 999)};
  return InBand(kSixMetres, *f) || InBand(kFm, *f) || InBand(kAct2, *f) || AnyHolds(kRanges, *f);
}

}  // namespace

RegionVariant region_variant;

bool InBand(int band, Frequency f) {
  switch (band) {
    case kMw:
      return InMw(f);
    case kSw:
      return Holds(MhzRange(1.8, 16), f);
    case kFm:
      return InFm(f);
    case kTv:
      return InTv(f);
    case kSixMetres:
      return InSixMetres(f);
    case kVHam:
      return Holds(MhzRange(137, 174), f);
    case kUHam:
      return Holds(MhzRange(420, 470), f);
    case kAir:
      return Holds(MhzRange(108, 137), f);
    case kAct1:
      return Holds(MhzRange(222, 420), f);
    case kAct2:
      return InAct2(f);
    default:
      return false;
  }
}

int BandOf(Frequency f) {
  int band = kMw;
  while (band < kOutsideEveryBand && !InBand(band, f)) {
    ++band;
  }
  return band;
}

bool IsValidFrequency(const CloneImage& image, Frequency f) {
  return AnyHolds(ValidRanges(image), f);
}

int DefaultStep(Frequency f) {
  static constexpr std::array<int, kBandCount + 1> kSteps = {1, 0, 5, 6, 1, 0, 5, 5, 2, 1, 0};
  const int band = BandOf(f);
  if (band == kMw && region_variant.extended_version) {
    return 8;
  }
  return kSteps[static_cast<std::size_t>(band)];
}

Frequency DefaultBandOffset(Frequency f) {
  switch (BandOf(f)) {
    case kSixMetres:
      return 500 * kKilohertz;
    case kVHam:
      return 600 * kKilohertz;
    case kUHam:
      return 5 * kMegahertz;
    default:
      return 0;
  }
}

Frequency DefaultBandFrequency(int band) {
  static constexpr std::array<Frequency, kBandCount> kFrequencies = {
      5'400,     18'000,    880'000,   1'740'000, 520'000,
      1'450'000, 4'300'000, 1'080'000, 3'800'000, 8'000'000};
  return kFrequencies[static_cast<std::size_t>(band)];
}

std::vector<StepChoice> FillStepList(std::optional<Frequency> f, int n) {
  if (HasShortSteps(f, n)) {
    return {kShortSteps.begin(), kShortSteps.end()};
  }
  std::vector<StepChoice> steps(kFullSteps.begin(), kFullSteps.end());
  if (!region_variant.extended_version) {
    steps.erase(steps.begin() + 1);
  }
  return steps;
}

}  // namespace qz7
