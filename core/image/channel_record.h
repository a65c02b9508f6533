#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "core/image/clone_image.h"
#include "core/image/frequency.h"

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
inline constexpr std::size_t kRecordModeIcon = 5;
inline constexpr std::size_t kRecordName = 6;
inline constexpr std::size_t kRecordOffset = 14;
inline constexpr std::size_t kRecordShiftPowerTone = 17;
inline constexpr std::size_t kRecordTone = 18;
inline constexpr std::size_t kRecordDcs = 19;
inline constexpr std::size_t kRecordKept = 20;

inline constexpr std::uint8_t kGridOptionA = 0x10;
inline constexpr std::uint8_t kGridOptionB = 0x20;
inline constexpr std::uint8_t kGridOffStep = 0x40;

inline constexpr int kFrequencyDigits = 6;
inline constexpr std::size_t kFrequencyBytes = 3;

enum Shift : int { kSimplex = 0, kMinus = 1, kPlus = 2, kOddSplit = 3 };
enum ToneMode : int { kToneNone = 0, kToneEncode = 1, kToneSquelch = 2, kToneDcs = 3 };
enum Mode : int { kFmNarrow = 0, kAm = 1, kFmWide = 2 };
enum Power : int { kLow1 = 0, kLow2 = 1, kLow3 = 2, kHigh = 3 };

// CTCSS tones in tenths of a hertz: the 39 tones of the radio.
inline constexpr std::array<int, 39> kTones = {
    670,  693,  719,  744,  770,  797,  825,  854,  885,  915,  948,  974,  1000,
    1035, 1072, 1109, 1148, 1188, 1230, 1273, 1318, 1365, 1413, 1462, 1514, 1567,
    1622, 1679, 1738, 1799, 1862, 1928, 2035, 2107, 2181, 2257, 2336, 2418, 2503};
inline constexpr int kToneCount = static_cast<int>(kTones.size());

// DCS codes, shown with three digits: the 104 codes of the radio.
inline constexpr std::array<int, 104> kDcsCodes = {
    23,  25,  26,  31,  32,  36,  43,  47,  51,  53,  54,  65,  71,  72,  73,  74,  114, 115,
    116, 122, 125, 131, 132, 134, 143, 145, 152, 155, 156, 162, 165, 172, 174, 205, 212, 223,
    225, 226, 243, 244, 245, 246, 251, 252, 255, 261, 263, 265, 266, 271, 274, 306, 311, 315,
    325, 331, 332, 343, 346, 351, 356, 364, 365, 371, 411, 412, 413, 423, 431, 432, 445, 446,
    452, 454, 455, 462, 464, 465, 466, 503, 506, 516, 523, 526, 532, 546, 565, 606, 612, 624,
    627, 631, 632, 654, 662, 664, 703, 712, 723, 731, 732, 734, 743, 754};
inline constexpr int kDcsCount = static_cast<int>(kDcsCodes.size());

inline constexpr std::array<const char*, 9> kStepNames = {
    "5 kHz", "10 kHz", "12.5 kHz", "15 kHz", "20 kHz", "25 kHz", "50 kHz", "100 kHz", "9 kHz"};
inline constexpr std::array<const char*, 3> kModeNames = {"FM-Narrow", "AM", "FM-Wide"};
inline constexpr std::array<const char*, 4> kPowerNames = {"Low1", "Low2", "Low3", "High"};
inline constexpr std::array<const char*, 4> kToneModeNames = {"None", "Tone Encode", "Tone Squelch",
                                                              "DCS"};

inline constexpr Frequency kDefaultOffset = 600 * kKilohertz;
inline constexpr int kDefaultToneIndex = 12;  // 100.0 Hz

// Reads `digits` nibbles, high nibble first, and returns the decimal number times 10. A nibble
// above 9 counts with its value at its place.
Frequency DecodeBcdFrequency(const std::uint8_t* bytes, int digits);
// Writes |value| / 10 as `digits` BCD digits; higher digits are dropped.
void EncodeBcdFrequency(std::uint8_t* bytes, Frequency value, int digits);

// Adds the 500 Hz that a kilohertz field cannot hold: 145012 kHz is 145.0125 MHz.
// Frequencies in the MW band are taken as they stand.
Frequency RestoreHalfKilohertz(Frequency decoded);

Frequency ReadReceiveFrequency(const std::uint8_t* record);
// The offset, or the transmit frequency of an odd split.
Frequency ReadOffsetField(const std::uint8_t* record);
// The frequency that the radio transmits on; the receive frequency where the sum is negative or
// 99,999,901 or above.
Frequency TransmitFrequency(const std::uint8_t* record);

// 0: multiple of 5 kHz, 1: multiple of 6.25 kHz, 2: MW 9 kHz grid, 5: on no grid. A record holds
// the low two bits.
inline constexpr int kNoGrid = 5;
int GridClass(Frequency frequency);

// Whether record byte 0 bit 6 is set for a receive frequency and a step index (0..255).
bool IsOffStep(Frequency receive, int step);

int RecordShift(const std::uint8_t* record);
int RecordPower(const std::uint8_t* record);
int RecordToneMode(const std::uint8_t* record);  // 0..15; 4 and above have no meaning
int RecordMode(const std::uint8_t* record);      // 0..3; 3 has no meaning
int RecordIcon(const std::uint8_t* record);

// The list position that a stored index shows as: an index above its table (tone above 39, DCS
// above 104) shows as the first entry; exactly 39 or 104 is a code without a meaning and shows
// nothing.
std::optional<int> ShownToneIndex(int stored);
std::optional<int> ShownDcsIndex(int stored);

// The table index of a tone in tenths of a hertz, or nothing.
std::optional<int> FindTone(int tenths_of_hertz);

// What the channel editor holds. A choice that is empty shows no selection; writing the record
// then keeps the stored bits.
struct ChannelFields {
  Frequency receive = 0;
  Frequency transmit = 0;
  int shift = kSimplex;
  Frequency offset = kDefaultOffset;
  std::optional<int> tone_mode = kToneNone;
  std::optional<int> tone_index = kDefaultToneIndex;
  std::optional<int> dcs_index = 0;
  std::optional<int> mode = kFmNarrow;
  std::optional<int> power = kHigh;
  std::optional<int> step = 0;
  int icon = 0;
  bool option_a = false;
  bool option_b = false;
  std::string name;  // at most 8 characters, trailing blanks cut
};

// The fields of a record as the editor shows them. The offset of an odd split, which a record does
// not hold, is the default. A stored 9 kHz step shows as 10 kHz unless the extended version is on.
ChannelFields DecodeChannelRecord(const std::uint8_t* record);

using ChannelRecord = std::array<std::uint8_t, kRecordSize>;

// The record that the fields make of an old one, in the editor's order of writing. n tells whether
// the icon is stored (memory channels) or dropped (home and VFO slots).
ChannelRecord BuildChannelRecord(const ChannelRecord& old, const ChannelFields& fields, int n);

}  // namespace qz7
