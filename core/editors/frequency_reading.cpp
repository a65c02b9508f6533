#include "core/editors/frequency_reading.h"

#include <array>

#include "core/image/band_plan.h"
#include "core/image/blanks.h"
#include "core/image/channel_text.h"
#include "core/image/frequency_check.h"

namespace qz7 {
namespace {

constexpr const char* kOutside = "outside the bands";
constexpr const char* kNoStep = "on no step";

// Leaving the field writes the text out in full, and it is that text which counts: 145000000 is
// 145000.0000 first, and those are kilohertz.
Frequency AsOkReads(std::string_view text) {
  return ParseFrequency(FormatFrequency(ParseFrequency(text)));
}

std::string InMegahertz(Frequency f) { return WithoutLeadingBlanks(FormatFrequency(f)) + " MHz"; }

// The amateur bands by their wavelength, within what the menus name.
std::string BandText(Frequency f, const RegionVariant& region) {
  const auto within = [f](int low, int high) {
    return f >= Megahertz(low) && f <= Megahertz(high);
  };
  if (within(144, 148)) {
    return "2 m";
  }
  if (within(430, 450)) {
    return "70 cm";
  }
  const Band band = BandOf(f, region);
  return band == Band::kOutsideEveryBand ? kOutside : NameOf(kBandNames, band);
}

std::string StepsText(Frequency f, const RegionVariant& region) {
  constexpr std::array<const char*, 3> kSteps = {"5 kHz steps", "6.25 kHz steps", "9 kHz steps"};
  const int grid = GridClass(f, region);
  return grid == kNoGrid ? kNoStep : kSteps[static_cast<std::size_t>(grid)];
}

std::string Reading(Frequency f, const RegionVariant& region, const std::string& end) {
  return InMegahertz(f) + ", " + BandText(f, region) + ", " + end;
}

bool IsOutside(Frequency f, const RegionVariant& region) { return BandText(f, region) == kOutside; }

std::string OutsideReading(Frequency f) { return InMegahertz(f) + ", " + kOutside; }

std::string NoReceive(int n, std::string_view text) {
  if (!IsEmptyFrequency(text)) {
    return "Not a frequency";
  }
  return IsSpecialSlot(n) ? "No frequency: this channel needs one"
                          : "No frequency: OK leaves the channel empty";
}

}  // namespace

std::string ReceiveReading(const CloneImage& image, int n, std::string_view text,
                           const RegionVariant& region) {
  const Frequency f = AsOkReads(text);
  if (f == Frequency{}) {
    return NoReceive(n, text);
  }
  if (CheckReceive(image, n, f, region) == ReceiveCheck::kAccepted) {
    return Reading(f, region, StepsText(f, region));
  }
  if (!IsValidFrequency(image, f)) {
    return IsOutside(f, region) ? OutsideReading(f)
                                : Reading(f, region, "not received by this radio");
  }
  if (GridClass(f, region) == kNoGrid) {
    return Reading(f, region, kNoStep);
  }
  return Reading(f, region, std::string("not in the band ") + NameOf(kBandNames, SlotBand(n)));
}

std::string TransmitReading(std::string_view text, const RegionVariant& region) {
  const Frequency f = AsOkReads(text);
  return IsOutside(f, region) ? OutsideReading(f) : Reading(f, region, StepsText(f, region));
}

std::string OffsetReading(Frequency offset) {
  std::string text = FormatExactOffset(offset);
  if (CheckOffset(offset) == nullptr) {
    return text;
  }
  return text +
         (IsMultipleOf(offset, Kilohertz(5)) ? ", more than 99.95 MHz" : ", not in 5 kHz steps");
}

std::string ToneListUse(std::optional<ToneMode> tone_type) {
  constexpr std::array<const char*, kToneModeNames.size()> kUses = {
      "None uses neither list.", "Tone Encode uses the CTCSS list.",
      "Tone Squelch uses the CTCSS list.", "DCS uses the DCS list."};
  return tone_type ? NameOf(kUses, *tone_type)
                   : "A tone type without a name: which list it uses is not known.";
}

}  // namespace qz7
