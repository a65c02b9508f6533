#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/interchange/import_session.h"

namespace qz7 {

// A character of a UTF-8 file that Windows-1252 has no byte for.
struct LostCharacter {
  int line = 0;
  std::string name;  // "U+4E2D"
};

// The first such character of each line of a UTF-8 text, and the first byte that is no UTF-8.
std::vector<LostCharacter> LostCharactersOf(std::string_view utf_8);

// The lines of an import file, whose bytes are read whole.
struct ImportLines {
  std::string text;  // lines ended by a line feed alone
  std::size_t at = 0;
  bool is_utf_16 = false;           // by its byte order mark; nothing is converted
  std::vector<LostCharacter> lost;  // the first one of each line
};

// A file that starts with a UTF-8 byte order mark is converted to Windows-1252, where what has no
// place there becomes "?"; any other file is taken byte for byte. CR LF counts as a line feed.
ImportLines LinesOf(std::span<const std::uint8_t> bytes);

// The next line, with its line feed if it has one; of a longer line 255 characters, the rest of it
// as further lines. Nothing at the end.
std::optional<std::string_view> NextLine(ImportLines& lines);
void Rewind(ImportLines& lines);

// The number of lines, at most 65,535; what a longer file holds behind them is not imported. The
// lines are rewound.
std::uint16_t CountLines(ImportLines& lines);

// Reads the file that the options name and counts its lines; nothing after showing "Error opening
// file: %s". Bytes behind the first 64 MiB, which hold 65,535 lines of any kind, are not read.
std::optional<ImportLines> OpenImportFile(ImportSession& session);

}  // namespace qz7
