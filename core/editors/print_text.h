#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/editors/autodial.h"
#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

// The lines of a listing, one byte block: each line is a 16-bit little-endian length, its
// characters and a 0 byte; the length 0xFFFF ends the list. The block starts at 5000 bytes and
// grows by 2500. A growth to 60000 bytes or more, a line of 2497 characters or more, or an
// allocation that fails discards the whole list; what is appended later is ignored.
struct PrintText {
  std::unique_ptr<std::uint8_t[]> block;
  std::size_t size = 0;  // of the block
  std::size_t used = 0;
  bool discarded = false;
};

PrintText StartPrintText();
void AppendLine(PrintText& text, std::string_view line);
// The same with a line that is formatted first, as std::snprintf does it.
template <typename... Values>
void AppendFormatted(PrintText& text, const char* format, Values... values) {
  const int size = std::snprintf(nullptr, 0, format, values...);
  std::string line(static_cast<std::size_t>(std::max(size, 0)) + 1, '\0');
  std::snprintf(line.data(), line.size(), format, values...);
  line.pop_back();
  AppendLine(text, line);
}
// Ends the list, and gives back what the block has to spare when that is 100 bytes or more.
void FinishPrintText(PrintText& text);

// The lines of a finished list.
std::vector<std::string> PrintLines(const PrintText& text);

// Fills `text` with the listing of a document: memory channels, home channels, autodial memories.
// False after showing "Out of memory" when the list was discarded.
bool BuildPrintText(const CloneImage& image, const std::string& document_name, DtmfDisplay display,
                    const RegionVariant& region, PrintText& text);

}  // namespace qz7
