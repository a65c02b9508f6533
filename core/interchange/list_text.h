#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/interchange/import_doubts.h"

namespace qz7 {

// A list that some other program wrote, whatever its encoding, separator and quotation marks.

struct ListRow {
  int line = 0;  // of the file, from 1, where the row begins
  std::vector<std::string> cells;
};

// The list as single bytes. UTF-16 and UTF-8 are known by their byte order marks; UTF-8 also by
// every byte of it, and UTF-16 by the 0 beside its first character. A character without a byte
// becomes "?" and a doubt.
std::string DecodeList(std::span<const std::uint8_t> bytes, std::vector<ImportDoubt>& doubts);

// The separators to try.
inline constexpr std::string_view kListSeparators = ",;\t|";

// The rows, blank ones left out. A cell that begins with a quotation mark, single or double as the
// list has them, ends with it; a doubled one in it stands for itself. One that is not closed ends
// with its line, and is a doubt. Blanks around a cell are dropped.
std::vector<ListRow> SplitList(std::string_view text, char separator,
                               std::vector<ImportDoubt>& doubts);

}  // namespace qz7
