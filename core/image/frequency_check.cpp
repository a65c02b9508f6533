#include "core/image/frequency_check.h"

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"

namespace qz7 {
namespace {

bool IsUsable(const CloneImage& image, Frequency f, const RegionVariant& region) {
  return IsValidFrequency(image, f) && GridClass(f, region) != kNoGrid;
}

}  // namespace

const char* CheckOffset(Frequency offset) {
  constexpr Frequency kLargestOffset = Kilohertz(99'950);
  if (offset > kLargestOffset) {
    return "Tx Shift must be less than 99.95MHz.";
  }
  return IsMultipleOf(offset, Kilohertz(5)) ? nullptr : "Tx Shift must be a 50kHz step.";
}

Frequency RecomputeTransmit(Frequency receive, Shift shift, Frequency offset, Frequency transmit) {
  constexpr Frequency kTooHigh = HundredHertz(9'999'001);
  Frequency result = receive;
  switch (shift) {
    case Shift::kMinus:
      result = receive - offset;
      break;
    case Shift::kPlus:
      result = receive + offset;
      break;
    case Shift::kOddSplit:
      return transmit;
    default:
      break;
  }
  return receive == Frequency{} || result < Frequency{} || result >= kTooHigh ? receive : result;
}

ReceiveCheck CheckReceive(const CloneImage& image, int n, Frequency receive,
                          const RegionVariant& region) {
  if (!IsUsable(image, receive, region)) {
    return IsSpecialSlot(n) || receive != Frequency{} ? ReceiveCheck::kRefused
                                                      : ReceiveCheck::kClearChannel;
  }
  if (IsSpecialSlot(n) && !InBand(SlotBand(n), receive, region)) {
    return ReceiveCheck::kRefused;
  }
  return ReceiveCheck::kAccepted;
}

bool CheckTransmit(const CloneImage& image, int n, Frequency receive, const RegionVariant& region) {
  return IsSpecialSlot(n) || IsUsable(image, receive, region);
}

}  // namespace qz7
