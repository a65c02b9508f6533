#include "core/interchange/import_lines.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <limits>
#include <vector>

#include "core/files/seams.h"

namespace qz7 {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// What Windows-1252 has at 0x80..0x9F; 0 where it has nothing.
constexpr std::array<char32_t, 32> kWindows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

struct Decoded {
  char32_t character;  // kNoCharacter for a byte that is part of none
  std::size_t bytes;
};
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

// How many bytes a character takes by its first one; 0 for a byte that starts none.
std::size_t SequenceLength(unsigned char first) {
  if (first < 0x80) {
    return 1;
  }
  if (first < 0xC2 || first > 0xF4) {
    return 0;
  }
  if (first < 0xE0) {
    return 2;
  }
  return first < 0xF0 ? 3 : 4;
}

// The first character of a UTF-8 text.
Decoded DecodeUtf8(std::string_view text) {
  constexpr Decoded kBadByte = {kNoCharacter, 1};
  constexpr std::array<char32_t, 5> kLowest = {0, 0, 0x80, 0x800, 0x10000};
  constexpr std::array<unsigned, 5> kFirstBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = SequenceLength(first);
  if (length == 0 || length > text.size()) {
    return kBadByte;
  }
  char32_t character = first & kFirstBits[length];
  for (const char c : text.substr(1, length - 1)) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) != 0x80) {
      return kBadByte;
    }
    character = character << 6 | (byte & 0x3FU);
  }
  return character < kLowest[length] ? kBadByte : Decoded{character, length};
}

char ToWindows1252(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto place = std::find(kWindows1252.begin(), kWindows1252.end(), character);
  const auto index = place - kWindows1252.begin();
  return place == kWindows1252.end() ? '?' : static_cast<char>(0x80 + index);
}

std::string ConvertUtf8(std::string_view text) {
  std::string converted;
  converted.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = DecodeUtf8(text);
    converted += ToWindows1252(next.character);
    text.remove_prefix(next.bytes);
  }
  return converted;
}

// CR LF to LF; a CR alone stays.
void JoinLineEnds(std::string& text) {
  std::size_t to = 0;
  for (std::size_t from = 0; from < text.size(); ++from) {
    const bool before_line_feed = from + 1 < text.size() && text[from + 1] == '\n';
    if (text[from] != '\r' || !before_line_feed) {
      text[to++] = text[from];
    }
  }
  text.resize(to);
}

}  // namespace

ImportLines LinesOf(std::span<const std::uint8_t> bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  ImportLines lines;
  lines.text = text.starts_with(kByteOrderMark) ? ConvertUtf8(text.substr(kByteOrderMark.size()))
                                                : std::string(text);
  JoinLineEnds(lines.text);
  return lines;
}

std::optional<std::string_view> NextLine(ImportLines& lines) {
  const std::string_view rest = std::string_view(lines.text).substr(lines.at, kLineLength);
  if (rest.empty()) {
    return std::nullopt;
  }
  const std::size_t end = rest.find('\n');
  const std::string_view line = rest.substr(0, end == std::string_view::npos ? end : end + 1);
  lines.at += line.size();
  return line;
}

void Rewind(ImportLines& lines) { lines.at = 0; }

std::uint16_t CountLines(ImportLines& lines) {
  constexpr auto kMostLines = std::numeric_limits<std::uint16_t>::max();
  std::uint16_t count = 0;
  Rewind(lines);
  while (count < kMostLines && NextLine(lines)) {
    ++count;
  }
  Rewind(lines);
  return count;
}

std::optional<ImportLines> OpenImportFile(ImportSession& session) {
  constexpr std::size_t kMostBytes = std::size_t{64} << 20;
  constexpr std::size_t kPiece = std::size_t{64} << 10;
  std::ifstream file(session.options.path, std::ios::binary);
  std::vector<std::uint8_t> bytes;
  while (file && bytes.size() < kMostBytes) {
    const std::size_t before = bytes.size();
    bytes.resize(before + kPiece);
    file.read(reinterpret_cast<char*>(bytes.data() + before), kPiece);
    bytes.resize(before + static_cast<std::size_t>(file.gcount()));
  }
  // A folder opens like a file on some systems, but does not read.
  if (!file.is_open() || file.bad()) {
    ShowMessage("Error opening file: " + session.options.title, "File error", Buttons::kOk,
                Icon::kStop);
    return std::nullopt;
  }
  ImportLines lines = LinesOf(bytes);
  session.line_count = CountLines(lines);
  return lines;
}

}  // namespace qz7
