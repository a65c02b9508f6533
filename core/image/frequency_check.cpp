#include "core/image/frequency_check.h"

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "core/image/channel_text.h"

namespace qz7 {
namespace {

bool IsUsable(const CloneImage& image, Frequency f) {
  return IsValidFrequency(image, f) && GridClass(f) != kNoGrid;
}

}  // namespace

OffsetCheck CheckOffset(std::string_view text) {
  constexpr Frequency kLargestOffset = 999'500;
  constexpr Frequency kOffsetStep = 5 * kKilohertz;
  const Frequency offset = ParseOffset(text);
  if (offset > kLargestOffset) {
    return {false, kDefaultOffset, "Tx Shift must be less than 99.95MHz."};
  }
  if (offset % kOffsetStep != 0) {
    return {false, kDefaultOffset, "Tx Shift must be a 50kHz step."};
  }
  return {true, offset, nullptr};
}

Frequency RecomputeTransmit(Frequency receive, int shift, Frequency offset, Frequency transmit) {
  constexpr Frequency kTooHigh = 9'999'001;
  std::int64_t result = receive;
  switch (shift) {
    case kMinus:
      result = std::int64_t{receive} - offset;
      break;
    case kPlus:
      result = std::int64_t{receive} + offset;
      break;
    case kOddSplit:
      return transmit;
    default:
      break;
  }
  return receive == 0 || result < 0 || result >= kTooHigh ? receive
                                                          : static_cast<Frequency>(result);
}

ReceiveCheck CheckReceive(const CloneImage& image, int n, std::string_view receive_text) {
  const Frequency receive = ParseFrequency(receive_text);
  if (!IsUsable(image, receive)) {
    return IsSpecialSlot(n) || receive != 0 ? ReceiveCheck::kRefused : ReceiveCheck::kClearChannel;
  }
  if (IsSpecialSlot(n) && !InBand(SlotBand(n), receive)) {
    return ReceiveCheck::kRefused;
  }
  return ReceiveCheck::kAccepted;
}

bool CheckTransmit(const CloneImage& image, int n, std::string_view receive_text) {
  return IsSpecialSlot(n) || IsUsable(image, ParseFrequency(receive_text));
}

}  // namespace qz7
