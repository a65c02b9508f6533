#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace qz7 {

// The codes of a channel record and the lists that they are places in. A code that its list lacks
// has no meaning: texts show nothing or a blank for it, lists no selection.

enum class Shift : std::uint8_t { kSimplex, kMinus, kPlus, kOddSplit };
enum class ToneMode : std::uint8_t { kNone, kEncode, kSquelch, kDcs };
enum class Mode : std::uint8_t { kFmNarrow, kAm, kFmWide };
enum class Power : std::uint8_t { kLow1, kLow2, kLow3, kHigh };
enum class Step : std::uint8_t {
  kKhz5,
  kKhz10,
  kKhz12Half,
  kKhz15,
  kKhz20,
  kKhz25,
  kKhz50,
  kKhz100,
  kKhz9
};

inline constexpr std::array<const char*, 4> kShiftNames = {"simplex", "minus", "plus", "split"};
inline constexpr std::array<const char*, 4> kToneModeNames = {"None", "Tone Encode", "Tone Squelch",
                                                              "DCS"};
inline constexpr std::array<const char*, 3> kModeNames = {"FM-Narrow", "AM", "FM-Wide"};
inline constexpr std::array<const char*, 4> kPowerNames = {"Low1", "Low2", "Low3", "High"};
inline constexpr std::array<const char*, 9> kStepNames = {
    "5 kHz", "10 kHz", "12.5 kHz", "15 kHz", "20 kHz", "25 kHz", "50 kHz", "100 kHz", "9 kHz"};

// A code as its place in a list, and back; nothing for a place that the list does not have.
template <typename Code>
constexpr int PlaceOf(Code code) {
  return static_cast<int>(code);
}
template <typename Code>
constexpr std::optional<int> PlaceOf(std::optional<Code> code) {
  return code ? std::optional(PlaceOf(*code)) : std::nullopt;
}
template <typename Code, std::size_t kCount>
constexpr std::optional<Code> CodeAt(const std::array<const char*, kCount>& /*names*/,
                                     std::optional<int> place) {
  const bool listed = place && *place >= 0 && *place < static_cast<int>(kCount);
  return listed ? std::optional(static_cast<Code>(*place)) : std::nullopt;
}
template <typename Code, std::size_t kCount>
constexpr const char* NameOf(const std::array<const char*, kCount>& names, Code code) {
  return names[static_cast<std::size_t>(code)];
}

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

inline constexpr int kDefaultToneIndex = 12;  // 100.0 Hz

// "88.5" for 885 tenths of a hertz; "023" for code 23.
std::string ToneText(int tenths_of_hertz);
std::string DcsText(int code);

// The table index of a tone in tenths of a hertz, or nothing.
std::optional<int> FindTone(int tenths_of_hertz);

// The list position that a stored index shows as: an index above its table (tone above 39, DCS
// above 104) shows as the first entry; exactly 39 or 104 is a code without a meaning and shows
// nothing.
std::optional<int> ShownToneIndex(int stored);
std::optional<int> ShownDcsIndex(int stored);

}  // namespace qz7
