#include "core/interchange/import_lines.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <vector>

#include "core/files/paths.h"
#include "core/files/seams.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

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

std::string NameOf(std::string_view character) {
  std::uint32_t code = static_cast<unsigned char>(character.front());
  code = character.size() == 4 ? code & 0x07 : character.size() == 3 ? code & 0x0F : code & 0x1F;
  for (const char c : character.substr(1)) {
    code = code << 6 | (static_cast<unsigned char>(c) & 0x3FU);
  }
  std::array<char, 16> name;
  std::snprintf(name.data(), name.size(), "U+%04X", code);
  return name.data();
}

bool IsUtf16(std::string_view text) {
  return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

}  // namespace

std::vector<LostCharacter> LostCharactersOf(std::string_view text) {
  std::vector<LostCharacter> lost;
  for (int line = 1; !text.empty(); ++line) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1);
    const EncodedText encoded = FromUtf8(text.substr(0, end + 1));
    if (!encoded.unknown.empty()) {
      const bool is_text = encoded.unknown.size() > 1;
      lost.push_back({line, is_text ? NameOf(encoded.unknown) : "a byte that is no UTF-8"});
    }
    text.remove_prefix(end + 1);
  }
  return lost;
}

ImportLines LinesOf(std::span<const std::uint8_t> bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  ImportLines lines;
  lines.is_utf_16 = IsUtf16(text);
  if (text.starts_with(kByteOrderMark)) {
    lines.lost = LostCharactersOf(text.substr(kByteOrderMark.size()));
  }
  lines.text = text.starts_with(kByteOrderMark) ? FromUtf8Lossy(text.substr(kByteOrderMark.size()))
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
  std::ifstream file = OpenToRead(session.options.path);
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
