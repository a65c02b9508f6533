#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/image/channel_codes.h"
#include "core/image/frequency.h"

namespace qz7 {

// What the cells of other programs' lists mean. Case and blanks do not matter.

// A number with its unit: "146.940 MHz", "146,94", "146940 kHz", "600 kHz", "0.6". Without a unit
// a receive frequency is megahertz below 2,000, kilohertz below 10,000,000 and hertz above; an
// offset is megahertz below 100, otherwise kilohertz, or hertz from 100,000 on. A sign is left out.
// Nothing for a text without a number.
std::optional<Frequency> ParseListFrequency(std::string_view cell);
std::optional<Frequency> ParseListOffset(std::string_view cell);

// The direction that a cell names by a sign, in front or behind, or by a word: "-0.6", "147.12+",
// "minus", "DUP-", "split"; nothing where it names none.
std::optional<Shift> ParseListDirection(std::string_view cell);

// A tone or a code: "CTCSS 100.0", "100", "88.5 Hz", "D023".
struct ListTone {
  int tenths_of_hertz = 0;  // one of the radio's; 0 for none
  bool is_code = false;
  bool is_unknown = false;  // a number that is no tone of the radio
};
ListTone ParseListTone(std::string_view cell);

// The tone mode that a cell names: "Tone", "TSQL", "DTCS", "None"; nothing for another text.
std::optional<ToneMode> ParseListToneMode(std::string_view cell);

// Lower-case letters and digits alone, without what stands in parentheses: "RX Freq. (MHz)" is
// "rxfreq".
std::string PlainHeader(std::string_view cell);

}  // namespace qz7
