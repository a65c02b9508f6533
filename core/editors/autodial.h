#pragma once

#include "core/editors/setting_rows.h"

namespace qz7 {

// How the DTMF codes 14 and 15 are shown: as "*" and "#", or as "E" and "F".
enum class DtmfDisplay { kSymbols, kLetters };

// The autodial editor: the nine numbers, with symbols, and the flag.
const SettingScreen& AutodialScreen();

// A number's text with the two codes as the display option says.
std::string ShownAs(DtmfDisplay display, std::string number);

// The text of autodial memory n = 0..8; empty for an empty memory.
std::string AutodialText(const CloneImage& image, int n, DtmfDisplay display);

}  // namespace qz7
