#include "core/image/operating_state.h"

#include <algorithm>
#include <optional>

#include "core/image/channel_record.h"

namespace qz7 {
namespace {

constexpr std::uint8_t kHalfKilohertzMark = 'P';

bool IsMemoryMode(int mode) { return mode == 0 || mode == 2 || mode == 3 || mode == 4; }

ChannelRecord RecordAt(const CloneImage& image, std::size_t offset) {
  ChannelRecord record{};
  std::copy_n(image.begin() + static_cast<std::ptrdiff_t>(offset), kRecordSize, record.begin());
  return record;
}

// The record of the channel that the radio stands on. A memory channel that is not programmed is
// given up for channel 1.
std::optional<ChannelRecord> OperatingRecord(CloneImage& image) {
  const int mode = image[kOperatingMode];
  const bool second_bank = image[kVfoBankSelector] != 0;
  const std::size_t band = image[second_bank ? kCurrentBandB : kCurrentBandA];
  if (IsMemoryMode(mode)) {
    if (!IsProgrammed(image, image[kCurrentMemory] + 1)) {
      image[kCurrentMemory] = 0;
    }
    const std::uint8_t* record = GetChannelRecord(image, image[kCurrentMemory] + 1);
    return record == nullptr
               ? std::nullopt
               : std::optional(RecordAt(image, static_cast<std::size_t>(record - image.data())));
  }
  // The radio counts its bands from the record behind the bank's first: the "+ 1" is wanted.
  if (mode == 1) {
    const Region bank = second_bank ? kVfoBankB : kVfoBankA;
    return RecordAt(image, bank.offset + kRecordSize * (band + 1));
  }
  if (mode == 5) {
    return RecordAt(image, kHomeRecords.offset + kRecordSize * (band + 1));
  }
  return std::nullopt;
}

void Unpack(CloneImage& image, const ChannelRecord& record) {
  const auto copy = [&](std::size_t from, std::size_t size, std::size_t to) {
    std::copy_n(record.begin() + static_cast<std::ptrdiff_t>(from), size, image.begin() + to);
  };
  const auto put = [&](std::size_t offset, int value) {
    image[offset] = static_cast<std::uint8_t>(value);
  };
  put(kOperatingGrid, record[kRecordGrid]);
  put(kOperatingPower, ReadBits(record, kRecordPowerBits));
  put(kOperatingStep, record[kRecordStep]);
  put(kOperatingShift, ReadBits(record, kRecordShiftBits));
  put(kOperatingToneMode, ReadBits(record, kRecordToneModeBits));
  put(kOperatingTone, record[kRecordTone]);
  put(kOperatingDcs, record[kRecordDcs]);
  put(kOperatingRadioMode, ReadBits(record, kRecordModeBits));
  copy(kRecordReceive, kFrequencyBytes, kOperatingReceive);
  copy(kRecordOffset, kFrequencyBytes, kOperatingOffset);
  copy(kRecordName, kNameLength, kOperatingName);
}

// Whether the last digit of a kilohertz field stands for a lost half kilohertz.
bool EndsInHalfKilohertz(const CloneImage& image, std::size_t field) {
  const int digit = image[field + kFrequencyBytes - 1] & 0x0F;
  return digit == 2 || digit == 7;
}

}  // namespace

void RefreshOperatingState(CloneImage& image) {
  const std::optional<ChannelRecord> record = OperatingRecord(image);
  if (!record) {
    return;
  }
  Unpack(image, *record);
  image[kOperatingReceiveMark] =
      EndsInHalfKilohertz(image, kOperatingReceive) ? kHalfKilohertzMark : 0;
  // An offset without the mark clears the receive mark, not its own: the asymmetry is wanted.
  if (EndsInHalfKilohertz(image, kOperatingOffset)) {
    image[kOperatingOffsetMark] = kHalfKilohertzMark;
  } else {
    image[kOperatingReceiveMark] = 0;
  }
  if (IsMemoryMode(image[kOperatingMode])) {
    const std::uint8_t* flags = GetChannelFlagByte(image, image[kCurrentMemory] + 1);
    image[kCurrentMemoryFlags] = flags != nullptr ? *flags : 0;
  }
}

void MirrorOperatingChannel(CloneImage& image) {
  const int selector = image[kVfoBankSelector];
  if (selector > 1) {
    return;
  }
  const std::size_t table = selector == 0 ? kVfoBankA.offset : kVfoBankB.offset;
  const ChannelRecord record = RecordAt(image, table + image[kVfoSlotIndex] * kRecordSize);
  Unpack(image, record);
  std::copy_n(record.begin() + kRecordKept, 2, image.begin() + kOperatingKept);
}

}  // namespace qz7
