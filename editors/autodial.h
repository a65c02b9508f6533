#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "image/clone_image.h"

namespace qz7 {

// How the DTMF codes 14 and 15 are shown: as "*" and "#", or as "E" and "F".
enum class DtmfDisplay { kSymbols, kLetters };

// The digits of an autodial memory: 16 codes, ended by 0xFF; of a code the low four bits count.
std::string DecodeDtmf(std::span<const std::uint8_t> codes, DtmfDisplay display);

// A number as it is written: 7 digits as 555-1234, 11 as 1-555-555-1234, any other as it stands.
std::string FormatAutodialNumber(const std::string& digits);

// The text of autodial memory n = 0..8; empty for an empty memory.
std::string AutodialText(const CloneImage& image, int n, DtmfDisplay display);

}  // namespace qz7
