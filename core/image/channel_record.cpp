#include "core/image/channel_record.h"

#include <algorithm>
#include <cstdlib>

#include "core/image/band_plan.h"

namespace qz7 {
namespace {

std::optional<Step> ShownStep(RecordView record, const RegionVariant& region) {
  const std::optional<Step> step = RecordStep(record);
  return step == Step::kKhz9 && !region.extended_version ? Step::kKhz10 : step;
}

std::string TrimmedName(RecordView record) {
  const std::string_view stored = RecordName(record);
  std::string name(FieldText(stored.data(), stored.size()));
  name.erase(name.find_last_not_of(' ') + 1);
  return name;
}

void StoreIndex(std::uint8_t& byte, std::optional<int> index, int count) {
  if (index && *index >= 0 && *index < count) {
    byte = static_cast<std::uint8_t>(*index);
  }
}

template <typename Code>
void StoreChoice(ChannelRecord& record, BitField field, std::optional<Code> choice) {
  if (choice) {
    WriteBits(record, field, PlaceOf(*choice));
  }
}

}  // namespace

int RecordIcon(RecordView record) { return ReadBits(record.bytes, kRecordIconBits); }
std::string_view RecordName(RecordView record) {
  return {reinterpret_cast<const char*>(record.bytes.data() + kRecordName), kNameLength};
}

Frequency DecodeBcdFrequency(const std::uint8_t* bytes, int digits) {
  std::int64_t kilohertz = 0;
  for (int i = 0; i < digits; ++i) {
    const int byte = bytes[i / 2];
    kilohertz = kilohertz * 10 + (i % 2 == 0 ? byte >> 4 : byte & 0x0F);
  }
  return Kilohertz(kilohertz);
}

void EncodeBcdFrequency(std::uint8_t* bytes, Frequency value, int digits) {
  const std::span field(bytes, static_cast<std::size_t>(digits + 1) / 2);
  std::int64_t rest = std::abs(WholeKilohertz(value));
  for (int i = digits - 1; i >= 0; --i) {
    const BitField nibble{
        .byte = static_cast<std::size_t>(i / 2), .shift = i % 2 == 0 ? 4 : 0, .width = 4};
    WriteBits(field, nibble, static_cast<int>(rest % 10));
    rest /= 10;
  }
}

Frequency RawReceive(RecordView record) {
  return DecodeBcdFrequency(record.bytes.data() + kRecordReceive, kFrequencyDigits);
}
Frequency RawOffset(RecordView record) {
  return DecodeBcdFrequency(record.bytes.data() + kRecordOffset, kFrequencyDigits);
}
void StoreReceive(std::uint8_t* record, Frequency receive) {
  EncodeBcdFrequency(record + kRecordReceive, receive, kFrequencyDigits);
}
void StoreOffset(std::uint8_t* record, Frequency offset) {
  EncodeBcdFrequency(record + kRecordOffset, offset, kFrequencyDigits);
}

void StoreRecordName(std::uint8_t* record, std::string_view name) {
  std::fill_n(record + kRecordName, kNameLength, std::uint8_t{' '});
  std::copy_n(name.begin(), std::min(name.size(), kNameLength), record + kRecordName);
}

Frequency RestoreHalfKilohertz(Frequency decoded, const RegionVariant& region) {
  const Frequency end = decoded % Kilohertz(10);
  const bool lost_half = end == Kilohertz(2) || end == Kilohertz(7);
  return lost_half && !InBand(Band::kMw, decoded, region) ? decoded + HundredHertz(5) : decoded;
}

Frequency ReadReceiveFrequency(RecordView record, const RegionVariant& region) {
  return RestoreHalfKilohertz(RawReceive(record), region);
}

Frequency ReadOffsetField(RecordView record, const RegionVariant& region) {
  return RestoreHalfKilohertz(RawOffset(record), region);
}

Frequency TransmitFrequency(RecordView record, const RegionVariant& region) {
  constexpr Frequency kTooHigh = HundredHertz(99'999'901);
  const Frequency receive = ReadReceiveFrequency(record, region);
  const Frequency offset = ReadOffsetField(record, region);
  Frequency transmit = receive;
  switch (RecordShift(record)) {
    case Shift::kMinus:
      transmit = receive - offset;
      break;
    case Shift::kPlus:
      transmit = receive + offset;
      break;
    case Shift::kOddSplit:
      transmit = offset;
      break;
    default:
      break;
  }
  return transmit < Frequency{} || transmit >= kTooHigh ? receive : transmit;
}

int GridClass(Frequency frequency, const RegionVariant& region) {
  if (region.variant != Variant::kZero && InBand(Band::kMw, frequency, region)) {
    return IsMultipleOf(frequency, HundredHertz(9)) ? 2 : kNoGrid;
  }
  if (IsMultipleOf(frequency, Kilohertz(5))) {
    return 0;
  }
  return IsOnSixKilohertzGrid(frequency) ? 1 : kNoGrid;
}

bool IsOffStep(Frequency receive, std::optional<Step> step, const RegionVariant& region) {
  const std::int64_t khz = WholeKilohertz(receive);
  if (!step) {
    return true;
  }
  switch (*step) {
    case Step::kKhz5:
      return khz % 5 != 0;
    case Step::kKhz10:
      // A 5 kHz multiple counts as on the 10 kHz step, too: the leniency is wanted.
      return khz % 10 != 0 && khz % 5 != 0;
    case Step::kKhz12Half: {
      // A multiple of 10 kHz is looked up as so many hundred hertz: as it stands.
      const std::int64_t adjusted = khz % 10 != 0 ? khz * 10 + 5 : khz;
      return GridClass(HundredHertz(adjusted), region) != 1 && khz % 25 != 0;
    }
    case Step::kKhz15:
      return khz % 15 != 0;
    case Step::kKhz20:
      return khz % 20 != 0;
    case Step::kKhz25:
      return khz % 25 != 0;
    case Step::kKhz50:
      return khz % 50 != 0;
    case Step::kKhz100:
      return khz % 100 != 0;
    case Step::kKhz9:
      return khz % 9 != 0;
  }
  return true;
}

ChannelChoices DecodeChoices(RecordView record, const RegionVariant& region) {
  return {.shift = RecordShift(record),
          .tone_mode = RecordToneMode(record),
          .tone_index = ShownToneIndex(record.bytes[kRecordTone]),
          .dcs_index = ShownDcsIndex(record.bytes[kRecordDcs]),
          .mode = RecordMode(record),
          .power = RecordPower(record),
          .step = ShownStep(record, region),
          .icon = RecordIcon(record),
          .option_a = ReadBits(record.bytes, kOptionABits) != 0,
          .option_b = ReadBits(record.bytes, kOptionBBits) != 0,
          .name = TrimmedName(record)};
}

ChannelFrequencies DecodeFrequencies(RecordView record, const RegionVariant& region) {
  const bool split = RecordShift(record) == Shift::kOddSplit;
  return {.receive = ReadReceiveFrequency(record, region),
          .transmit = TransmitFrequency(record, region),
          .offset = split ? kDefaultOffset : ReadOffsetField(record, region)};
}

ChannelRecord BuildChannelRecord(const ChannelRecord& old, const ChannelChoices& choices,
                                 const ChannelFrequencies& frequencies, int n,
                                 const RegionVariant& region) {
  ChannelRecord record = old;
  const bool split = choices.shift == Shift::kOddSplit;
  WriteBits(record, kTransmitGridBits, GridClass(frequencies.transmit, region));
  StoreReceive(record.data(), frequencies.receive);
  WriteBits(record, kReceiveGridBits, GridClass(frequencies.receive, region));
  WriteBits(record, kRecordShiftBits, PlaceOf(choices.shift));
  StoreOffset(record.data(), split ? frequencies.transmit : frequencies.offset);
  StoreIndex(record[kRecordTone], choices.tone_index, kToneCount);
  StoreIndex(record[kRecordDcs], choices.dcs_index, kDcsCount);
  StoreChoice(record, kRecordToneModeBits, choices.tone_mode);
  StoreChoice(record, kRecordPowerBits, choices.power);
  StoreChoice(record, kRecordModeBits, choices.mode);
  if (choices.step) {
    record[kRecordStep] = static_cast<std::uint8_t>(*choices.step);
  }
  const bool off_step = IsOffStep(frequencies.receive, RecordStep(record), region);
  WriteBits(record, kOffStepBits, off_step ? 1 : 0);
  WriteBits(record, kOptionABits, choices.option_a ? 1 : 0);
  WriteBits(record, kOptionBBits, choices.option_b ? 1 : 0);
  StoreRecordName(record.data(), choices.name);
  // Home and VFO records keep only the mode bits.
  WriteBits(record, kRecordIconBits, IsSpecialSlot(n) ? 0 : choices.icon);
  return record;
}

}  // namespace qz7
