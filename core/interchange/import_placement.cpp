#include "core/interchange/import_placement.h"

#include <algorithm>
#include <string_view>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"

namespace qz7 {
namespace {

constexpr Frequency kOffsetStep = 5 * kKilohertz;

Frequency ReceiveOf(const ImportRecord& record) { return static_cast<Frequency>(record.rx); }

bool IsUhf(const ImportRecord& record) { return record.rx >= kImportUhf; }

// A record without an offset gets a tenth of the usual one: 60 kHz or 500 kHz, as it stands.
Frequency OffsetOrDefault(const ImportRecord& record) {
  constexpr Frequency kUhfOffset = 5'000;
  constexpr Frequency kVhfOffset = 600;
  if (record.tx != 0) {
    return static_cast<Frequency>(record.tx);
  }
  return IsUhf(record) ? kUhfOffset : kVhfOffset;
}

Frequency SplitTransmit(const CloneImage& image, const ImportRecord& record) {
  constexpr Frequency kUhfTransmit = 50'000;
  constexpr Frequency kVhfTransmit = 6'000;
  const Frequency transmit = OffsetOrDefault(record);
  if (IsValidFrequency(image, transmit)) {
    return transmit;
  }
  return IsUhf(record) ? kUhfTransmit : kVhfTransmit;
}

// Whether an odd split's transmit frequency is stored as it is: on a 500 Hz step, or a 6.25 kHz
// frequency whose half kilohertz is cut.
bool IsStoredWhole(Frequency transmit) {
  constexpr std::int64_t kGrid = 625;
  return transmit % 5 == 0 || (std::int64_t{transmit} * 10 + 5) * 10 % kGrid == 0;
}

int PackedByte(const ImportRecord& record) {
  const int power = record.power == kImportLow ? kLow3 : kHigh;
  return record.shift | power << 2 | record.tone_mode << 4;
}

// A tone that the radio does not have is stored as 255.
std::uint8_t ToneIndex(const ImportRecord& record) {
  if (record.encode_tone == 0) {
    return kDefaultToneIndex;
  }
  return static_cast<std::uint8_t>(FindTone(record.encode_tone).value_or(-1));
}

std::string_view RadioName(const ImportRecord& record) {
  return FieldText(record.name.data(), kNameLength);
}

ChannelRecord MakeRecord(const CloneImage& image, const ImportRecord& imported) {
  constexpr int kGridBits = 3;
  ChannelRecord record{};
  const auto encode = [&](std::size_t at, Frequency value) {
    EncodeBcdFrequency(record.data() + at, value, kFrequencyDigits);
  };
  const Frequency receive = ReceiveOf(imported);
  const Frequency offset = OffsetOrDefault(imported);
  const int receive_grid = GridClass(receive) & kGridBits;
  int transmit_grid = receive_grid;
  encode(kRecordReceive, receive);
  encode(kRecordOffset, offset - offset % kOffsetStep);
  if (imported.shift == kOddSplit) {
    const Frequency transmit = SplitTransmit(image, imported);
    transmit_grid = GridClass(transmit) & kGridBits;
    if (IsStoredWhole(transmit)) {
      encode(kRecordOffset, transmit);
    }
  }
  record[kRecordGrid] = static_cast<std::uint8_t>(receive_grid | transmit_grid << 2);
  record[kRecordStep] = static_cast<std::uint8_t>(DefaultStep(receive));
  record[kRecordShiftPowerTone] = static_cast<std::uint8_t>(PackedByte(imported));
  record[kRecordTone] = ToneIndex(imported);
  const std::string_view name = RadioName(imported);
  std::fill_n(record.begin() + kRecordName, kNameLength, std::uint8_t{' '});
  std::copy(name.begin(), name.end(), record.begin() + kRecordName);
  return record;
}

// "----" stands for no name in the table, while the record keeps it.
void StoreTableName(CloneImage& image, int n, std::string_view name) {
  std::uint8_t* entry = NameEntry(image, n);
  std::fill_n(entry, kNameLength + 1, std::uint8_t{0});
  if (name != "----") {
    std::copy(name.begin(), name.end(), entry);
  }
}

}  // namespace

int FreeRunLength(const CloneImage& image, int first, PmsPairs pms) {
  const int excluded = pms == PmsPairs::kExcluded ? kPmsChannelCount : 0;
  const int limit = std::min(GetChannelCount(image) - excluded, kChannelCount);
  int n = first;
  while (n >= 1 && n <= limit && !IsProgrammed(image, n)) {
    ++n;
  }
  return n - first;
}

int DefaultStartChannel(const CloneImage& image) {
  constexpr int kLastStartFromEnd = 5;
  int best = 0;
  int best_start = 0;
  for (int s = 1; s <= GetChannelCount(image) - kLastStartFromEnd; ++s) {
    const int length = FreeRunLength(image, s, PmsPairs::kExcluded);
    if (length > best) {
      best = length;
      best_start = s;
      s += length;
    }
  }
  return best_start != 0 ? best_start : 1;
}

void PlaceImportRecord(CloneImage& image, const ImportRecord& record, int n) {
  std::uint8_t* target = GetChannelRecord(image, n);
  if (n < 1 || target == nullptr || !IsValidFrequency(image, ReceiveOf(record))) {
    return;
  }
  const ChannelRecord made = MakeRecord(image, record);
  SetSkip(image, n, record.skip);
  StoreTableName(image, n, RadioName(record));
  std::uint8_t* flags = GetChannelFlagByte(image, n);
  *flags = static_cast<std::uint8_t>((*flags | kFlagProgrammed) & ~kFlagOption);
  std::copy(made.begin(), made.end(), target);
  std::copy(record.comment.begin(), record.comment.end(), ChannelComment(image, n));
  SetMasked(image, n, false);
}

}  // namespace qz7
