#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/interchange/import_session.h"

namespace qz7 {

enum ImportPower : int { kImportLow = 0, kImportMid = 1, kImportHigh = 2 };

inline constexpr std::size_t kImportNameLength = 9;
inline constexpr std::size_t kImportCommentLength = 31;

// A line of the import file. Frequencies are in 100 Hz, tones in tenths of a hertz; shift and tone
// mode are coded as in the channel record. `tx` is the offset, for an odd split the transmit
// frequency.
struct ImportRecord {
  std::uint32_t rx = 0;
  std::uint32_t tx = 0;
  int shift = 0;
  int tone_mode = 0;
  bool skip = false;
  int power = kImportHigh;
  std::uint16_t encode_tone = 0;
  std::uint16_t decode_tone = 0;
  std::array<char, kImportNameLength + 1> name{};        // ended by a 0
  std::array<char, kImportCommentLength + 1> comment{};  // ended by a 0
};

// From here on receive frequencies (in 100 Hz) have the usual offset of the higher bands.
inline constexpr std::uint32_t kImportUhf = 2'800'000;

// The frequency that a cell holds, in 100 Hz; 0 for none. An integer above 9,999 is taken as it
// stands, and so is any text with a "K": "600K" is 60 kHz, and that is wanted.
std::uint32_t ParseImportFrequency(std::string_view text);

// The shift direction that a cell of at most one character names; simplex for any other text.
int ParseDirection(std::string_view text);

// The record of a line, by the session's committed columns.
ImportRecord ParseRecord(ImportSession& session, std::string_view line);

}  // namespace qz7
