#include "core/image/channel_record.h"

#include <algorithm>
#include <cstdlib>

#include "core/image/band_plan.h"

namespace qz7 {
namespace {

std::uint8_t WithBits(std::uint8_t byte, int mask, int bits) {
  return static_cast<std::uint8_t>((byte & ~mask) | (bits & mask));
}

std::optional<int> KnownCode(int stored, int known) {
  return stored < known ? std::optional(stored) : std::nullopt;
}

std::optional<int> ShownIndex(int stored, int count) {
  if (stored > count) {
    return 0;
  }
  return KnownCode(stored, count);
}

std::optional<int> ShownStep(int stored) {
  constexpr int kTenKilohertz = 1;
  constexpr int kNineKilohertz = 8;
  if (stored == kNineKilohertz && !region_variant.extended_version) {
    return kTenKilohertz;
  }
  return KnownCode(stored, static_cast<int>(kStepNames.size()));
}

std::string TrimmedName(const std::uint8_t* record) {
  const auto* text = reinterpret_cast<const char*>(record + kRecordName);
  std::string name(FieldText(text, kNameLength));
  name.erase(name.find_last_not_of(' ') + 1);
  return name;
}

void StoreIndex(std::uint8_t& byte, std::optional<int> index, int count) {
  if (index && *index >= 0 && *index < count) {
    byte = static_cast<std::uint8_t>(*index);
  }
}

void StoreName(std::uint8_t* name, std::string_view text) {
  std::fill_n(name, kNameLength, std::uint8_t{' '});
  std::copy_n(text.begin(), std::min(text.size(), kNameLength), name);
}

}  // namespace

Frequency DecodeBcdFrequency(const std::uint8_t* bytes, int digits) {
  Frequency value = 0;
  for (int i = 0; i < digits; ++i) {
    const int byte = bytes[i / 2];
    value = value * 10 + (i % 2 == 0 ? byte >> 4 : byte & 0x0F);
  }
  return value * kKilohertz;
}

void EncodeBcdFrequency(std::uint8_t* bytes, Frequency value, int digits) {
  std::int64_t rest = std::abs(static_cast<std::int64_t>(value)) / kKilohertz;
  for (int i = digits - 1; i >= 0; --i) {
    const int digit = static_cast<int>(rest % 10);
    std::uint8_t& byte = bytes[i / 2];
    byte = i % 2 == 0 ? WithBits(byte, 0xF0, digit << 4) : WithBits(byte, 0x0F, digit);
    rest /= 10;
  }
}

Frequency RestoreHalfKilohertz(Frequency decoded) {
  const Frequency end = decoded % 100;
  const bool lost_half = end == 20 || end == 70;
  return lost_half && !InBand(kMw, decoded) ? decoded + kKilohertz / 2 : decoded;
}

Frequency ReadReceiveFrequency(const std::uint8_t* record) {
  return RestoreHalfKilohertz(DecodeBcdFrequency(record + kRecordReceive, kFrequencyDigits));
}

Frequency ReadOffsetField(const std::uint8_t* record) {
  return RestoreHalfKilohertz(DecodeBcdFrequency(record + kRecordOffset, kFrequencyDigits));
}

Frequency TransmitFrequency(const std::uint8_t* record) {
  constexpr Frequency kTooHigh = 99'999'901;
  const Frequency receive = ReadReceiveFrequency(record);
  const Frequency offset = ReadOffsetField(record);
  Frequency transmit = receive;
  switch (RecordShift(record)) {
    case kMinus:
      transmit = receive - offset;
      break;
    case kPlus:
      transmit = receive + offset;
      break;
    case kOddSplit:
      transmit = offset;
      break;
    default:
      break;
  }
  return transmit < 0 || transmit >= kTooHigh ? receive : transmit;
}

int GridClass(Frequency frequency) {
  const std::int64_t decahertz = std::int64_t{frequency} * 10;
  if (region_variant.region != 0 && InBand(kMw, frequency)) {
    return decahertz % 90 == 0 ? 2 : kNoGrid;
  }
  if (frequency % 50 == 0) {
    return 0;
  }
  return decahertz % 625 == 0 ? 1 : kNoGrid;
}

bool IsOffStep(Frequency receive, int step) {
  const int khz = receive / kKilohertz;
  switch (step) {
    case 0:
      return khz % 5 != 0;
    case 1:
      // A 5 kHz multiple counts as on the 10 kHz step, too: the leniency is wanted.
      return khz % 10 != 0 && khz % 5 != 0;
    case 2: {
      const Frequency adjusted = khz % 10 != 0 ? khz * kKilohertz + 5 : khz;
      return GridClass(adjusted) != 1 && khz % 25 != 0;
    }
    case 3:
      return khz % 15 != 0;
    case 4:
      return khz % 20 != 0;
    case 5:
      return khz % 25 != 0;
    case 6:
      return khz % 50 != 0;
    case 7:
      return khz % 100 != 0;
    case 8:
      return khz % 9 != 0;
    default:
      return true;
  }
}

int RecordShift(const std::uint8_t* record) { return record[kRecordShiftPowerTone] & 3; }
int RecordPower(const std::uint8_t* record) { return record[kRecordShiftPowerTone] >> 2 & 3; }
int RecordToneMode(const std::uint8_t* record) { return record[kRecordShiftPowerTone] >> 4; }
int RecordMode(const std::uint8_t* record) { return record[kRecordModeIcon] & 3; }
int RecordIcon(const std::uint8_t* record) { return record[kRecordModeIcon] >> 2; }

std::optional<int> ShownToneIndex(int stored) { return ShownIndex(stored, kToneCount); }
std::optional<int> ShownDcsIndex(int stored) { return ShownIndex(stored, kDcsCount); }

std::optional<int> FindTone(int tenths_of_hertz) {
  const auto* tone = std::find(kTones.begin(), kTones.end(), tenths_of_hertz);
  if (tone == kTones.end()) {
    return std::nullopt;
  }
  return static_cast<int>(tone - kTones.begin());
}

ChannelFields DecodeChannelRecord(const std::uint8_t* record) {
  ChannelFields fields;
  fields.receive = ReadReceiveFrequency(record);
  fields.transmit = TransmitFrequency(record);
  fields.shift = RecordShift(record);
  fields.offset = fields.shift == kOddSplit ? kDefaultOffset : ReadOffsetField(record);
  fields.tone_mode = KnownCode(RecordToneMode(record), static_cast<int>(kToneModeNames.size()));
  fields.tone_index = ShownToneIndex(record[kRecordTone]);
  fields.dcs_index = ShownDcsIndex(record[kRecordDcs]);
  fields.mode = KnownCode(RecordMode(record), static_cast<int>(kModeNames.size()));
  fields.power = RecordPower(record);
  fields.step = ShownStep(record[kRecordStep]);
  fields.icon = RecordIcon(record);
  fields.option_a = (record[kRecordGrid] & kGridOptionA) != 0;
  fields.option_b = (record[kRecordGrid] & kGridOptionB) != 0;
  fields.name = TrimmedName(record);
  return fields;
}

ChannelRecord BuildChannelRecord(const ChannelRecord& old, const ChannelFields& fields, int n) {
  ChannelRecord record = old;
  std::uint8_t& grid = record[kRecordGrid];
  std::uint8_t& packed = record[kRecordShiftPowerTone];
  std::uint8_t& mode_icon = record[kRecordModeIcon];

  grid = WithBits(grid, 0x0C, GridClass(fields.transmit) << 2);
  EncodeBcdFrequency(record.data() + kRecordReceive, fields.receive, kFrequencyDigits);
  grid = WithBits(grid, 0x03, GridClass(fields.receive));
  const Frequency second = fields.shift == kOddSplit ? fields.transmit : fields.offset;
  packed = WithBits(packed, 0x03, fields.shift);
  EncodeBcdFrequency(record.data() + kRecordOffset, second, kFrequencyDigits);
  StoreIndex(record[kRecordTone], fields.tone_index, kToneCount);
  StoreIndex(record[kRecordDcs], fields.dcs_index, kDcsCount);
  if (fields.tone_mode) {
    packed = WithBits(packed, 0xF0, *fields.tone_mode << 4);
  }
  if (fields.power) {
    packed = WithBits(packed, 0x0C, *fields.power << 2);
  }
  if (fields.mode) {
    mode_icon = WithBits(mode_icon, 0x03, *fields.mode);
  }
  if (fields.step) {
    record[kRecordStep] = static_cast<std::uint8_t>(*fields.step);
  }
  grid = WithBits(grid, kGridOffStep,
                  IsOffStep(fields.receive, record[kRecordStep]) ? kGridOffStep : 0);
  grid = WithBits(grid, kGridOptionA, fields.option_a ? kGridOptionA : 0);
  grid = WithBits(grid, kGridOptionB, fields.option_b ? kGridOptionB : 0);
  StoreName(record.data() + kRecordName, fields.name);
  // Home and VFO records keep only the mode bits.
  mode_icon = WithBits(mode_icon, 0xFC, IsSpecialSlot(n) ? 0 : fields.icon << 2);
  return record;
}

}  // namespace qz7
