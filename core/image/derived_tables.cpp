#include "core/image/derived_tables.h"

#include <algorithm>

#include "core/image/channel_record.h"

namespace qz7 {
namespace {

// Bits of the 16-bit word that an entry starts with.
constexpr int kInUse = 0x01;
constexpr int kToneEncoder = 0x02;
constexpr int kToneSquelch = 0x04;
constexpr int kSkip = 0x08;
constexpr int kShiftPlace = 4;  // 2 bits
constexpr int kDcsOn = 0x40;
constexpr int kDcsPlace = 7;  // 7 bits
constexpr int kDcsBits = 0x7F;
constexpr int kModePlace = 14;  // 2 bits

constexpr std::size_t kReceive = 2;
constexpr std::size_t kTransmit = 6;
constexpr std::size_t kTone = 10;

// What the radio transmits on, from the raw fields of a record: other readers of the tables expect
// neither the half kilohertz nor the range check of TransmitFrequency here.
std::uint32_t SummaryTransmit(Shift shift, std::uint32_t receive, std::uint32_t offset) {
  switch (shift) {
    case Shift::kMinus:
      return receive - offset;
    case Shift::kPlus:
      return receive + offset;
    case Shift::kOddSplit:
      return offset;
    default:
      return receive;
  }
}

int SummaryTone(std::uint8_t tone_index) {
  constexpr int kNoToneValue = 1000;
  return tone_index < kToneCount ? kTones[tone_index] : kNoToneValue;
}

ChannelSummary Summarise(RecordView record, bool skip) {
  const auto tone_mode = RecordToneMode(record);
  const auto receive = static_cast<std::uint32_t>(InTensOfHertz(RawReceive(record)));
  const auto offset = static_cast<std::uint32_t>(InTensOfHertz(RawOffset(record)));
  const Shift shift = RecordShift(record);
  return {.in_use = true,
          .tone_encoder = tone_mode == ToneMode::kEncode || tone_mode == ToneMode::kSquelch,
          .tone_squelch = tone_mode == ToneMode::kSquelch,
          .skip = skip,
          .shift = shift,
          .dcs_on = tone_mode == ToneMode::kDcs,
          .dcs_index = record.bytes[kRecordDcs] & kDcsBits,
          .mode = ReadBits(record.bytes, kRecordModeBits),
          .receive_10hz = receive,
          .transmit_10hz = SummaryTransmit(shift, receive, offset),
          .tone = SummaryTone(record.bytes[kRecordTone])};
}

// The record's name and a 0 byte; the entry's tenth byte is never written.
void StoreNameEntry(CloneImage& image, int n) {
  const ChannelName name = GetChannelName(image, n);
  std::copy(name.begin(), name.end(), NameEntry(image, n));
}

}  // namespace

ChannelSummary DecodeSummary(const std::uint8_t* entry) {
  const int word = ReadU16(entry);
  return {.in_use = (word & kInUse) != 0,
          .tone_encoder = (word & kToneEncoder) != 0,
          .tone_squelch = (word & kToneSquelch) != 0,
          .skip = (word & kSkip) != 0,
          .shift = static_cast<Shift>(word >> kShiftPlace & 3),
          .dcs_on = (word & kDcsOn) != 0,
          .dcs_index = word >> kDcsPlace & kDcsBits,
          .mode = word >> kModePlace,
          .receive_10hz = ReadU32(entry + kReceive),
          .transmit_10hz = ReadU32(entry + kTransmit),
          .tone = ReadU16(entry + kTone)};
}

void EncodeSummary(const ChannelSummary& channel, std::uint8_t* entry) {
  const int word = (channel.in_use ? kInUse : 0) | (channel.tone_encoder ? kToneEncoder : 0) |
                   (channel.tone_squelch ? kToneSquelch : 0) | (channel.skip ? kSkip : 0) |
                   PlaceOf(channel.shift) << kShiftPlace | (channel.dcs_on ? kDcsOn : 0) |
                   channel.dcs_index << kDcsPlace | channel.mode << kModePlace;
  WriteU16(entry, static_cast<std::uint16_t>(word));
  WriteU32(entry + kReceive, channel.receive_10hz);
  WriteU32(entry + kTransmit, channel.transmit_10hz);
  WriteU16(entry + kTone, static_cast<std::uint16_t>(channel.tone));
}

void RebuildDerivedTables(CloneImage& image) {
  WriteU16(image.data() + kChannelCountOffset, kChannelCount);
  std::fill_n(image.begin() + kSummaryTable.offset, kSummaryTable.size, std::uint8_t{0});
  // Channel 240 is left out on purpose: readers of the tables expect its entry empty.
  for (int n = 1; n < GetChannelCount(image); ++n) {
    if (!IsProgrammed(image, n)) {
      continue;
    }
    EncodeSummary(Summarise(GetChannelRecord(image, n), IsSkip(image, n)), SummaryEntry(image, n));
    StoreNameEntry(image, n);
  }
}

void CopyNamesToTable(CloneImage& image) {
  for (int n = 1; n <= std::min(GetChannelCount(image), kChannelCount); ++n) {
    StoreNameEntry(image, n);
  }
}

}  // namespace qz7
