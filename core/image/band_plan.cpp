#include "core/image/band_plan.h"

#include <algorithm>
#include <span>

namespace qz7 {
namespace {

// Megahertz to frequency units, exact for the borders of the tables below.
constexpr Frequency Mhz(double megahertz) {
  // NOLINTNEXTLINE(bugprone-incorrect-roundings): every border is positive
  return HundredHertz(static_cast<std::int64_t>(megahertz * 10'000 + 0.5));
}

struct Range {  // low <= f < high
  Frequency low;
  Frequency high;
};

constexpr Range MhzRange(double low, double high) { return {Mhz(low), Mhz(high)}; }
// A range whose upper end belongs to it.
constexpr Range MhzInclusive(double low, double high) {
  return {Mhz(low), Mhz(high) + HundredHertz(1)};
}

bool Holds(Range range, Frequency f) { return range.low <= f && f < range.high; }

bool AnyHolds(std::span<const Range> ranges, Frequency f) {
  return std::any_of(ranges.begin(), ranges.end(), [f](Range range) { return Holds(range, f); });
}

// The three sets of limits that the region variants choose from. Sub-variants above 5 have no FM,
// no 6m, no TV and no Act2 band.
enum class Limits { kVariant0, kVariant1, kVariant2, kNone };

Limits LimitsOf(const RegionVariant& region) {
  if (region.variant == Variant::kOne) {
    return Limits::kVariant1;
  }
  if (region.variant != Variant::kTwo) {
    return Limits::kVariant0;
  }
  switch (region.sub_variant) {
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

bool InMw(Frequency f, const RegionVariant& region) {
  return Holds(MhzRange(region.variant == Variant::kZero ? 0.5 : 0.504, 1.8), f);
}

bool InFm(Frequency f, const RegionVariant& region) {
  switch (LimitsOf(region)) {
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

bool InTv(Frequency f, const RegionVariant& region) {
  if (LimitsOf(region) == Limits::kNone) {
    return false;
  }
  if (Holds(MhzRange(174, 222), f)) {
    return true;
  }
  switch (LimitsOf(region)) {
    case Limits::kVariant1:
      return Holds(MhzRange(88, 108), f) || Holds(MhzRange(470, 770), f);
    case Limits::kVariant0:
      return Holds(MhzRange(470, 729), f);
    default:
      return Holds(MhzRange(470, 800), f);
  }
}

bool InSixMetres(Frequency f, const RegionVariant& region) {
  switch (LimitsOf(region)) {
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

bool InAct2(Frequency f, const RegionVariant& region) {
  switch (LimitsOf(region)) {
    case Limits::kVariant1:
      return Holds(MhzInclusive(770, 999), f);
    case Limits::kVariant0:
      return Holds(MhzInclusive(800, 999), f) && (region.extended_version || !InCellularBlock(f));
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

constexpr std::array<StepChoice, 9> kFullSteps = {{{"5 kHz", Step::kKhz5},
                                                   {"9 kHz", Step::kKhz9},
                                                   {"10 kHz", Step::kKhz10},
                                                   {"12.5 kHz", Step::kKhz12Half},
                                                   {"15 kHz", Step::kKhz15},
                                                   {"20 kHz", Step::kKhz20},
                                                   {"25 kHz", Step::kKhz25},
                                                   {"50 kHz", Step::kKhz50},
                                                   {"100 kHz", Step::kKhz100}}};
// "20 kHz" of the short list stores 3 on purpose, which a record reads as 15 kHz.
constexpr std::array<StepChoice, 6> kShortSteps = {{{"10 kHz", Step::kKhz10},
                                                    {"12.5 kHz", Step::kKhz12Half},
                                                    {"20 kHz", Step::kKhz15},
                                                    {"25 kHz", Step::kKhz25},
                                                    {"50 kHz", Step::kKhz50},
                                                    {"100 kHz", Step::kKhz100}}};

bool HasShortSteps(std::optional<Frequency> f, int n, const RegionVariant& region) {
  constexpr std::array kShortBands = {Band::kSixMetres, Band::kFm, Band::kAct2};
  const auto in = [&](Band band) { return InBand(band, *f, region); };
  if (!f) {
    const bool slot = IsSpecialSlot(n) && SlotOf(n) < kSpecialSlotCount;
    return slot &&
           std::find(kShortBands.begin(), kShortBands.end(), SlotBand(n)) != kShortBands.end();
  }
  static constexpr std::array kRanges = {MhzRange(48, 76), MhzRange(250, 300), MhzRange(580, 999)};
  return std::any_of(kShortBands.begin(), kShortBands.end(), in) || AnyHolds(kRanges, *f);
}

}  // namespace

bool InBand(Band band, Frequency f, const RegionVariant& region) {
  switch (band) {
    case Band::kMw:
      return InMw(f, region);
    case Band::kSw:
      return Holds(MhzRange(1.8, 16), f);
    case Band::kFm:
      return InFm(f, region);
    case Band::kTv:
      return InTv(f, region);
    case Band::kSixMetres:
      return InSixMetres(f, region);
    case Band::kVHam:
      return Holds(MhzRange(137, 174), f);
    case Band::kUHam:
      return Holds(MhzRange(420, 470), f);
    case Band::kAir:
      return Holds(MhzRange(108, 137), f);
    case Band::kAct1:
      return Holds(MhzRange(222, 420), f);
    case Band::kAct2:
      return InAct2(f, region);
    default:
      return false;
  }
}

Band BandOf(Frequency f, const RegionVariant& region) {
  for (int band = 0; band < kBandCount; ++band) {
    if (InBand(static_cast<Band>(band), f, region)) {
      return static_cast<Band>(band);
    }
  }
  return Band::kOutsideEveryBand;
}

bool IsValidFrequency(const CloneImage& image, Frequency f) {
  return AnyHolds(ValidRanges(image), f);
}

Step DefaultStep(Frequency f, const RegionVariant& region) {
  static constexpr std::array<Step, kBandCount + 1> kSteps = {
      Step::kKhz10, Step::kKhz5,  Step::kKhz25,     Step::kKhz50, Step::kKhz10, Step::kKhz5,
      Step::kKhz25, Step::kKhz25, Step::kKhz12Half, Step::kKhz10, Step::kKhz5};
  const Band band = BandOf(f, region);
  if (band == Band::kMw && region.extended_version) {
    return Step::kKhz9;
  }
  return kSteps[static_cast<std::size_t>(band)];
}

Frequency DefaultBandOffset(Frequency f, const RegionVariant& region) {
  switch (BandOf(f, region)) {
    case Band::kSixMetres:
      return Kilohertz(500);
    case Band::kVHam:
      return Kilohertz(600);
    case Band::kUHam:
      return Megahertz(5);
    default:
      return {};
  }
}

Frequency DefaultBandFrequency(Band band) {
  static constexpr std::array<Frequency, kBandCount> kFrequencies = {
      Kilohertz(540), Kilohertz(1800), Megahertz(88),  Megahertz(174), Megahertz(52),
      Megahertz(145), Megahertz(430),  Megahertz(108), Megahertz(380), Megahertz(800)};
  return kFrequencies[static_cast<std::size_t>(band)];
}

std::vector<StepChoice> FillStepList(std::optional<Frequency> f, int n,
                                     const RegionVariant& region) {
  if (HasShortSteps(f, n, region)) {
    return {kShortSteps.begin(), kShortSteps.end()};
  }
  std::vector<StepChoice> steps(kFullSteps.begin(), kFullSteps.end());
  if (!region.extended_version) {
    std::erase_if(steps, [](const StepChoice& choice) { return choice.step == Step::kKhz9; });
  }
  return steps;
}

}  // namespace qz7
