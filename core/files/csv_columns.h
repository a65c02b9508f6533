#pragma once

#include <array>
#include <cstddef>

namespace qz7 {

// The columns of a list of channels, in the order in which export writes them and import looks them
// up.
enum CsvColumn : int {
  kRxFrequency,
  kTxFrequency,
  kOffsetColumn,
  kToneColumn,
  kSkipColumn,
  kPowerColumn,
  kEncFrequency,
  kDecFrequency,
  kNameColumn,
  kCommentColumn
};
inline constexpr int kCsvColumnCount = 10;

struct CsvColumnName {
  const char* title;
  const char* second_title;  // what other programs' header lines may call it; null for none
};
inline constexpr std::array<CsvColumnName, kCsvColumnCount> kCsvColumns = {{
    {"RX Frequency", "Output Frequency"},
    {"TX Frequency", "Input Frequency"},
    {"Offset", nullptr},
    {"Tone", nullptr},
    {"Skip", nullptr},
    {"Power", nullptr},
    {"Enc Frequency", "CTCSS Tones"},
    {"Dec Frequency", nullptr},
    {"Name", "Call Sign"},
    {"Comment", "Location"},
}};

}  // namespace qz7
