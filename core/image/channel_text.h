#pragma once

#include <string>
#include <string_view>

#include "core/image/clone_image.h"
#include "core/image/frequency.h"
#include "core/image/region_variant.h"

namespace qz7 {

// MHz with four decimals, the integer part right-aligned in three places: "145.5000", " 50.1200".
std::string FormatFrequency(Frequency value);

// "600 kHz", "1 MHz", "1.6000 MHz". The three-place format of the last form is wanted: 1.05 MHz
// shows as "1.500 MHz".
std::string FormatOffset(Frequency value);

// The same where it reads back to the value, otherwise what does: "1.05 MHz".
std::string FormatExactOffset(Frequency value);

// What the user typed, as a frequency; 0 for text that does not parse. A number beyond
// 2147483647 counts as that, and so does the result in hundred hertz.
Frequency ParseFrequency(std::string_view text);

// The offset field's text: at most 25 characters, parsed like a frequency; a result of 10,000,000
// or more is divided by 1,000, so that "5000" is 5 MHz.
Frequency ParseOffset(std::string_view text);

// The row of memory channel n in the memory list, its columns separated by tabs; the label alone
// for a channel that is not programmed. The odd-split mark is the byte 0xB1.
std::string FormatListRow(const CloneImage& image, int n, const RegionVariant& region);

// Appends the printed line of channel n, special slots included. False for a memory channel that is
// not programmed: then only its label has been appended.
bool FormatPrintLine(const CloneImage& image, int n, const RegionVariant& region,
                     std::string& line);

}  // namespace qz7
