#include "core/interchange/list_text.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/image/text_codec.h"

namespace qz7 {
namespace {

enum class Encoding { kSingleBytes, kUtf8, kUtf16Little, kUtf16Big };

struct Encoded {
  Encoding encoding;
  std::size_t mark;  // the length of its byte order mark
};

Encoded EncodingOf(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) {
    return {Encoding::kUtf8, 3};
  }
  if (text.starts_with("\xFF\xFE")) {
    return {Encoding::kUtf16Little, 2};
  }
  if (text.starts_with("\xFE\xFF")) {
    return {Encoding::kUtf16Big, 2};
  }
  if (text.size() >= 4 && text[1] == '\0' && text[3] == '\0') {
    return {Encoding::kUtf16Little, 0};
  }
  if (text.size() >= 4 && text[0] == '\0' && text[2] == '\0') {
    return {Encoding::kUtf16Big, 0};
  }
  const bool ascii = std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
  const std::string unknown = ascii ? "" : FromUtf8(text).unknown;
  // A single byte is no character; a whole character is one that Windows-1252 lacks.
  const bool utf_8 = !ascii && unknown.size() != 1;
  return {utf_8 ? Encoding::kUtf8 : Encoding::kSingleBytes, 0};
}

void AppendUtf8(std::string& text, std::uint32_t character) {
  const auto put = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0 | character >> 6);
    put(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    put(0xE0 | character >> 12);
    put(0x80 | (character >> 6 & 0x3F));
    put(0x80 | (character & 0x3F));
  } else {
    put(0xF0 | character >> 18);
    put(0x80 | (character >> 12 & 0x3F));
    put(0x80 | (character >> 6 & 0x3F));
    put(0x80 | (character & 0x3F));
  }
}

std::string Utf8OfUtf16(std::string_view bytes, Encoding encoding) {
  std::string text;
  std::uint32_t high = 0;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const std::uint32_t first = static_cast<unsigned char>(bytes[i]);
    const std::uint32_t second = static_cast<unsigned char>(bytes[i + 1]);
    const std::uint32_t unit =
        encoding == Encoding::kUtf16Little ? first | second << 8 : first << 8 | second;
    if (unit >= 0xD800 && unit < 0xDC00) {
      high = unit;
    } else if (unit >= 0xDC00 && unit < 0xE000) {
      AppendUtf8(text, high != 0 ? 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00) : 0xFFFD);
      high = 0;
    } else {
      AppendUtf8(text, unit);
    }
  }
  return text;
}

// The row that begins at `at`.
class RowReader {
 public:
  RowReader(std::string_view text, char separator) : text_(text), separator_(separator) {}

  // Reads the next row; false at the end.
  bool Next(ListRow& row, std::vector<ImportDoubt>& doubts) {
    row = {.line = line_, .cells = {}};
    if (at_ >= text_.size()) {
      return false;
    }
    do {
      row.cells.push_back(Cell(doubts));
    } while (at_ < text_.size() && text_[at_] == separator_ && ++at_ > 0);
    at_ += at_ < text_.size() ? 1 : 0;
    ++line_;
    return true;
  }

 private:
  std::string Cell(std::vector<ImportDoubt>& doubts) {
    while (at_ < text_.size() && text_[at_] == ' ') {
      ++at_;
    }
    const bool quoted = at_ < text_.size() && (text_[at_] == '"' || text_[at_] == '\'');
    std::string cell = quoted ? QuotedCell(doubts) : "";
    const std::size_t end =
        std::min(text_.find_first_of(std::string{separator_, '\n'}, at_), text_.size());
    cell += text_.substr(at_, end - at_);
    at_ = end;
    cell.erase(cell.find_last_not_of(" \r") + 1);
    return cell;
  }

  // A mark closes the cell in front of a separator or a line's end only: "Joe's" keeps its own.
  std::optional<std::size_t> ClosingMark(std::size_t from, char mark) const {
    for (std::size_t i = from; i < text_.size(); ++i) {
      if (text_[i] != mark) {
        continue;
      }
      if (i + 1 < text_.size() && text_[i + 1] == mark) {
        ++i;
        continue;
      }
      const std::size_t next = std::min(text_.find_first_not_of(" \r", i + 1), text_.size());
      if (next == text_.size() || text_[next] == separator_ || text_[next] == '\n') {
        return i;
      }
    }
    return std::nullopt;
  }

  std::string QuotedCell(std::vector<ImportDoubt>& doubts) {
    const char mark = text_[at_];
    const auto close = ClosingMark(at_ + 1, mark);
    if (!close) {
      if (mark == '"') {
        doubts.push_back({.line = line_, .reason = "a quotation mark is not closed"});
        ++at_;
      }
      return "";  // what follows is read up to the separator
    }
    std::string cell;
    for (++at_; at_ < *close; ++at_) {
      at_ += text_[at_] == mark ? 1 : 0;  // the first of two
      line_ += text_[at_] == '\n' ? 1 : 0;
      if (text_[at_] != '\r') {
        cell += text_[at_] == '\n' ? ' ' : text_[at_];
      }
    }
    ++at_;
    return cell;
  }

  std::string_view text_;
  char separator_;
  std::size_t at_ = 0;
  int line_ = 1;
};

}  // namespace

std::string DecodeList(std::span<const std::uint8_t> bytes, std::vector<ImportDoubt>& doubts) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const auto [encoding, mark] = EncodingOf(text);
  if (encoding == Encoding::kSingleBytes) {
    return std::string(text);
  }
  const std::string utf_8 = encoding == Encoding::kUtf8 ? std::string(text.substr(mark))
                                                        : Utf8OfUtf16(text.substr(mark), encoding);
  for (const LostCharacter& lost : LostCharactersOf(utf_8)) {
    doubts.push_back({.line = lost.line, .reason = lost.name + " has no byte and becomes \"?\""});
  }
  return FromUtf8Lossy(utf_8);
}

std::vector<ListRow> SplitList(std::string_view text, char separator,
                               std::vector<ImportDoubt>& doubts) {
  std::vector<ListRow> rows;
  RowReader reader(text, separator);
  for (ListRow row; reader.Next(row, doubts);) {
    if (std::any_of(row.cells.begin(), row.cells.end(),
                    [](const std::string& cell) { return !cell.empty(); })) {
      rows.push_back(std::move(row));
    }
  }
  return rows;
}

}  // namespace qz7
