#include "core/interchange/field_splitter.h"

#include <algorithm>

namespace qz7 {

std::optional<std::string_view> FirstField(ImportSession& session, std::string_view line) {
  FieldSplitter& splitter = session.splitter;
  const std::string_view text = line.substr(0, std::min(line.find('\0'), kLineLength));
  char* end = std::copy(text.begin(), text.end(), splitter.buffer.data());
  *end = '\0';
  // Overwriting the line feed leaves two 0 bytes: nothing of an earlier line is read behind them.
  if (text.ends_with('\n')) {
    end[-1] = '\0';
  }
  splitter.cursor = 0;
  return NextField(session);
}

std::optional<std::string_view> NextField(ImportSession& session) {
  FieldSplitter& splitter = session.splitter;
  const char quote = session.options.text_separator;
  const char outside_quotes = splitter.separator;
  if (splitter.buffer[splitter.cursor] == '\0') {
    return std::nullopt;
  }
  std::size_t length = 0;
  for (; splitter.buffer[splitter.cursor] != '\0'; ++splitter.cursor) {
    const char c = splitter.buffer[splitter.cursor];
    if (c == splitter.separator && quote != splitter.separator) {
      break;
    }
    if (c == quote) {
      splitter.separator = quote != splitter.separator ? quote : outside_quotes;
    } else {
      splitter.field[length++] = c;
    }
  }
  // The cursor leaves the line's own 0 behind, too.
  splitter.buffer[splitter.cursor++] = '\0';
  return std::string_view(splitter.field.data(), length);
}

}  // namespace qz7
