#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/image/channel_codes.h"
#include "core/image/frequency.h"
#include "core/interchange/import_session.h"

namespace qz7 {

enum class ImportPower : std::uint8_t { kLow, kMid, kHigh };

inline constexpr std::size_t kImportNameLength = 9;
inline constexpr std::size_t kImportCommentLength = 31;

// A line of the import file. Tones are in tenths of a hertz. `tx` is the offset, for an odd split
// the transmit frequency.
struct ImportRecord {
  Frequency rx;
  Frequency tx;
  Shift shift = Shift::kSimplex;
  ToneMode tone_mode = ToneMode::kNone;
  bool skip = false;
  ImportPower power = ImportPower::kHigh;
  std::uint16_t encode_tone = 0;
  std::uint16_t decode_tone = 0;
  std::array<char, kImportNameLength + 1> name{};        // ended by a 0
  std::array<char, kImportCommentLength + 1> comment{};  // ended by a 0
};

// From here on receive frequencies have the usual offset of the higher bands.
inline constexpr Frequency kImportUhf = Megahertz(280);

// The frequency that a cell holds; 0 for none. An integer above 9,999 is taken as hundreds of
// hertz, and so is any text with a "K": "600K" is 60 kHz, and that is wanted.
Frequency ParseImportFrequency(std::string_view text);

// The shift direction that a cell of at most one character names; simplex for any other text.
Shift ParseDirection(std::string_view text);

// The record of a line, by the session's committed columns.
ImportRecord ParseRecord(ImportSession& session, std::string_view line);

}  // namespace qz7
