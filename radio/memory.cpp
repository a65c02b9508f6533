#include "radio/memory.h"

#include <algorithm>
#include <initializer_list>
#include <numeric>
#include <string_view>

namespace qz7radio {
namespace {

// Where things lie in the memory (offsets from its first byte):
//
//      0   14   header and version bytes
//     42    5   state of each group, 0xFF = empty
//     50  240   members of the groups, 5 x 24 x 2, and two bytes behind them, all 0xFF = none
//    298  240   flag bytes of channels 1..240
//    538   10   flag bytes of the home slots, one a band
//    548   20   flag bytes of the VFO slots, both banks
//    618 5280   records of channels 1..240, 22 bytes each
//   5898  220   home records, one a band
//   6118  220   VFO records of the first bank
//   6338  220   VFO records of the second bank
//   7054   80   WX names, 10 x 8
//   7134        settings; 7148 VORN text (16), 7165 icons (15), 7192 autodial (9 x 16)
//   7391        what the radio shows now: the unpacked record of the channel in use
constexpr std::size_t kGroupStates = 42;
constexpr std::size_t kGroupStatesSize = 5;
constexpr std::size_t kGroupMembers = 50;
constexpr std::size_t kGroupMembersSize = 242;
constexpr std::size_t kChannelFlags = 298;
constexpr std::size_t kHomeFlags = 538;
constexpr std::size_t kVfoFlags = 548;
constexpr std::size_t kChannelRecords = 618;
constexpr std::size_t kHomeRecords = 5898;
constexpr std::size_t kVfoARecords = 6118;
constexpr std::size_t kVfoBRecords = 6338;
constexpr std::size_t kWxNames = 7054;
constexpr std::size_t kScaleValue = 7134;
constexpr std::size_t kVornText = 7148;
constexpr std::size_t kVornTextSize = 16;
constexpr std::size_t kIcons = 7165;
constexpr std::size_t kIconCount = 15;
constexpr std::size_t kAutodial = 7192;
constexpr std::size_t kAutodialCount = 9;
constexpr std::size_t kAutodialSize = 16;
constexpr std::size_t kOperatingMode = 7391;
constexpr std::size_t kVfoSlotInUse = 7395;
constexpr std::size_t kShown = 7396;
constexpr std::size_t kFlagsInUse = 7424;
constexpr std::size_t kBandOfVfoA = 7434;
constexpr std::size_t kBandOfVfoB = 7435;

constexpr std::size_t kRecordSize = 22;
constexpr std::size_t kChannelCount = 240;
constexpr std::size_t kBandCount = 10;

constexpr std::uint8_t kProgrammed = 0x01;
constexpr std::uint8_t kVisible = 0x02;
constexpr std::uint8_t kSkip = 0x04;

// Frequencies count in units of 100 Hz.
enum class ModeOf : std::uint8_t { kNarrow, kAm, kWide };
enum class Shift : std::uint8_t { kSimplex, kMinus, kPlus, kSplit };
enum class Tone : std::uint8_t { kNone, kEncode, kSquelch, kDcs };
enum class Step : std::uint8_t { k5, k10, k12k5, k15, k20, k25, k50, k100, k9 };

constexpr std::uint8_t kTone67 = 0;
constexpr std::uint8_t kTone88 = 8;
constexpr std::uint8_t kTone100 = 12;
constexpr std::uint8_t kTone123 = 18;
constexpr std::uint8_t kDcs023 = 0;
constexpr std::uint8_t kDcs114 = 16;
constexpr std::uint8_t kPowerHigh = 3;

// One channel. `offset` is the distance to the repeater's input, or the transmit frequency itself
// for a split. Every frequency below lies on its step.
struct Channel {
  std::string_view name;
  int receive;
  Step step = Step::k5;
  ModeOf mode = ModeOf::kNarrow;
  Shift shift = Shift::kSimplex;
  int offset = 6000;
  Tone tone_mode = Tone::kNone;
  std::uint8_t tone = kTone100;
  std::uint8_t dcs = kDcs023;
  std::uint8_t icon = 0;
};

int TransmitFrequency(const Channel& channel) {
  switch (channel.shift) {
    case Shift::kMinus:
      return channel.receive - channel.offset;
    case Shift::kPlus:
      return channel.receive + channel.offset;
    case Shift::kSplit:
      return channel.offset;
    case Shift::kSimplex:
      break;
  }
  return channel.receive;
}

// 0 on the 5 kHz grid, 1 on the 6.25 kHz grid.
unsigned GridClass(int frequency) { return frequency % 50 == 0 ? 0 : 1; }

// Six digits of kilohertz, two a byte. The radio has no place for the half kilohertz of a 12.5 kHz
// channel: its firmware knows 145762 kHz for 145.7625 MHz.
void PutFrequency(std::uint8_t* field, int frequency) {
  int kilohertz = frequency / 10;
  for (int i = 2; i >= 0; --i) {
    field[i] = static_cast<std::uint8_t>(kilohertz / 10 % 10 * 16 + kilohertz % 10);
    kilohertz /= 100;
  }
}

void PutText(std::uint8_t* field, std::size_t size, std::string_view text) {
  std::fill_n(field, size, std::uint8_t{' '});
  std::copy(text.begin(), text.end(), field);
}

void PutRecord(Memory& memory, std::size_t at, const Channel& channel) {
  std::uint8_t* record = memory.data() + at;
  std::fill_n(record, kRecordSize, std::uint8_t{0});
  record[0] = static_cast<std::uint8_t>(GridClass(channel.receive) |
                                        GridClass(TransmitFrequency(channel)) << 2U);
  record[1] = static_cast<std::uint8_t>(channel.step);
  PutFrequency(record + 2, channel.receive);
  record[5] = static_cast<std::uint8_t>(channel.icon * 4U + static_cast<unsigned>(channel.mode));
  PutText(record + 6, 8, channel.name);
  PutFrequency(record + 14, channel.offset);
  record[17] = static_cast<std::uint8_t>(static_cast<unsigned>(channel.shift) | kPowerHigh << 2U |
                                         static_cast<unsigned>(channel.tone_mode) << 4U);
  record[18] = channel.tone;
  record[19] = channel.dcs;
}

void PutChannel(Memory& memory, std::size_t number, std::uint8_t flags, const Channel& channel) {
  memory[kChannelFlags + number - 1] = flags;
  PutRecord(memory, kChannelRecords + (number - 1) * kRecordSize, channel);
}

void PutChannels(Memory& memory) {
  constexpr std::uint8_t kNormal = kProgrammed | kVisible;
  constexpr ModeOf kFm = ModeOf::kNarrow;
  // clang-format off
  const Channel channels[] = {
      {"SIMPLEX", 1455000},
      {"SIMPLEX2", 4335000, Step::k25},
      {"RPT 1", 1456000, Step::k12k5, kFm, Shift::kMinus, 6000, Tone::kEncode, kTone88},
      {"RPT 2", 1457625, Step::k12k5, kFm, Shift::kMinus, 6000, Tone::kSquelch, kTone123},
      {"RPT 3", 4389500, Step::k25, kFm, Shift::kMinus, 76000, Tone::kEncode, kTone67, kDcs023, 3},
      {"RPT 4", 1469400, Step::k5, kFm, Shift::kMinus, 6000, Tone::kEncode, kTone100},
      {"RPT 5", 1471200, Step::k5, kFm, Shift::kPlus, 6000, Tone::kEncode, kTone100},
      {"RPT 6", 4421000, Step::k25, kFm, Shift::kPlus, 50000, Tone::kDcs, kTone100, kDcs114, 4},
      {"CALL 2M", 1465200, Step::k5, kFm, Shift::kSimplex, 6000, Tone::kNone, kTone100, kDcs023, 2},
      {"CALL 70", 4460000, Step::k25},
      {"CALL 6M", 525250, Step::k10},
      {"SPLIT", 4367950, Step::k5, kFm, Shift::kSplit, 1459900, Tone::kEncode, kTone67},
      {"AIR", 1234500, Step::k25, ModeOf::kAm},
      {"MUSIC", 985000, Step::k50, ModeOf::kWide},
  };
  // clang-format on
  std::size_t number = 1;
  for (const Channel& channel : channels) {
    PutChannel(memory, number++, kNormal, channel);
  }
  PutChannel(memory, number++, kNormal | kSkip, {"SKIPPED", 1452000, Step::k25});
  PutChannel(memory, number, kProgrammed, {"MASKED", 1625500, Step::k25});
  // The first pair of scan limits: L1 and U1.
  PutChannel(memory, 221, kNormal, {"LOWER", 1440000});
  PutChannel(memory, 222, kNormal, {"UPPER", 1460000});
}

// The frequency on which each band starts, in the order MW, SW, FM, TV, 6m, V Ham, U Ham, Air,
// Act1, Act2.
constexpr Channel kBandStarts[kBandCount] = {
    {"", 5400, Step::k10, ModeOf::kAm},
    {"", 18000, Step::k5, ModeOf::kAm},
    {"", 880000, Step::k25, ModeOf::kWide},
    {"", 1740000, Step::k50, ModeOf::kWide},
    {"", 520000, Step::k10},
    {"", 1450000, Step::k5},
    {"", 4300000, Step::k25},
    {"", 1080000, Step::k25, ModeOf::kAm},
    {"", 3800000, Step::k12k5},
    {"", 8000000, Step::k10},
};

void PutBandSlots(Memory& memory) {
  constexpr std::uint8_t kNormal = kProgrammed | kVisible;
  std::fill_n(memory.begin() + kHomeFlags, kBandCount, kNormal);
  std::fill_n(memory.begin() + kVfoFlags, 2 * kBandCount, kNormal);
  for (std::size_t band = 0; band < kBandCount; ++band) {
    for (const std::size_t records : {kHomeRecords, kVfoARecords, kVfoBRecords}) {
      PutRecord(memory, records + band * kRecordSize, kBandStarts[band]);
    }
  }
}

void PutSettings(Memory& memory) {
  for (std::size_t i = 0; i < 10; ++i) {
    const char name[] = {'W', 'X', ' ', static_cast<char>('1' + i), '\0'};
    PutText(memory.data() + kWxNames + i * 8, 8, i == 9 ? "WX 10" : name);
  }
  memory[kScaleValue] = 6;
  std::fill_n(memory.begin() + kVornText, kVornTextSize, std::uint8_t{0xFF});
  std::iota(memory.begin() + kIcons, memory.begin() + kIcons + kIconCount, std::uint8_t{0});

  std::fill_n(memory.begin() + kAutodial, kAutodialCount * kAutodialSize, std::uint8_t{0xFF});
  const auto put_number = [&memory](std::size_t place, std::initializer_list<std::uint8_t> digits) {
    std::copy(digits.begin(), digits.end(), memory.begin() + kAutodial + place * kAutodialSize);
  };
  put_number(0, {5, 5, 5, 0, 1, 4, 2});
  put_number(1, {1, 5, 5, 5, 5, 5, 5, 0, 1, 9, 9});
}

// The radio stands on 145 MHz in the first VFO bank.
void PutOperatingState(Memory& memory) {
  constexpr std::uint8_t kVfoMode = 1;
  constexpr std::uint8_t kVHam = 5;
  constexpr std::uint8_t kUHam = 6;
  memory[kOperatingMode] = kVfoMode;
  memory[kVfoSlotInUse] = kVHam;
  // These two name the band before the one in use.
  memory[kBandOfVfoA] = kVHam - 1;
  memory[kBandOfVfoB] = kUHam - 1;
  memory[kFlagsInUse] = memory[kChannelFlags];

  const std::uint8_t* record = memory.data() + kVfoARecords + kVHam * kRecordSize;
  std::uint8_t* shown = memory.data() + kShown;
  shown[0] = record[0];
  shown[1] = (record[17] >> 2U) & 3U;
  shown[2] = record[1];
  shown[3] = record[17] & 3U;
  shown[4] = static_cast<std::uint8_t>(record[17] >> 4U);
  shown[5] = record[18];
  shown[6] = record[19];
  shown[7] = record[5] & 3U;
  std::copy_n(record + 2, 3, shown + 8);
  std::copy_n(record + 14, 3, shown + 12);
  std::copy_n(record + 6, 8, shown + 16);
  std::copy_n(record + 20, 2, shown + 24);
}

}  // namespace

std::uint8_t Checksum(const Memory& memory) {
  return static_cast<std::uint8_t>(std::accumulate(memory.begin(), memory.end(), 0U));
}

Memory BuiltInMemory() {
  Memory memory{};
  const std::uint8_t start[] = {kHeaderStart, 0x01, 0x02, 0x06, 0x09, 0x24, 0xC1,
                                0x01,         0x00, 0x24, 0xC1, 0x01, 0x01, 0x01};
  std::copy(std::begin(start), std::end(start), memory.begin());
  std::fill_n(memory.begin() + kGroupStates, kGroupStatesSize, std::uint8_t{0xFF});
  std::fill_n(memory.begin() + kGroupMembers, kGroupMembersSize, std::uint8_t{0xFF});
  std::fill_n(memory.begin() + kChannelRecords, kChannelCount * kRecordSize, std::uint8_t{0xFF});
  PutChannels(memory);
  PutBandSlots(memory);
  PutSettings(memory);
  PutOperatingState(memory);
  return memory;
}

}  // namespace qz7radio
