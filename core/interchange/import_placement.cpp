#include "core/interchange/import_placement.h"

#include <algorithm>
#include <string_view>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"

namespace qz7 {
namespace {

bool IsUhf(const ImportRecord& record) { return record.rx >= kImportUhf; }

// A record without an offset gets a tenth of the usual one: as it stands.
Frequency OffsetOrDefault(const ImportRecord& record) {
  if (record.tx != Frequency{}) {
    return record.tx;
  }
  return IsUhf(record) ? Kilohertz(500) : Kilohertz(60);
}

Frequency SplitTransmit(const CloneImage& image, const ImportRecord& record) {
  const Frequency transmit = OffsetOrDefault(record);
  if (IsValidFrequency(image, transmit)) {
    return transmit;
  }
  return IsUhf(record) ? Megahertz(5) : Kilohertz(600);
}

// Whether an odd split's transmit frequency is stored as it is: on a 500 Hz step, or a 6.25 kHz
// frequency whose half kilohertz is cut.
bool IsStoredWhole(Frequency transmit) {
  constexpr std::int64_t kGrid = 625;
  return IsMultipleOf(transmit, HundredHertz(5)) || (InTensOfHertz(transmit) + 5) * 10 % kGrid == 0;
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

ChannelRecord MakeRecord(const CloneImage& image, const ImportRecord& imported,
                         const RegionVariant& region) {
  ChannelRecord record{};
  const Frequency offset = OffsetOrDefault(imported);
  Frequency gridded = imported.rx;  // the frequency of the transmit grid
  StoreReceive(record.data(), imported.rx);
  StoreOffset(record.data(), offset - offset % Kilohertz(5));
  if (imported.shift == Shift::kOddSplit) {
    gridded = SplitTransmit(image, imported);
    if (IsStoredWhole(gridded)) {
      StoreOffset(record.data(), gridded);
    }
  }
  const Power power = imported.power == ImportPower::kLow ? Power::kLow3 : Power::kHigh;
  WriteBits(record, kReceiveGridBits, GridClass(imported.rx, region));
  WriteBits(record, kTransmitGridBits, GridClass(gridded, region));
  record[kRecordStep] = static_cast<std::uint8_t>(DefaultStep(imported.rx, region));
  WriteBits(record, kRecordShiftBits, PlaceOf(imported.shift));
  WriteBits(record, kRecordPowerBits, PlaceOf(power));
  WriteBits(record, kRecordToneModeBits, PlaceOf(imported.tone_mode));
  record[kRecordTone] = ToneIndex(imported);
  StoreRecordName(record.data(), RadioName(imported));
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
  const int last = std::min(GetChannelCount(image) - kLastStartFromEnd, kChannelCount);
  int best = 0;
  int best_start = 0;
  for (int s = 1, length = 0; s <= last; s += length + 1) {
    length = FreeRunLength(image, s, PmsPairs::kExcluded);
    if (length > best) {
      best = length;
      best_start = s;
    }
  }
  return best_start != 0 ? best_start : 1;
}

void PlaceImportRecord(CloneImage& image, const ImportRecord& record, int n,
                       const RegionVariant& region) {
  std::uint8_t* target = GetChannelRecord(image, n);
  if (n < 1 || target == nullptr || !IsValidFrequency(image, record.rx)) {
    return;
  }
  const ChannelRecord made = MakeRecord(image, record, region);
  SetSkip(image, n, record.skip);
  StoreTableName(image, n, RadioName(record));
  SetProgrammed(image, n, true);
  SetOption(image, n, false);
  std::copy(made.begin(), made.end(), target);
  std::copy(record.comment.begin(), record.comment.end(), ChannelComment(image, n));
  SetMasked(image, n, false);
}

}  // namespace qz7
