#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/image/bits.h"
#include "core/image/channel_codes.h"
#include "core/image/clone_image.h"
#include "core/image/frequency.h"
#include "core/image/region_variant.h"

namespace qz7 {

// The channel record, 22 bytes:
//
//   byte  bits 7   6         5         4         3-2              1-0
//    0         keep off-step option B  option A  transmit grid    receive grid
//    1         step index
//    2-4       receive frequency, 6 BCD digits of kHz
//    5         icon (7-2)                                         mode
//    6-13      name, padded with blanks
//   14-16      offset (simplex, minus, plus) or transmit frequency (odd split), BCD
//   17         tone mode (7-4)                   power            shift direction
//   18         CTCSS tone index
//   19         DCS code index
//   20-21      kept
inline constexpr std::size_t kRecordGrid = 0;
inline constexpr std::size_t kRecordStep = 1;
inline constexpr std::size_t kRecordReceive = 2;
inline constexpr std::size_t kRecordName = 6;
inline constexpr std::size_t kRecordOffset = 14;
inline constexpr std::size_t kRecordTone = 18;
inline constexpr std::size_t kRecordDcs = 19;
inline constexpr std::size_t kRecordKept = 20;
inline constexpr std::size_t kFrequencyBytes = 3;

inline constexpr BitField kReceiveGridBits{.byte = 0, .shift = 0, .width = 2};
inline constexpr BitField kTransmitGridBits{.byte = 0, .shift = 2, .width = 2};
inline constexpr BitField kOptionABits{.byte = 0, .shift = 4, .width = 1};
inline constexpr BitField kOptionBBits{.byte = 0, .shift = 5, .width = 1};
inline constexpr BitField kOffStepBits{.byte = 0, .shift = 6, .width = 1};
inline constexpr BitField kRecordModeBits{.byte = 5, .shift = 0, .width = 2};
inline constexpr BitField kRecordIconBits{.byte = 5, .shift = 2, .width = 6};
inline constexpr BitField kRecordShiftBits{.byte = 17, .shift = 0, .width = 2};
inline constexpr BitField kRecordPowerBits{.byte = 17, .shift = 2, .width = 2};
inline constexpr BitField kRecordToneModeBits{.byte = 17, .shift = 4, .width = 4};

using ChannelRecord = std::array<std::uint8_t, kRecordSize>;

// The 22 bytes of a record, wherever they lie.
struct RecordView {
  RecordView(const std::uint8_t* record) : bytes(record, kRecordSize) {}
  RecordView(const ChannelRecord& record) : bytes(record) {}
  std::span<const std::uint8_t, kRecordSize> bytes;
};

inline Shift RecordShift(RecordView record) {
  return static_cast<Shift>(ReadBits(record.bytes, kRecordShiftBits));
}
inline Power RecordPower(RecordView record) {
  return static_cast<Power>(ReadBits(record.bytes, kRecordPowerBits));
}
inline std::optional<ToneMode> RecordToneMode(RecordView record) {
  return CodeAt<ToneMode>(kToneModeNames, ReadBits(record.bytes, kRecordToneModeBits));
}
inline std::optional<Mode> RecordMode(RecordView record) {
  return CodeAt<Mode>(kModeNames, ReadBits(record.bytes, kRecordModeBits));
}
inline std::optional<Step> RecordStep(RecordView record) {
  return CodeAt<Step>(kStepNames, record.bytes[kRecordStep]);
}
int RecordIcon(RecordView record);  // 0..63
std::string_view RecordName(RecordView record);

inline constexpr Frequency kDefaultOffset = Kilohertz(600);

inline constexpr int kFrequencyDigits = 6;
// Reads `digits` nibbles, high nibble first, as a number of kilohertz. A nibble above 9 counts with
// its value at its place.
Frequency DecodeBcdFrequency(const std::uint8_t* bytes, int digits);
// Writes the whole kilohertz of |value| as `digits` BCD digits; higher digits are dropped.
void EncodeBcdFrequency(std::uint8_t* bytes, Frequency value, int digits);

// The two frequency fields as they are stored.
Frequency RawReceive(RecordView record);
Frequency RawOffset(RecordView record);
void StoreReceive(std::uint8_t* record, Frequency receive);
void StoreOffset(std::uint8_t* record, Frequency offset);
// Cut to 8 characters and padded with blanks.
void StoreRecordName(std::uint8_t* record, std::string_view name);

// Adds the 500 Hz that a kilohertz field cannot hold: 145012 kHz is 145.0125 MHz.
// Frequencies in the MW band are taken as they stand.
Frequency RestoreHalfKilohertz(Frequency decoded, const RegionVariant& region);

Frequency ReadReceiveFrequency(RecordView record, const RegionVariant& region);
// The offset, or the transmit frequency of an odd split.
Frequency ReadOffsetField(RecordView record, const RegionVariant& region);
// The frequency that the radio transmits on; the receive frequency where the sum is negative or
// 9,999.9901 MHz or above.
Frequency TransmitFrequency(RecordView record, const RegionVariant& region);

// 0: multiple of 5 kHz, 1: multiple of 6.25 kHz, 2: MW 9 kHz grid, 5: on no grid. A record holds
// the low two bits.
inline constexpr int kNoGrid = 5;
int GridClass(Frequency frequency, const RegionVariant& region);

// Whether record byte 0 bit 6 is set for a receive frequency and a step; always where there is no
// such step.
bool IsOffStep(Frequency receive, std::optional<Step> step, const RegionVariant& region);

// What the channel editor holds. A choice that is empty shows no selection; writing the record
// then keeps the stored bits.
struct ChannelChoices {
  Shift shift = Shift::kSimplex;
  std::optional<ToneMode> tone_mode = ToneMode::kNone;
  std::optional<int> tone_index = kDefaultToneIndex;
  std::optional<int> dcs_index = 0;
  std::optional<Mode> mode = Mode::kFmNarrow;
  std::optional<Power> power = Power::kHigh;
  std::optional<Step> step = Step::kKhz5;
  int icon = 0;
  bool option_a = false;
  bool option_b = false;
  std::string name;  // at most 8 characters, trailing blanks cut
};
struct ChannelFrequencies {
  Frequency receive;
  Frequency transmit;
  Frequency offset = kDefaultOffset;
};

// The choices of a record as the editor shows them. A stored 9 kHz step shows as 10 kHz unless the
// extended version is on.
ChannelChoices DecodeChoices(RecordView record, const RegionVariant& region);
// The frequencies. The offset of an odd split, which a record does not hold, is the default.
ChannelFrequencies DecodeFrequencies(RecordView record, const RegionVariant& region);

// The record that these make of an old one, in the editor's order of writing. n tells whether the
// icon is stored (memory channels) or dropped (home and VFO slots).
ChannelRecord BuildChannelRecord(const ChannelRecord& old, const ChannelChoices& choices,
                                 const ChannelFrequencies& frequencies, int n,
                                 const RegionVariant& region);

}  // namespace qz7
